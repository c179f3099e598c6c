#include "print/PrintPage.h"
#include "app/Operator.h"
#include "app/Session.h"
#include "layout/SaveLayout.h"
#include "layout/TextLeft.h"
#include "platform/Printer.h"
#include "platform/Skip.h"
#include "print/EncodeData.h"
#include "print/OpeningFont.h"
#include "shaping/AutoNumber.h"
#include <QFileInfo>

namespace vantrel {

namespace {

/// One step on the current printer; where there is none it fails like any other and is passed over.
template <typename Operation>
void OnPrinter(Session& session, const char* step, Operation&& operation)
{
    Skip(step, [&] { operation(session.Printers.Current()); });
}

/// The blank line opens the page; stripe text stands on the line below it.
void OpenPage(Session& session)
{
    // Both at once: the name may hold the likes of "%1" itself.
    const QString title =
        QStringLiteral("%1 - Page %2")
            .arg(session.CurrentLayoutName, QString::number(session.CurrentParams.PageIndex));
    OnPrinter(session, "job title", [&](Printer& printer) { printer.SetJobTitle(title); });
    OnPrinter(session, "font name", [](Printer& printer) { printer.SetFontName(OpeningFontName); });
    OnPrinter(session, "font size", [](Printer& printer) { printer.SetFontSize(OpeningFontSize); });
    OnPrinter(session, "blank line", [](Printer& printer) { printer.Print(QStringLiteral(" ")); });
}

void PrintTracks(Session& session)
{
    const LayoutParamsRecord& params = session.CurrentParams;
    Skip("track 1", [&] { EncodeData(session, params.Track1, 1); });
    Skip("track 2", [&] { EncodeData(session, params.Track2, 2); });
    Skip("track 3", [&] { EncodeData(session, params.Track3, 3); });
}

/// The back image is stretched to the page, with no regard to its proportions.
void PrintBackImage(Session& session)
{
    const QString path = session.Document.Tag;
    if (!QFileInfo(path).isFile())
        return;
    Picture picture;
    Skip("load back image", [&] { picture = LoadPicture(path); });
    if (!picture.HasHandle())
        return;
    OnPrinter(session, "back image", [&](Printer& printer) {
        printer.PaintPicture(picture, 0, 0, printer.Width(), printer.Height());
    });
}

/// The first family selects the font anew, so that a driver's magnetic font never stays in force.
void CopyFont(Session& session, const Font& font)
{
    OnPrinter(session, "reset font", [](Printer& p) { p.SetFontName(p.Fonts(1)); });
    OnPrinter(session, "font name", [&](Printer& p) { p.SetFontName(font.Name); });
    OnPrinter(session, "font size", [&](Printer& p) { p.SetFontSize(font.Size); });
    OnPrinter(session, "font bold", [&](Printer& p) { p.SetFontBold(font.Bold); });
    OnPrinter(session, "font strikethrough",
              [&](Printer& p) { p.SetFontStrikethrough(font.Strikethrough); });
    OnPrinter(session, "font underline", [&](Printer& p) { p.SetFontUnderline(font.Underline); });
    OnPrinter(session, "font italic", [&](Printer& p) { p.SetFontItalic(font.Italic); });
}

void PrintLabel(Session& session, CardObject& label)
{
    Skip("raise number", [&] { Increment_If_AutoNumber(label); });
    CopyFont(session, label.Font());
    OnPrinter(session, "colour", [&](Printer& p) { p.SetForeColor(label.ForeColor); });
    OnPrinter(session, "position", [&](Printer& p) {
        p.SetCurrentX(TextLeft(label, label.Alignment == 0 ? 0 : p.TextWidth(label.Caption())));
    });
    OnPrinter(session, "line", [&](Printer& p) { p.SetCurrentY(label.Top); });
    OnPrinter(session, "text", [&](Printer& p) { p.Print(label.Caption()); });
}

void PrintImage(Session& session, const CardObject& image)
{
    Picture picture;
    if (image.Tag == Marker::Camera)
        picture = image.Picture;
    else
        Skip("load image", [&] { picture = LoadPicture(image.Tag); });
    OnPrinter(session, "image", [&](Printer& printer) {
        printer.PaintPicture(picture, static_cast<double>(image.Left),
                             static_cast<double>(image.Top), static_cast<double>(image.Width),
                             static_cast<double>(image.Height));
    });
}

/// Later objects print over earlier ones.
void PrintObjects(Session& session)
{
    for (const auto& object : session.Document.Objects()) {
        if (!object->IsContent())
            continue;
        if (object->IsLabel())
            PrintLabel(session, *object);
        else if (object->IsImage())
            PrintImage(session, *object);
    }
}

} // namespace

void PrintCard_Ex(Session& session)
{
    OpenPage(session);
    PrintTracks(session);
    PrintBackImage(session);
    PrintObjects(session);
    OnPrinter(session, "end of job", [](Printer& printer) { printer.EndDoc(); });
    // The next page reloads from the store and takes its raised numbers from there.
    Skip("save numbers", [&] { SaveLayout(session, SaveMessages::Silent); });
    if (session.Settings.MainVisible) {
        session.Document.Refresh();
        session.Operator.LetEventsRun();
    }
}

} // namespace vantrel
