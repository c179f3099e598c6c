#include "station/imaging/TakePhoto.h"
#include "base/Profile.h"
#include "station/imaging/CameraLibrary.h"
#include "station/layout/DrawObjects.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QDir>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

CardObject& AddCamera(Session& session, std::int32_t height, std::int32_t width)
{
    return Draw_CamView(session.Document, {200, 200, height, width}, 0, Picture(), true, QString());
}

class TakePhoto : public ::testing::Test
{
protected:
    TakePhoto()
    {
        Station.WithDatabase();
        BeginLayout(Session, QStringLiteral("Badge"));
    }

    TestSession Station;
    vantrel::Session& Session = Station.Session;
};

TEST_F(TakePhoto, IsForTheSelectedCameraImageElseForTheLargest)
{
    EXPECT_TRUE(CameraBoxOf(Session.Document).isEmpty());
    CardObject& small = AddCamera(Session, 400, 300);
    AddCamera(Session, 1400, 1050);
    EXPECT_EQ(CameraBoxOf(Session.Document), QSizeF(1050, 1400));
    Session.Document.SelectedObject = &small;
    EXPECT_EQ(CameraBoxOf(Session.Document), QSizeF(300, 400));
    Session.Document.SelectedObject = &AddText(Session, QStringLiteral("Text"));
    EXPECT_EQ(CameraBoxOf(Session.Document), QSizeF(1050, 1400));
}

TEST_F(TakePhoto, GivesThePartToAllCameraImagesWithoutStretchingIt)
{
    CardObject& one = AddCamera(Session, 400, 300);
    CardObject& other = AddCamera(Session, 300, 400);
    other.Fit = PictureFit::Whole;
    QImage part(30, 40, QImage::Format_RGB32);
    part.fill(Qt::red);
    AcceptPhoto(Session, part);
    EXPECT_EQ(Session.CameraImage.SizeInPixels(), QSize(30, 40));
    EXPECT_EQ(one.Picture, Session.CameraImage);
    EXPECT_EQ(other.Picture, Session.CameraImage);
    EXPECT_EQ(one.Fit, PictureFit::Filled);
    EXPECT_EQ(other.Fit, PictureFit::Whole);
}

TEST_F(TakePhoto, TellsHowFineThePartIsOnTheCard)
{
    EXPECT_EQ(DotsOnCard({300, 400}, {1440, 1920}), 300);
    EXPECT_EQ(DotsOnCard({300, 400}, {}), 0);
}

TEST_F(TakePhoto, AFolderIsNamedInTheSettings)
{
    EXPECT_EQ(NameCameraFolder(Session.ProgramFolder, QStringLiteral("/photos/f\u00fcr alle")),
              QString());
    EXPECT_EQ(StationOption(Session.ProgramFolder, QStringLiteral("Camera")),
              QStringLiteral("folder:/photos/f\u00fcr alle"));
}

TEST_F(TakePhoto, AFolderThatTheSettingsCannotHoldIsRefusedWithAReason)
{
    for (const QString& folder :
         {QString(300, u'x').prepend(u'/'), QStringLiteral("/\u0142\u00f3d\u017a")}) {
        EXPECT_FALSE(NameCameraFolder(Session.ProgramFolder, folder).isEmpty());
        EXPECT_EQ(StationOption(Session.ProgramFolder, QStringLiteral("Camera")), QString());
    }
}

TEST_F(TakePhoto, AFolderWithoutAPictureSaysSo)
{
    FolderCamera camera(Session.ProgramFolder + QStringLiteral("/none"));
    QString told;
    QObject::connect(&camera, &Cam::PictureMissing, [&](const QString& reason) { told = reason; });
    int flash = 0;
    int mode = 0;
    int third = 0;
    camera.Expose(flash, mode, third);
    EXPECT_TRUE(EventsUntil([&] { return !told.isEmpty(); }));
    EXPECT_TRUE(told.contains(QStringLiteral("/none\""))) << told.toStdString();
}

} // namespace
} // namespace vantrel::test
