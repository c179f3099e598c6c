#include "station/print/PrintPage.h"
#include "base/Skip.h"
#include "card/AutoNumber.h"
#include "card/CaptionFigure.h"
#include "card/FittedFont.h"
#include "card/ObjectFindings.h"
#include "card/ObjectNames.h"
#include "card/OpeningFont.h"
#include "card/TextLeft.h"
#include "card/TrackFindings.h"
#include "printers/Printer.h"
#include "station/layout/FieldApplication.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/SaveLayout.h"
#include "station/layout/StoredNumbers.h"
#include "station/ledger/CardRecord.h"
#include "station/print/EncodeData.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include "store/ReadAhead.h"
#include <QFileInfo>

namespace vantrel {

namespace {

/// Runs one operation on the current printer. A failure, such as a missing printer, is skipped.
template <typename Operation>
void OnPrinter(Printers& printers, const char* step, Operation&& operation)
{
    Skip(step, [&] { operation(printers.Current()); });
}

/// A blank line opens the page; stripe text is printed on the line below it.
void OpenPage(Printers& printers, const QString& layoutName, std::int16_t page)
{
    // Both arguments in one call, because the name itself may contain "%1".
    const QString title = QStringLiteral("%1 - Page %2").arg(layoutName, QString::number(page));
    OnPrinter(printers, "job title", [&](Printer& printer) { printer.SetJobTitle(title); });
    OnPrinter(printers, "font name",
              [](Printer& printer) { printer.SetFontName(OpeningFontName); });
    OnPrinter(printers, "font size",
              [](Printer& printer) { printer.SetFontSize(OpeningFontSize); });
    OnPrinter(printers, "blank line", [](Printer& printer) { printer.Print(QStringLiteral(" ")); });
}

void PrintTracks(Printers& printers, const LayoutParamsRecord& params, const FieldValues& values)
{
    Skip("track 1", [&] { EncodeData(printers, params.PrinterType, values, params.Track1, 1); });
    Skip("track 2", [&] { EncodeData(printers, params.PrinterType, values, params.Track2, 2); });
    Skip("track 3", [&] { EncodeData(printers, params.PrinterType, values, params.Track3, 3); });
}

/// Stretches the back image to the page without keeping its proportions.
void PrintBackImage(Printers& printers, const CardDocument& document)
{
    const QString path = document.Tag;
    if (!QFileInfo(path).isFile())
        return;
    Picture picture;
    Skip("load back image", [&] { picture = LoadPicture(path); });
    if (!picture.HasHandle())
        return;
    OnPrinter(printers, "back image", [&](Printer& printer) {
        printer.PaintPicture(picture, 0, 0, printer.Width(), printer.Height());
    });
}

/// Sets another family first, so that a driver's magnetic font never stays selected.
void CopyFont(Printers& printers, const Font& font)
{
    OnPrinter(printers, "reset font", [](Printer& p) { p.SetFontName(p.Fonts(1)); });
    OnPrinter(printers, "font name", [&](Printer& p) { p.SetFontName(font.Name); });
    OnPrinter(printers, "font size", [&](Printer& p) { p.SetFontSize(font.Size); });
    OnPrinter(printers, "font bold", [&](Printer& p) { p.SetFontBold(font.Bold); });
    OnPrinter(printers, "font strikethrough",
              [&](Printer& p) { p.SetFontStrikethrough(font.Strikethrough); });
    OnPrinter(printers, "font underline", [&](Printer& p) { p.SetFontUnderline(font.Underline); });
    OnPrinter(printers, "font italic", [&](Printer& p) { p.SetFontItalic(font.Italic); });
}

int DotsPerInch(Printers& printers)
{
    int dots = 0;
    OnPrinter(printers, "dots per inch", [&](Printer& p) { dots = p.DotsPerInch(); });
    return dots;
}

void PrintFigure(Printers& printers, const CaptionFigure& figure, ColorValue color)
{
    OnPrinter(printers, "colour", [&](Printer& p) { p.SetForeColor(color); });
    if (!figure.Boxes.empty())
        OnPrinter(printers, "boxes", [&](Printer& p) { p.FillBoxes(figure.Boxes); });
    if (!figure.Notice.empty())
        CopyFont(printers, figure.NoticeFont);
    for (const NoticeLine& line : figure.Notice) {
        OnPrinter(printers, "position", [&](Printer& p) { p.SetCurrentX(line.X); });
        OnPrinter(printers, "line", [&](Printer& p) { p.SetCurrentY(static_cast<float>(line.Y)); });
        OnPrinter(printers, "text", [&](Printer& p) { p.Print(line.Text); });
    }
}

/// What is noted of a card while it is drawn.
struct CardNotes
{
    CardChecks Checks = CardChecks::None;
    /// The card's size in twips; empty if it is not known.
    QSizeF Card;
    CardRemarks Remarks = {};

    bool AreOn() const { return Checks == CardChecks::OfValues; }
    void Add(const std::optional<Finding>& finding)
    {
        if (finding)
            Remarks.push_back(RemarkOf(*finding));
    }
};

/// Whether what a label shows differs from card to card.
bool ShowsValue(const CardObject& label)
{
    return label.Family() == Family::lbl_DATA || label.Family() == Family::lbl_AUTO;
}

void PrintCaptionFigure(Printers& printers, const CardObject& label, CardNotes& notes)
{
    const CaptionFigure figure = FigureOf(label, DotsPerInch(printers));
    PrintFigure(printers, figure, label.ForeColor);
    if (!figure.Trouble.isEmpty())
        notes.Remarks.push_back({NumberedKind(label) + QStringLiteral(": ") + figure.Trouble, {}});
    else if (notes.AreOn() && ShowsValue(label))
        notes.Add(CodeFinding(label, figure));
}

void PrintLabel(Printers& printers, CardObject& label, CardNotes& notes)
{
    Skip("raise number", [&] { Increment_If_AutoNumber(label); });
    if (IsFigureFont(label.Font())) {
        PrintCaptionFigure(printers, label, notes);
        return;
    }
    const Font font = FittedFont(label);
    CopyFont(printers, font);
    OnPrinter(printers, "colour", [&](Printer& p) { p.SetForeColor(label.ForeColor); });
    OnPrinter(printers, "position", [&](Printer& p) {
        p.SetCurrentX(TextLeft(label, label.Alignment == 0 ? 0 : p.TextWidth(label.Caption())));
    });
    OnPrinter(printers, "line", [&](Printer& p) { p.SetCurrentY(label.Top); });
    OnPrinter(printers, "text", [&](Printer& p) { p.Print(label.Caption()); });
    if (notes.AreOn() && ShowsValue(label))
        notes.Add(TextFinding(label, font, notes.Card));
}

void PrintImage(Printers& printers, const CardObject& image, CardNotes& notes)
{
    Picture picture;
    const bool isOfRecord = image.Tag == Marker::Camera || image.IsRecordPicture;
    if (isOfRecord)
        picture = image.Picture;
    else
        Skip("load image", [&] { picture = LoadPicture(image.Tag); });
    const double left = image.Left;
    const double top = image.Top;
    const double width = image.Width;
    const double height = image.Height;
    OnPrinter(printers, "image", [&](Printer& printer) {
        if (image.Fit == PictureFit::Stretched)
            printer.PaintPicture(picture, left, top, width, height);
        else
            printer.PaintFitted(picture, image.Fit, left, top, width, height);
    });
    if (notes.AreOn() && isOfRecord)
        notes.Add(CoarseFinding(picture, image.Fit, {width, height}, FindingNameOf(image)));
}

/// Later objects are printed over earlier ones.
void PrintObjects(Printers& printers, const CardDocument& document, CardNotes& notes)
{
    for (const auto& object : document.Objects()) {
        if (!object->IsContent())
            continue;
        if (object->IsLabel())
            PrintLabel(printers, *object, notes);
        else if (object->IsImage())
            PrintImage(printers, *object, notes);
        if (!object->PictureProblem.isEmpty())
            notes.Remarks.push_back({QStringLiteral("The picture %1 is missing").arg(object->Tag),
                                     object->PictureProblem});
    }
}

void ReopenPage(Session& session, LayoutPage& page)
{
    LoadLayout(session, page, page.LayoutName);
    ReapplyFieldValues(session, page);
}

void SavePrinted(Session& session, const LayoutPage& page)
{
    if (session.Shows(page)) {
        Skip("save numbers", [&] { SaveLayout(session, SaveMessages::Silent); });
        return;
    }
    // Unique numbers were stored before the page was drawn.
    if (!session.Options.UniqueNumbers)
        Skip("save numbers", [&] { SaveNumbers(session, page); });
    ShowNumbersOnSurface(session, page);
}

} // namespace

CardRemarks DrawPage(Printers& printers, const QString& layoutName,
                     const LayoutParamsRecord& params, const FieldValues& values,
                     const CardDocument& document, CardChecks checks)
{
    CardNotes notes{
        .Checks = checks,
        .Card = {static_cast<double>(document.Width), static_cast<double>(document.Height)}};
    OpenPage(printers, layoutName, params.PageIndex);
    PrintTracks(printers, params, values);
    PrintBackImage(printers, document);
    if (notes.AreOn()) {
        for (const Finding& finding : FindingsOnTracks(params, values))
            notes.Remarks.push_back(RemarkOf(finding));
    }
    PrintObjects(printers, document, notes);
    return std::move(notes.Remarks);
}

CardChecks ChecksOf(const StationOptions& options)
{
    return options.DesignTools ? CardChecks::OfValues : CardChecks::None;
}

void ShowNumbersOnSurface(Session& session, const LayoutPage& printed)
{
    const bool isOpen = session.CurrentLayoutName == printed.LayoutName &&
                        session.CurrentParams.PageIndex == printed.Params.PageIndex;
    if (isOpen && ShowHigherNumbers(session.Document, printed.Document))
        session.Document.Refresh();
}

void PrintCard_Ex(Session& session, LayoutPage& page, std::optional<ReadAhead>& look)
{
    CardRecord record(session, page);
    const bool hasBegun = record.Begin([&] { ReopenPage(session, page); });
    look.reset();
    if (!hasBegun)
        return;
    record.Note(DrawPage(session.Printers, page.LayoutName, page.Params, session.FieldValues,
                         page.Document, ChecksOf(session.Options)));
    record.End();
    // The next page loads its numbers from the database.
    if (session.Keeper == nullptr)
        SavePrinted(session, page);
    if (session.Settings.MainVisible) {
        page.Document.Refresh();
        session.Operator.LetEventsRun();
    }
}

} // namespace vantrel
