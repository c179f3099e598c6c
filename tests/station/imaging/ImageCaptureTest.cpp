#include "station/imaging/ImageCapture.h"
#include "base/Failure.h"
#include "station/imaging/CameraLibrary.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "station/layout/FieldApplication.h"
#include "support/Events.h"
#include "support/FailureOf.h"
#include "support/Layouts.h"
#include "support/Trace.h"
#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A picture of that size in pixels at 100 of them to the centimetre: one is 10 hundredths.
Picture PictureOf(int width, int height, QRgb color = 0xFF336699U)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.setDotsPerMeterX(10000);
    image.setDotsPerMeterY(10000);
    image.fill(color);
    return Picture::FromImage(image);
}

/// A station whose layout has a camera object of 1500 by 2000 twips, and the user's own settings.
class CaptureStation : public TestSession
{
public:
    CaptureStation()
    {
        WithDatabase();
        BeginLayout(Session, QStringLiteral("Badge"));
        AddCamera(1500, 2000);
    }
    CardObject& AddCamera(std::int32_t width, std::int32_t height)
    {
        return Draw_CamView(OpenForm(Session),
                            {.cTop = 300, .cLeft = 300, .cHeight = height, .cWidth = width}, 0,
                            Picture(), true, QString());
    }
    std::unique_ptr<QSettings> Store() const
    {
        return std::make_unique<QSettings>(Session.PathInFolder(QStringLiteral("user.ini")),
                                           QSettings::IniFormat);
    }
    void Keep(const char* key, const char* value) const
    {
        Store()->setValue(QLatin1StringView(key), QLatin1StringView(value));
    }
    ImageCapture Open(ScreenScale scale = {}) { return {Session, scale, Store()}; }
};

TEST(ImageCapture, TheViewportIsTwiceTheLargestCameraObject)
{
    CaptureStation station;
    EXPECT_EQ(station.Open().ViewportTwips(), QSize(3000, 4000));
    // 266.67 pixels.
    EXPECT_EQ(station.Open().ViewportPixels(), QSize(200, 267));
    station.AddCamera(1800, 100);
    EXPECT_EQ(station.Open().ViewportTwips(), QSize(3600, 4000));
}

TEST(ImageCapture, SwapsHorizontalAndVertical)
{
    CaptureStation station;
    EXPECT_EQ(station.Open({15, 12}).ViewportPixels(), QSize(250, 267));
}

TEST(ImageCapture, WithoutACameraObjectTheViewportHasNoSize)
{
    TestSession station;
    const ImageCapture capture(
        station.Session, {},
        std::make_unique<QSettings>(station.Session.PathInFolder(QStringLiteral("user.ini")),
                                    QSettings::IniFormat));
    EXPECT_EQ(capture.ViewportTwips(), QSize(0, 0));
    EXPECT_EQ(capture.ViewportPixels(), QSize(0, 0));
}

TEST(ImageCapture, AZoomedLengthBeyond16BitsIsPassedOver)
{
    CaptureStation station;
    station.AddCamera(20000, 2000);
    EXPECT_EQ(station.Open().ViewportTwips(), QSize(0, 4000));
}

TEST(ImageCapture, ReadsTheUsersSettings)
{
    CaptureStation station;
    EXPECT_EQ(station.Open().Level(), 1.0F);
    EXPECT_FALSE(station.Open().Preview());
    EXPECT_EQ(station.Open().FlashModeAtOpening(), 0);
    EXPECT_EQ(station.Open().ReadFlashMode(), 4);
    station.Keep("ZLevel", "1.5");
    station.Keep("Preview", "True");
    station.Keep("FlashMode", "2");
    ImageCapture capture = station.Open();
    EXPECT_EQ(capture.Level(), 1.5F);
    EXPECT_TRUE(capture.Preview());
    EXPECT_EQ(capture.FlashModeAtOpening(), 2);
    EXPECT_EQ(capture.ReadFlashMode(), 2);
    for (const char* key : {"ZLevel", "Preview", "FlashMode"})
        station.Keep(key, "broken");
    EXPECT_EQ(station.Open().Level(), 1.0F);
    EXPECT_EQ(station.Open().ReadFlashMode(), 4);
}

TEST(ImageCapture, AtLevelOneThePictureFillsTheControl)
{
    CaptureStation station;
    ImageCapture capture = station.Open();
    EXPECT_TRUE(capture.Shown({7200, 5400}).isNull());
    capture.TakeRawPicture(PictureOf(50, 500));
    EXPECT_EQ(capture.Shown({7200, 5400}).size(), QSize(480, 360));
    capture.ZoomIn();
    EXPECT_EQ(capture.Shown({7200, 5400}).size(), QSize(528, 396));
}

TEST(ImageCapture, AnExcessiveZoomLevelShowsNothing)
{
    CaptureStation station;
    // The last two fit no memory and no number of pixels.
    for (const char* level : {"40", "1000", "1e30"}) {
        station.Keep("ZLevel", level);
        ImageCapture capture = station.Open();
        capture.TakeRawPicture(PictureOf(50, 50));
        EXPECT_TRUE(capture.Shown({7200, 5400}).isNull()) << level;
        capture.ResetZoom();
        EXPECT_EQ(capture.Shown({7200, 5400}).size(), QSize(480, 360)) << level;
    }
}

TEST(ImageCapture, ALevelBelowOneIsRaisedWhenItIsApplied)
{
    CaptureStation station;
    station.Keep("ZLevel", "0.25");
    ImageCapture capture = station.Open();
    EXPECT_EQ(capture.Level(), 0.25F);
    capture.TakeRawPicture(PictureOf(50, 50));
    EXPECT_EQ(capture.Shown({7200, 5400}).size(), QSize(480, 360));
    EXPECT_EQ(capture.Level(), 1.0F);
}

TEST(ImageCapture, ZoomingOutStopsAtOne)
{
    CaptureStation station;
    ImageCapture capture = station.Open();
    capture.ZoomOut();
    EXPECT_EQ(capture.Level(), 1.0F);
    capture.ZoomIn();
    capture.ZoomIn();
    capture.ZoomOut();
    EXPECT_FLOAT_EQ(capture.Level(), 1.1F);
    capture.ResetZoom();
    EXPECT_EQ(capture.Level(), 1.0F);
}

TEST(ImageCapture, ZoomingKeepsTheQualityOfThePicture)
{
    CaptureStation station;
    ImageCapture capture = station.Open();
    QImage pattern(64, 48, QImage::Format_RGB32);
    for (int y = 0; y < 48; ++y) {
        for (int x = 0; x < 64; ++x)
            pattern.setPixel(x, y, qRgb(x * 4, y * 5, (x ^ y) * 3));
    }
    capture.TakeRawPicture(Picture::FromImage(pattern));
    const QImage first = capture.Shown({7200, 5400});
    for (int step = 0; step < 9; ++step) {
        capture.ZoomIn();
        capture.Shown({7200, 5400});
    }
    capture.ResetZoom();
    EXPECT_EQ(capture.Shown({7200, 5400}), first);
}

TEST(ImageCapture, TheScrollBarsTakeThePicturesSizeWithItsAxesSwapped)
{
    CaptureStation station;
    ImageCapture capture = station.Open();
    capture.TakeRawPicture(PictureOf(300, 100));
    EXPECT_EQ(capture.VerticalMaximum(), 1500);
    EXPECT_EQ(capture.HorizontalMaximum(), 500);
}

TEST(ImageCapture, AScrollBarBeyond16BitsFails)
{
    CaptureStation station;
    ImageCapture capture = station.Open();
    capture.TakeRawPicture(PictureOf(6554, 1));
    EXPECT_EQ(FailureOf([&] { capture.VerticalMaximum(); }), FailureNumber::Overflow);
    capture.TakeRawPicture(PictureOf(1, 6553));
    EXPECT_EQ(capture.HorizontalMaximum(), 32765);
}

TEST(ImageCapture, AimsAroundThePointerAndStaysOnTheDesktop)
{
    CaptureStation station;
    const ImageCapture capture = station.Open();
    const QRect desktop(0, 0, 1000, 800);
    // Half of 267 rounds to the even 134.
    EXPECT_EQ(capture.AimAt({500, 400}, desktop), QRect(400, 266, 200, 267));
    EXPECT_EQ(capture.AimAt({10, 10}, desktop), QRect(0, 0, 200, 267));
    EXPECT_EQ(capture.AimAt({999, 799}, desktop), QRect(800, 533, 200, 267));
    EXPECT_EQ(capture.AimAt({-900, 0}, QRect(-1000, 0, 1000, 800)), QRect(-1000, 0, 200, 267));
}

TEST(ImageCapture, ComputesASourceRectangleThatNothingUses)
{
    CaptureStation station;
    const ImageCapture capture = station.Open();
    // The control's 7200 twips over the picture's 3000 hundredths in pixels of 15: 36 to one.
    EXPECT_EQ(capture.SourceAt({150, 300}, {7200, 5400}, {3000, 1500}),
              QRect(360, 1080, 7200, 14418));
    EXPECT_EQ(FailureOf([&] {
                  capture.SourceAt({150, 300}, {7200, 5400}, {0, 0});
              }),
              FailureNumber::Overflow);
}

TEST(ImageCapture, TheTraceLogsThePointWhereItIsTurnedOn)
{
    CaptureStation station;
    const ImageCapture capture = station.Open();
    const auto aim = [&] { capture.SourceAt({150, 307}, {7200, 5400}, {3000, 1500}); };
    EXPECT_EQ(UntracedOf("vantrel.camera", aim), QStringList());
    EXPECT_EQ(TraceOf("vantrel.camera", aim),
              QStringList({QStringLiteral("pX = 10"), QStringLiteral("pY = 20")}));
}

TEST(ImageCapture, WhatIsAcceptedFillsTheCameraObjects)
{
    CaptureStation station;
    CardObject& image = AddImage(station.Session, QStringLiteral("photo.png"));
    const CardObject& camera = *station.Session.Document.Find(Family::img_CAM, 1);
    ImageCapture capture = station.Open();
    QImage cut(4, 3, QImage::Format_RGB32);
    cut.fill(Qt::red);
    capture.Accept(cut);
    EXPECT_EQ(camera.Picture.Image().size(), QSize(4, 3));
    EXPECT_EQ(station.Session.CameraImage.Image().size(), QSize(4, 3));
    EXPECT_FALSE(image.Picture.HasHandle());
}

TEST(ImageCapture, WithoutACameraObjectTheImageIsKeptForTheNextLayout)
{
    TestSession station;
    ImageCapture capture(
        station.Session, {},
        std::make_unique<QSettings>(station.Session.PathInFolder(QStringLiteral("user.ini")),
                                    QSettings::IniFormat));
    QImage cut(4, 3, QImage::Format_RGB32);
    cut.fill(Qt::red);
    capture.Accept(cut);
    station.WithDatabase();
    BeginLayout(station.Session, QStringLiteral("Badge"));
    const ObjectBox box{.cTop = 0, .cLeft = 0, .cHeight = 10, .cWidth = 10};
    const Picture none;
    const QString path;
    const CardObject& camera = Draw_CamView(OpenForm(station.Session), box, 0, none, true, path);
    ReapplyFieldValues(station.Session);
    EXPECT_EQ(camera.Picture.Image().size(), QSize(4, 3));
}

TEST(ImageCapture, SaveZoomKeepsLevelAndScrollPositions)
{
    CaptureStation station;
    {
        ImageCapture capture = station.Open();
        capture.ZoomIn();
        capture.ZoomIn();
        capture.SaveZoom({30, 40});
    }
    EXPECT_EQ(station.Store()->value(QStringLiteral("ViewportH")).toString(), QStringLiteral("30"));
    EXPECT_EQ(station.Store()->value(QStringLiteral("ViewportV")).toString(), QStringLiteral("40"));
    EXPECT_FLOAT_EQ(station.Open().Level(), 1.2F);
}

/// Asks a camera for a picture and waits for it. @return its size; none where it stays silent
QSize Exposed(Cam& camera, bool expected)
{
    QSize size;
    QObject::connect(&camera, &Cam::PictureAvailable, &camera,
                     [&](const Picture& picture) { size = picture.Image().size(); });
    int flash = 4;
    int mode = 8;
    int third = 0;
    camera.Expose(flash, mode, third);
    // It returns at once; the picture comes later.
    EXPECT_TRUE(size.isEmpty());
    if (expected)
        EventsUntil([&] { return !size.isEmpty(); });
    else
        QCoreApplication::processEvents();
    camera.disconnect();
    return size;
}

TEST(FolderCamera, DeliversTheNewestPicture)
{
    TestSession station;
    const QString older = station.WritePng(QStringLiteral("older.png"), 10, 10);
    const QString newer = station.WritePng(QStringLiteral("newer.png"), 20, 10);
    QFile file(older);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addDays(-1),
                                 QFileDevice::FileModificationTime));
    FolderCamera camera(station.Session.ProgramFolder);
    EXPECT_EQ(Exposed(camera, true), QSize(20, 10));
}

TEST(FolderCamera, PassesOverAFileThatIsNotYetAWholePicture)
{
    TestSession station;
    station.WritePng(QStringLiteral("whole.png"), 20, 10);
    QFile half(station.Session.PathInFolder(QStringLiteral("half.jpg")));
    ASSERT_TRUE(half.open(QIODevice::WriteOnly));
    half.write("\xFF\xD8\xFF");
    half.close();
    FolderCamera camera(station.Session.ProgramFolder);
    EXPECT_EQ(Exposed(camera, true), QSize(20, 10));
}

TEST(FolderCamera, AnEmptyOrMissingFolderDeliversNothing)
{
    TestSession station;
    FolderCamera missing(station.Session.PathInFolder(QStringLiteral("gone")));
    EXPECT_TRUE(Exposed(missing, false).isEmpty());
}

} // namespace
} // namespace vantrel::test
