#include "desktop/DesktopStation.h"
#include "desktop/controls/DesktopFileDialog.h"
#include "station/imaging/ImageCapture.h"
#include "station/layout/DesignSelection.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QTimer>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

StationOptions WithDesignTools()
{
    StationOptions options;
    options.DesignTools = true;
    return options;
}

/// A station with design tools and an image of 1000 x 1000 twips, which is selected, and a folder
/// of pictures and other files.
class PictureStation : public DesktopStation
{
public:
    PictureStation() : DesktopStation(true, WithDesignTools())
    {
        WithLayout();
        Load();
        Image = &AddImage(Session, QString(), {200, 200, 1000, 1000});
        SelectObjects(Session.Document, Session.Face, {Image});
        Get<QMenu>("mnuProperties").menuAction()->setEnabled(true);
        Folder = Session.PathInFolder(QStringLiteral("photos"));
        EXPECT_TRUE(QDir().mkpath(Folder));
        for (const char* name : {"ada.png", "BEN.JPG"}) {
            QImage image(48, 64, QImage::Format_RGB32);
            image.fill(Qt::blue);
            EXPECT_TRUE(image.save(Folder + QLatin1Char('/') + QLatin1StringView(name)));
        }
        for (const char* name : {"notes.txt", "broken.png"}) {
            QFile file(Folder + QLatin1Char('/') + QLatin1StringView(name));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
            file.write("no picture");
        }
    }
    ~PictureStation() { CaptureSettings()->remove(QString()); }

    /// Runs a routine on the dialog that the command opens. It has to end the dialog.
    template <typename Deed>
    void With(const char* command, Deed deed)
    {
        auto* look = new QTimer(qApp);
        QObject::connect(look, &QTimer::timeout, look, [look, deed] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr)
                return;
            look->deleteLater();
            deed(*dialog);
        });
        look->start(10);
        Choose(command);
    }
    static void Accept(QFileDialog& dialog, const QString& path)
    {
        Named<QLineEdit>(dialog, "fileNameEdit").setText(path);
        static_cast<QDialog&>(dialog).accept();
    }
    void ChooseFile(const char* command, const QString& name)
    {
        With(command, [path = Folder + QLatin1Char('/') + name](QFileDialog& dialog) {
            Accept(dialog, path);
        });
    }

    CardObject* Image;
    QString Folder;
};

TEST(PictureDialog, AChosenPhotoKeepsTheBoxAndItsProportions)
{
    PictureStation station;
    station.ChooseFile("cmdChooseImage", QStringLiteral("ada.png"));
    EXPECT_EQ(station.Image->Width, 1000);
    EXPECT_EQ(station.Image->Height, 1000);
    EXPECT_EQ(station.Image->Fit, PictureFit::Whole);
    EXPECT_TRUE(station.Image->Picture.HasHandle());
    station.Choose("cmdUndo");
    EXPECT_EQ(station.Session.Document.Find(Family::img_LXV, 1)->Tag, QString());
}

TEST(PictureDialog, ListsPicturesOnly)
{
    PictureStation station;
    QStringList listed;
    station.With("cmdChooseImage", [&](QFileDialog& dialog) {
        dialog.setDirectory(station.Folder);
        auto& list = DesktopStation::Named<QListView>(dialog, "listView");
        EXPECT_TRUE(EventsUntil([&] { return list.model()->rowCount(list.rootIndex()) >= 3; }));
        for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row)
            listed += list.model()->index(row, 0, list.rootIndex()).data().toString();
        dialog.reject();
    });
    listed.sort();
    EXPECT_EQ(listed, (QStringList{QStringLiteral("BEN.JPG"), QStringLiteral("ada.png"),
                                   QStringLiteral("broken.png")}));
}

TEST(PictureDialog, BeginsWhereTheLastPictureWasTakenFromWhateverTheCommand)
{
    PictureStation station;
    QStringList folders;
    const auto look = [&](QFileDialog& dialog) {
        folders += dialog.directory().absolutePath();
        dialog.reject();
    };
    station.With("cmdChooseImage", look);
    station.ChooseFile("cmdChooseImage", QStringLiteral("ada.png"));
    for (const char* command : {"cmdChooseImage", "cmdBackImg", "cmdPicture"})
        station.With(command, look);
    EXPECT_EQ(folders, (QStringList{station.Session.ProgramFolder, station.Folder, station.Folder,
                                    station.Folder}));
    ASSERT_TRUE(QDir(station.Folder).removeRecursively());
    station.With("cmdBackImg", look);
    EXPECT_EQ(folders.last(), station.Session.ProgramFolder);
}

TEST(PictureDialog, ShowsThePictureBeforeItIsTaken)
{
    PictureStation station;
    QSize shown;
    QString broken;
    station.With("cmdChooseImage", [&](QFileDialog& dialog) {
        auto& preview = DesktopStation::Named<QLabel>(dialog, "imgPreview");
        Q_EMIT dialog.currentChanged(station.Folder + QStringLiteral("/ada.png"));
        shown = preview.pixmap().size();
        Q_EMIT dialog.currentChanged(station.Folder + QStringLiteral("/broken.png"));
        broken = preview.text();
        EXPECT_TRUE(preview.pixmap().isNull());
        dialog.reject();
    });
    EXPECT_EQ(shown, QSize(150, 200));
    EXPECT_EQ(broken, QStringLiteral("This file is no picture, or not a whole one"));
}

TEST(PictureDialog, ACancelChangesNothing)
{
    PictureStation station;
    for (const char* command : {"cmdChooseImage", "cmdBackImg", "cmdPicture"})
        station.With(command, [](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(station.Image->Tag, QString());
    EXPECT_EQ(station.Session.CurrentParams.BackImg1Path, QString());
}

TEST(PictureDialog, TheSharedDialogIsLeftAlone)
{
    PictureStation station;
    auto& shared = DesktopFileDialog::Of(station.Window);
    shared.Filter = QStringLiteral("*.pdf|*.PDF");
    station.ChooseFile("cmdBackImg", QStringLiteral("ada.png"));
    EXPECT_EQ(station.Session.CurrentParams.BackImg1Path,
              station.Folder + QStringLiteral("/ada.png"));
    EXPECT_EQ(shared.Filter, QStringLiteral("*.pdf|*.PDF"));
    EXPECT_EQ(shared.FileName, QString());
}

TEST(PictureDialog, TheMenuFitsThePictureIntoItsBox)
{
    PictureStation station;
    station.ChooseFile("cmdChooseImage", QStringLiteral("ada.png"));
    auto& menu = station.Get<QMenu>("mnuPictureFit");
    ASSERT_TRUE(EventsUntil([&] { return menu.menuAction()->isEnabled(); }));
    const std::pair<const char*, PictureFit> ways[] = {{"cmdFitFilled", PictureFit::Filled},
                                                       {"cmdFitStretched", PictureFit::Stretched},
                                                       {"cmdFitWhole", PictureFit::Whole}};
    for (const auto& [command, fit] : ways) {
        station.Choose(command);
        EXPECT_EQ(station.Image->Fit, fit);
        EXPECT_TRUE(station.Get<QAction>(command).isChecked()) << command;
    }
    SelectObjects(station.Session.Document, station.Session.Face,
                  {station.Session.Document.Find(Family::lbl_TEXT, 1)});
    EXPECT_TRUE(EventsUntil([&] { return !menu.menuAction()->isEnabled(); }));
}

} // namespace
} // namespace vantrel::test
