#include "desktop/EveryWindow.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopPictureDialog.h"
#include "desktop/controls/DesktopStyle.h"
#include "desktop/controls/DesktopUpDown.h"
#include "desktop/designer/frmDocument.h"
#include "desktop/dialogs/frmWizard.h"
#include "ledger/LedgerReading.h"
#include "samples/DemoArt.h"
#include "samples/DemoInstall.h"
#include "samples/FreshInstall.h"
#include "station/layout/DrawObjects.h"
#include "station/layout/FieldApplication.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/ObjectMenu.h"
#include "station/session/BufferedRecord.h"
#include "station/session/MainRuntime.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include "support/LedgerFill.h"
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMouseEvent>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>

namespace vantrel::test {
namespace {

/// A window of the station and the name of its picture in the book.
struct PictureRow
{
    const char* Window;
    const char* Picture;
};

constexpr PictureRow Pictures[] = {
    {"frmAquireImage2", "camera"},  {"frmCommSettings", "communication"},
    {"frmEncoding", "composer"},    {"frmFilters", "filters"},
    {"frmForms", "generator"},      {"frmGetLayout", "open-layout"},
    {"frmCheck", "check"},          {"frmShrink", "shrink"},
    {"frmHistory", "history"},      {"frmMacro", "macros"},
    {"frmObjects", "objects"},      {"frmOptions", "options"},
    {"frmPad", "padding"},          {"frmPlace", "place"},
    {"frmPreSuffix", "prefix"},     {"frmPrinters2", "printers"},
    {"frmRawData", "raw-data"},     {"frmSendData", "sequence"},
    {"frmSerialize", "serializer"}, {"frmSize", "size"},
    {"frmStatus", "status"},        {"frmToolbar", "data-settings"},
    {"frmTakePhoto", "take-photo"}, {"frmMacroTools", "macro-tools"},
};

void Keep(QWidget& window, const QString& path)
{
    QCoreApplication::processEvents();
    if (!window.grab().save(path, "PNG"))
        std::fprintf(stderr, "cannot be written: %s\n", path.toLocal8Bit().constData());
}

/// A station with what the windows need, and besides what the pictures show.
class PicturedStation : public FullStation
{
public:
    PicturedStation()
    {
        Session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};
        Session.Settings.Port = 10001;
        Session.Settings.UseIP = true;
        Session.LastRawData = QStringLiteral("<Ada Lovelace+40012345>");
        for (const char* record : {"<Ada Lovelace+40012345>", "<Grace Hopper+40054321>"}) {
            QString text = QLatin1StringView(record);
            BufferRecord(Session.RecordQueue, Session.Settings, text);
        }
        Session.LastRawData = QStringLiteral("<Ada Lovelace+40012345>");
        KeepInLedger();
        Draw_CamView(Session.Document,
                     {.cTop = 1500, .cLeft = 300, .cHeight = 1400, .cWidth = 1050}, 0, Picture(),
                     true, QString());
        Session.RawPicture = Picture::FromImage(DrawPortrait());
    }

private:
    /// Records of the last minute, the newest with bytes of every kind.
    void KeepInLedger()
    {
        StoreDatabase& store = Session.LayoutDb.Database();
        const LedgerEntry first = FindEntry(store, 1).value();
        int number = 1000;
        for (const char* name : {"Grace Hopper", "Joan Clarke", "Ada Lovelace"}) {
            ++number;
            LedgerEntry entry =
                PrintedEntry({QLatin1StringView(name), QStringLiteral("4001%1").arg(number)},
                             {QString::number(number)});
            entry.Raw =
                "AT<" + QByteArray(name) + " +4001" + QByteArray::number(number) + "\t>\r\n";
            entry.Framing = QStringLiteral(
                R"({"start":"<","separator":"+","end":">","filters":["cr","lf","tab"]})");
            entry.Cards[0].PageHash = first.Cards[0].PageHash;
            AddLedgerEntry(store, entry);
        }
    }
};

/// The main window with the card of the demo.
void TakeMainWindow(const QDir& folder)
{
    const QTemporaryDir demo;
    const QString demoFolder = demo.filePath(QStringLiteral("demo"));
    MakeDemoFolder(demoFolder);
    PicturedStation station;
    station.Session.LayoutDb.Close();
    station.Session.LayoutDb.Open(LayoutDatabasePath(demoFolder));
    station.Session.CurrentParams.PageIndex = 1;
    LoadLayout(station.Session, QStringLiteral("Member Card"));
    SetRecord(station.Session,
              {QStringLiteral("Ada Lovelace"), QStringLiteral("40012345"), QStringLiteral("Gold")});
    ReapplyFieldValues(station.Session);
    TickStatusBar(station.Session);
    TickObjectMenu(station.Session.Face, station.Session.Document);
    station.Window.show();
    Keep(station.Window, folder.filePath(QStringLiteral("main.png")));
}

/// The designer in the middle of a drag, with the rulers and the lines of what it snaps to.
void TakeDesigner(const QDir& folder)
{
    constexpr QSize size(1000, 640);
    const QTemporaryDir demo;
    const QString demoFolder = demo.filePath(QStringLiteral("demo"));
    MakeDemoFolder(demoFolder);
    StationOptions options;
    options.DesignTools = true;
    DesktopStation station(true, options);
    station.Session.LayoutDb.Open(LayoutDatabasePath(demoFolder));
    station.Session.CurrentParams.PageIndex = 1;
    LoadLayout(station.Session, QStringLiteral("Member Card"));
    SetRecord(station.Session,
              {QStringLiteral("Ada Lovelace"), QStringLiteral("40012345"), QStringLiteral("Gold")});
    ReapplyFieldValues(station.Session);
    TickStatusBar(station.Session);
    station.Window.resize(size);
    station.Window.show();
    QCoreApplication::processEvents();
    auto& form = station.Get<frmDocument>("frmDocument");
    form.ZoomInPlace(2);
    QCoreApplication::processEvents();
    const CardObject& name = *station.Session.Document.Find(Family::lbl_DATA, 1);
    const QRect box = form.ScreenBoxOf(name);
    const QPoint from = form.mapFromGlobal(box.center());
    const auto send = [&](QEvent::Type type, QPoint point) {
        QMouseEvent event(type, point, form.mapToGlobal(point),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&form, &event);
    };
    send(QEvent::MouseButtonPress, from);
    constexpr QPoint nearItsPlace(3, -2);
    send(QEvent::MouseMove, from + nearItsPlace);
    Keep(station.Window, folder.filePath(QStringLiteral("designer.png")));
    send(QEvent::MouseButtonRelease, from + nearItsPlace);
}

/// Answers the wizard's pages as the quick start does.
void TakeWizard(const QDir& folder)
{
    constexpr int Pages = 6;
    PicturedStation station;
    QWidget& wizard = OpenDialog<frmWizard>(station.Session, &station.Window);
    auto& next = DesktopStation::Named<QAbstractButton>(wizard, "cmdNext");
    for (int page = 1; page <= Pages; ++page) {
        if (page == 1)
            DesktopStation::Named<QLineEdit>(wizard, "txtName").setText(QStringLiteral("Badge"));
        if (page == 3)
            DesktopStation::Named<QAbstractButton>(wizard, "imgL").click();
        if (page == 4)
            DesktopStation::Named<QListWidget>(wizard, "lstPrinters").setCurrentRow(0);
        if (page == 5) {
            DesktopStation::Named<QCheckBox>(wizard, "chkEnableFields").setChecked(true);
            DesktopStation::Named<DesktopUpDown>(wizard, "udFields").SetValue(2);
        }
        EventsUntil([&] { return next.isEnabled(); });
        Keep(wizard, folder.filePath(QStringLiteral("wizard-%1.png").arg(page)));
        if (page < Pages)
            next.click();
    }
}

/// The dialog that asks for a picture, with one chosen.
void TakePictureDialog(const QDir& folder)
{
    PicturedStation station;
    const QString photos = station.Session.PathInFolder(QStringLiteral("Photos"));
    QDir().mkpath(photos);
    for (const char* name : {"Ada Lovelace.png", "Grace Hopper.png", "Joan Clarke.png"})
        DrawPortrait().save(photos + u'/' + QLatin1StringView(name));
    QTimer::singleShot(0, &station.Window, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr)
            return;
        auto& list = DesktopStation::Named<QListView>(*dialog, "listView");
        EventsUntil([&] { return list.model()->rowCount(list.rootIndex()) == 3; });
        list.setCurrentIndex(list.model()->index(0, 0, list.rootIndex()));
        Keep(*dialog, folder.filePath(QStringLiteral("choose-picture.png")));
        dialog->reject();
    });
    DesktopPictureDialog::Ask(station.Window, photos);
}

/// Takes a picture of every window that the book shows, and of each page of a window with several.
void TakePictures(const QDir& folder)
{
    for (const PictureRow& picture : Pictures) {
        for (const WindowRow& row : EveryWindow()) {
            if (QLatin1StringView(row.Name) != QLatin1StringView(picture.Window))
                continue;
            PicturedStation station;
            QWidget& window = row.Open(station);
            QStringList faces;
            OnEachFace(window, [&] {
                const auto* tabs = window.findChild<QTabWidget*>();
                if (tabs != nullptr && !tabs->isTabEnabled(tabs->currentIndex()))
                    return;
                faces.append(folder.filePath(QStringLiteral("%1-%2.png")
                                                 .arg(QLatin1StringView(picture.Picture))
                                                 .arg(faces.size() + 1)));
                Keep(window, faces.last());
            });
            const QString alone =
                folder.filePath(QLatin1StringView(picture.Picture) + QStringLiteral(".png"));
            if (faces.size() == 1) {
                QFile::remove(alone);
                QFile::rename(faces.first(), alone);
            }
        }
    }
}

} // namespace
} // namespace vantrel::test

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    vantrel::DesktopStyle::Install();
    if (argc != 2) {
        std::fputs("usage: screenshots FOLDER\n", stderr);
        return 2;
    }
    try {
        const QDir folder(QString::fromLocal8Bit(argv[1]));
        vantrel::test::TakeMainWindow(folder);
        vantrel::test::TakeDesigner(folder);
        vantrel::test::TakeWizard(folder);
        vantrel::test::TakePictures(folder);
        vantrel::test::TakePictureDialog(folder);
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "screenshots: %s\n", failure.what());
        return 1;
    }
}
