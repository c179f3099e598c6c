#include "base/DesktopColor.h"
#include "base/Profile.h"
#include "desktop/DesktopStation.h"
#include "desktop/controls/DesktopFileDialog.h"
#include "station/layout/LoadLayout.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QApplication>
#include <QColorDialog>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenu>
#include <QTimer>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// Runs a routine on the next dialog of its class that waits, inside the dialog's event loop.
template <typename Dialog, typename Deed>
void WhenShown(Deed deed)
{
    auto* look = new QTimer(qApp);
    QObject::connect(look, &QTimer::timeout, look, [look, deed] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr)
            return;
        look->deleteLater();
        deed(*dialog);
    });
    look->start(10);
}

/// Types the path, as an operator would, and presses Open.
void Accept(QFileDialog& dialog, const QString& path)
{
    DesktopStation::Named<QLineEdit>(dialog, "fileNameEdit").setText(path);
    static_cast<QDialog&>(dialog).accept();
}

class FileStation : public DesktopStation
{
public:
    FileStation()
    {
        WithLayout();
        Load();
        EXPECT_TRUE(EventsUntil([&] { return Get<QAction>("cmdPrint").isEnabled(); }));
    }

    void ChooseFile(const char* command, const QString& path)
    {
        WhenShown<QFileDialog>([path](QFileDialog& dialog) { Accept(dialog, path); });
        Choose(command);
    }
    void Cancel(const char* command)
    {
        WhenShown<QDialog>([](QDialog& dialog) { dialog.reject(); });
        Choose(command);
    }
    QString StoredBackground() const
    {
        return ReadProfileValue(SettingsPath(Session.ProgramFolder), SessionSection(Session),
                                QStringLiteral("Background"), QStringLiteral("(absent)"));
    }
    DesktopFileDialog& CommonDialog() { return DesktopFileDialog::Of(Window); }
};

/// The files that this process holds locks of, as the machine lists them.
QStringList LockedFiles()
{
    QFile locks(QStringLiteral("/proc/locks"));
    EXPECT_TRUE(locks.open(QIODevice::ReadOnly));
    QStringList files;
    const QList<QByteArray> lines = locks.readAll().split('\n');
    for (const QByteArray& line : lines) {
        const QStringList words = QString::fromLatin1(line).simplified().split(QLatin1Char(' '));
        if (words.value(4).toLongLong() == QCoreApplication::applicationPid())
            files.append(words.value(5));
    }
    files.sort();
    return files;
}

TEST(FileCommands, FileDialogLeavesTheLocksOfTheDatabase)
{
    FileStation station;
    const QStringList before = LockedFiles();
    ASSERT_FALSE(before.isEmpty());
    const QString database = station.Session.ProgramFolder + QStringLiteral("/Vantrel.dat");
    QString kind;
    WhenShown<QFileDialog>([&](QFileDialog& dialog) {
        dialog.setDirectory(QFileInfo(database).path());
        auto& files = *dialog.findChild<QFileSystemModel*>();
        EXPECT_TRUE(
            EventsUntil([&] { return !(kind = files.type(files.index(database))).isEmpty(); }));
        dialog.reject();
    });
    station.Choose("cmdBackImg");
    EXPECT_FALSE(kind.isEmpty());
    EXPECT_EQ(LockedFiles(), before);
}

TEST(FileCommands, BackImageSetsThePagesPicture)
{
    FileStation station;
    const QString picture = station.WritePng(QStringLiteral("back side \u00fc.png"), 20, 20);
    station.ChooseFile("cmdBackImg", picture);
    EXPECT_EQ(station.Session.CurrentParams.BackImg1Path, picture);
    EXPECT_EQ(station.Session.Document.Tag, picture);
    station.Cancel("cmdBackImg");
    EXPECT_EQ(station.Session.CurrentParams.BackImg1Path, picture);
    station.Choose("cmdClearBackground");
    EXPECT_EQ(station.Session.CurrentParams.BackImg1Path, QString());
}

TEST(FileCommands, TheBackImageCommandsDoNothingWithoutALayout)
{
    FileStation station;
    CloseLayout(station.Session);
    int asked = 0;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            ++asked;
            dialog->reject();
        }
    });
    look.start(10);
    for (const char* command : {"cmdBackImg", "cmdBaclPDF", "cmdClearBackground"})
        station.Choose(command);
    EXPECT_EQ(asked, 0);
    EXPECT_FALSE(station.Session.Document.IsLoaded());
    EXPECT_EQ(station.CommonDialog().Filter, QString());
}

TEST(FileCommands, AFileGoesToThePageItWasAskedForOnly)
{
    FileStation station;
    const QString picture = station.WritePng(QStringLiteral("back.png"), 20, 20);
    const CardObject* image = nullptr;
    const std::function<void()> meanwhile[] = {
        [&] { CloseLayout(station.Session); },
        [&] {
            // Another layout that has an image of the same number.
            BeginLayout(station.Session, QStringLiteral("Visitor"));
            image = &AddImage(station.Session, QString());
            station.Session.CurrentParams.BackImg1Path = picture;
        },
    };
    for (const auto& happens : meanwhile) {
        for (const char* command : {"cmdBackImg", "cmdBaclPDF", "cmdChooseImage"}) {
            BeginLayout(station.Session, QStringLiteral("Badge"));
            station.Session.Document.SelectedObject = &AddImage(station.Session, QString());
            station.Session.Document.SelectedFamily = QStringLiteral("img_LXV");
            station.Session.Document.SelectedIndex = 1;
            station.CommonDialog().FileName.clear();
            station.CommonDialog().Filter.clear();
            WhenShown<QFileDialog>([&](QFileDialog& dialog) {
                happens();
                Accept(dialog, station.WritePng(QStringLiteral("other.png"), 30, 30));
            });
            station.Choose(command);
            EXPECT_FALSE(station.Session.Document.Tag.endsWith(QStringLiteral("other.png")))
                << command;
            if (station.Session.CurrentLayoutName.isEmpty()) {
                EXPECT_FALSE(station.Session.Document.IsLoaded()) << command;
                continue;
            }
            EXPECT_EQ(station.Session.CurrentParams.BackImg1Path, picture) << command;
            EXPECT_EQ(image->Tag, QString()) << command;
        }
    }
}

TEST(FileCommands, ThePdfCommandClearsTheBackImageEvenWhenCancelledAndLeavesItsFilter)
{
    FileStation station;
    station.ChooseFile("cmdBackImg", station.WritePng(QStringLiteral("back.png"), 20, 20));
    station.Cancel("cmdBaclPDF");
    EXPECT_EQ(station.Session.CurrentParams.BackImg1Path, QString());
    EXPECT_EQ(station.CommonDialog().Filter, QStringLiteral("*.pdf|*.PDF"));
    QStringList filters;
    WhenShown<QFileDialog>([&](QFileDialog& dialog) {
        filters = dialog.nameFilters();
        dialog.reject();
    });
    station.Choose("cmdBackImg");
    EXPECT_EQ(filters, QStringList{QStringLiteral("*.pdf (*.PDF)")});
}

TEST(FileCommands, ChooseImageBeginsInTheProgramFolderWithoutAName)
{
    FileStation station;
    CardObject& image = AddImage(station.Session, QString());
    station.Session.Document.SelectedFamily = QStringLiteral("img_LXV");
    station.Session.Document.SelectedIndex = 1;
    station.Session.Document.SelectedObject = &image;
    station.Get<QMenu>("mnuProperties").menuAction()->setEnabled(true);
    station.CommonDialog().FileName = QStringLiteral("/earlier");
    QString folder;
    const QString picture = station.WritePng(QStringLiteral("face.png"), 20, 20);
    WhenShown<QFileDialog>([&](QFileDialog& dialog) {
        folder = dialog.directory().absolutePath();
        Accept(dialog, picture);
    });
    station.Choose("cmdChooseImage");
    EXPECT_EQ(folder, station.Session.ProgramFolder);
    EXPECT_EQ(image.Tag, picture);
    EXPECT_TRUE(image.Picture.HasHandle());
}

TEST(FileCommands, ImportDrawsAnOldSession)
{
    FileStation station;
    const QString path = station.Session.PathInFolder(QStringLiteral("Old.ini"));
    for (const auto& [key, value] : {std::pair{"NumberOfFields", "0"},
                                     {"NumberOfText", "1"},
                                     {"Text0", "Pool"},
                                     {"TextAlign0", "0"},
                                     {"TextTop0", "100"},
                                     {"TextLeft0", "100"},
                                     {"TextFontName0", "DejaVu Sans"},
                                     {"TextFontSize0", "9"},
                                     {"TextFontBold0", "0"},
                                     {"TextFontItalic0", "0"},
                                     {"TextFontUnderline0", "0"},
                                     {"TextFontColor0", "0"}})
        ASSERT_TRUE(WriteProfileValue(path, QStringLiteral("Settings"), QLatin1StringView(key),
                                      QLatin1StringView(value)));
    station.ChooseFile("cmdImportSession", path);
    ASSERT_EQ(station.Session.Document.HighestIndex(Family::lbl_TEXT), 2);
    EXPECT_EQ(station.Session.Document.Find(Family::lbl_TEXT, 2)->Caption(),
              QStringLiteral("Pool"));
}

TEST(FileCommands, ACancelledImportDrawsNothingEvenAfterAnEarlierImport)
{
    FileStation station;
    const QString path = station.Session.PathInFolder(QStringLiteral("Old.ini"));
    ASSERT_TRUE(WriteProfileValue(path, QStringLiteral("Settings"),
                                  QStringLiteral("NumberOfFields"), QStringLiteral("0")));
    station.ChooseFile("cmdImportSession", path);
    EXPECT_EQ(station.CommonDialog().FileName, path);
    const std::size_t objects = station.Session.Document.Objects().size();
    station.Cancel("cmdImportSession");
    EXPECT_EQ(station.CommonDialog().FileName, QString());
    EXPECT_EQ(station.Session.Document.Objects().size(), objects);
}

TEST(FileCommands, TheWorkspaceTakesAColourAPictureAndTheDefault)
{
    FileStation station;
    auto& workspace = station.Get<QMdiArea>("Workspace");
    const QBrush standard = workspace.background();
    WhenShown<QColorDialog>([](QColorDialog& dialog) {
        dialog.setCurrentColor(ColorOf(0x336699));
        dialog.accept();
    });
    station.Choose("cmdColor");
    EXPECT_EQ(workspace.background().color(), ColorOf(0x336699));
    EXPECT_EQ(station.StoredBackground(), QString::number(0x336699));
    station.Cancel("cmdColor");
    EXPECT_EQ(station.StoredBackground(), QString::number(0x336699));

    const QString picture = station.WritePng(QStringLiteral("sea.png"), 8, 6);
    station.ChooseFile("cmdPicture", picture);
    EXPECT_EQ(workspace.background().style(), Qt::TexturePattern);
    EXPECT_EQ(station.StoredBackground(), picture);

    station.Choose("cmdBackDefault");
    EXPECT_EQ(workspace.background(), standard);
    EXPECT_EQ(station.StoredBackground(), QStringLiteral("0"));
}

TEST(FileCommands, BlackIsStoredAs0AndShownOneStepAway)
{
    FileStation station;
    WhenShown<QColorDialog>([](QColorDialog& dialog) {
        dialog.setCurrentColor(Qt::black);
        dialog.accept();
    });
    station.Choose("cmdColor");
    EXPECT_EQ(station.StoredBackground(), QStringLiteral("0"));
    EXPECT_EQ(station.Get<QMdiArea>("Workspace").background().color(), ColorOf(1));
}

} // namespace
} // namespace vantrel::test
