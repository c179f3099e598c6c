#include "station/print/PrintPage.h"
#include "base/Skip.h"
#include "card/AutoNumber.h"
#include "card/CaptionFigure.h"
#include "card/OpeningFont.h"
#include "card/TextLeft.h"
#include "printers/Printer.h"
#include "station/layout/FieldApplication.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/SaveLayout.h"
#include "station/ledger/CardRecord.h"
#include "station/print/EncodeData.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
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

/// What the object is called in the log and the ledger.
QString SpokenName(const CardObject& label)
{
    switch (label.Family()) {
    case Family::lbl_DATA:
        return QStringLiteral("Data Field ") + label.DataField;
    case Family::lbl_AUTO:
        return QStringLiteral("AutoNumber Field");
    default:
        return QStringLiteral("Static Text");
    }
}

void PrintLabel(Printers& printers, CardObject& label, CardRemarks& remarks)
{
    Skip("raise number", [&] { Increment_If_AutoNumber(label); });
    if (IsFigureFont(label.Font())) {
        const CaptionFigure figure = FigureOf(label, DotsPerInch(printers));
        PrintFigure(printers, figure, label.ForeColor);
        if (!figure.Trouble.isEmpty())
            remarks.push_back({SpokenName(label) + QStringLiteral(": ") + figure.Trouble, {}});
        return;
    }
    CopyFont(printers, label.Font());
    OnPrinter(printers, "colour", [&](Printer& p) { p.SetForeColor(label.ForeColor); });
    OnPrinter(printers, "position", [&](Printer& p) {
        p.SetCurrentX(TextLeft(label, label.Alignment == 0 ? 0 : p.TextWidth(label.Caption())));
    });
    OnPrinter(printers, "line", [&](Printer& p) { p.SetCurrentY(label.Top); });
    OnPrinter(printers, "text", [&](Printer& p) { p.Print(label.Caption()); });
}

void PrintImage(Printers& printers, const CardObject& image)
{
    Picture picture;
    if (image.Tag == Marker::Camera || image.IsRecordPicture)
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
}

/// Later objects are printed over earlier ones.
CardRemarks PrintObjects(Printers& printers, const CardDocument& document)
{
    CardRemarks remarks;
    for (const auto& object : document.Objects()) {
        if (!object->IsContent())
            continue;
        if (object->IsLabel())
            PrintLabel(printers, *object, remarks);
        else if (object->IsImage())
            PrintImage(printers, *object);
        if (!object->PictureProblem.isEmpty())
            remarks.push_back({QStringLiteral("The picture %1 is missing").arg(object->Tag),
                               object->PictureProblem});
    }
    return remarks;
}

void ReopenPage(Session& session)
{
    LoadLayout(session, session.CurrentLayoutName);
    ReapplyFieldValues(session);
}

} // namespace

CardRemarks DrawPage(Printers& printers, const QString& layoutName,
                     const LayoutParamsRecord& params, const FieldValues& values,
                     const CardDocument& document)
{
    OpenPage(printers, layoutName, params.PageIndex);
    PrintTracks(printers, params, values);
    PrintBackImage(printers, document);
    return PrintObjects(printers, document);
}

void PrintCard_Ex(Session& session)
{
    CardRecord record(session);
    if (!record.Begin([&] { ReopenPage(session); }))
        return;
    record.Note(DrawPage(session.Printers, session.CurrentLayoutName, session.CurrentParams,
                         session.FieldValues, session.Document));
    record.End();
    // The next page loads its numbers from the database.
    if (session.Keeper == nullptr)
        Skip("save numbers", [&] { SaveLayout(session, SaveMessages::Silent); });
    if (session.Settings.MainVisible) {
        session.Document.Refresh();
        session.Operator.LetEventsRun();
    }
}

} // namespace vantrel
