#include "base/Profile.h"
#include "desktop/DesktopStation.h"
#include "desktop/camera/DesktopViewportImage.h"
#include "desktop/camera/frmAquireImage2.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/window/DesktopOperator.h"
#include "samples/DemoArt.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A station with a camera object on its card, and a folder where another device leaves faces.
class CameraStation : public DesktopStation
{
public:
    CameraStation()
    {
        WithLayout();
        Draw_CamView(OpenForm(Session),
                     {.cTop = 1500, .cLeft = 300, .cHeight = 1400, .cWidth = 1050}, 0, Picture(),
                     true, QString());
        SavePage(Session);
        Load();
        const QString folder = Session.PathInFolder(QStringLiteral("faces"));
        EXPECT_TRUE(QDir().mkpath(folder));
        EXPECT_TRUE(DrawPortrait().save(folder + QStringLiteral("/face.png")));
        EXPECT_TRUE(WriteProfileValue(SettingsPath(Session.ProgramFolder),
                                      QStringLiteral("Station"), QStringLiteral("Camera"),
                                      QStringLiteral("folder:") + folder));
    }
    void Open()
    {
        Choose("cmdTakePicture");
        Dialog = &Get<frmAquireImage2>("frmAquireImage2");
    }
    bool WaitForPicture()
    {
        return EventsUntil([&] { return !Original().ShownPicture().isNull(); });
    }
    template <typename Control>
    Control& On(const char* name)
    {
        return Named<Control>(*Dialog, name);
    }
    DesktopViewportImage& Original() { return On<DesktopViewportImage>("imgOriginal"); }
    void Click(const char* name)
    {
        On<QPushButton>(name).click();
        QCoreApplication::processEvents();
    }
    void Mouse(QEvent::Type type, QPoint at, Qt::MouseButton button = Qt::NoButton)
    {
        QMouseEvent event(type, at, Original().mapToGlobal(at), button, button, Qt::NoModifier);
        QApplication::sendEvent(&Original(), &event);
    }
    QSize ViewportImage() { return On<QLabel>("imgViewport").pixmap().size(); }

    QPointer<frmAquireImage2> Dialog;
};

TEST(CameraDialog, ShowsThePictureTheCameraDelivers)
{
    CameraStation station;
    station.Open();
    EXPECT_EQ(station.Dialog->windowTitle(), QStringLiteral("Image Capture"));
    EXPECT_TRUE(station.Original().ShownPicture().isNull());
    ASSERT_TRUE(station.WaitForPicture());
    EXPECT_EQ(station.Original().ShownPicture().size(), station.Original().size());
    EXPECT_EQ(station.On<QScrollBar>("HS").value(), 0);
    EXPECT_GT(station.On<QScrollBar>("VS").maximum(), 0);
}

TEST(CameraDialog, ZoomsInStepsAndNotBelowTheWhole)
{
    CameraStation station;
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    const int whole = station.Original().ShownPicture().width();
    station.Click("cmdZPlus");
    EXPECT_EQ(station.Original().ShownPicture().width(), qRound(whole * 1.1));
    station.Click("cmdZMinus");
    station.Click("cmdZMinus");
    EXPECT_EQ(station.Original().ShownPicture().width(), whole);
}

TEST(CameraDialog, ThePointerAimsAndTheLeftButtonTakes)
{
    CameraStation station;
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    station.Mouse(QEvent::MouseMove, {240, 180});
    EXPECT_EQ(station.ViewportImage(), QSize(140, 187));
    station.Mouse(QEvent::MouseButtonPress, {240, 180}, Qt::RightButton);
    EXPECT_FALSE(station.Dialog.isNull());
    station.Mouse(QEvent::MouseButtonPress, {240, 180}, Qt::LeftButton);
    EXPECT_TRUE(EventsUntil([&] { return station.Dialog.isNull(); }));
    const CardObject& camera = *station.Session.Document.Find(Family::img_CAM, 1);
    EXPECT_EQ(camera.Picture.Image().size(), QSize(140, 187));
    EXPECT_EQ(station.Session.CameraImage, camera.Picture);
}

TEST(CameraDialog, WhatIsTakenIsWhatStoodUnderThePointer)
{
    CameraStation station;
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    const QImage shown = station.Original().grab().toImage().convertToFormat(QImage::Format_RGB32);
    station.Mouse(QEvent::MouseMove, {240, 180});
    station.Mouse(QEvent::MouseButtonPress, {240, 180}, Qt::LeftButton);
    // 70 pixels left of the pointer, and 94 above: half of 187 rounds to the even.
    EXPECT_EQ(station.Session.CameraImage.Image().convertToFormat(QImage::Format_RGB32),
              shown.copy(240 - 70, 180 - 94, 140, 187));
}

TEST(CameraDialog, TheArrowKeysAimAndTheBlankBarTakes)
{
    CameraStation station;
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    const QImage shown = station.Original().grab().toImage().convertToFormat(QImage::Format_RGB32);
    station.Original().setFocus();
    // From the middle, at 239 and 179.
    QTest::keyClick(&station.Original(), Qt::Key_Right);
    QTest::keyClick(&station.Original(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(station.ViewportImage(), QSize(140, 187));
    QTest::keyClick(&station.Original(), Qt::Key_Space);
    EXPECT_EQ(station.Session.CameraImage.Image().convertToFormat(QImage::Format_RGB32),
              shown.copy(247 - 70, 180 - 94, 140, 187));
    EXPECT_TRUE(EventsUntil([&] { return station.Dialog.isNull(); }));
}

TEST(CameraDialog, EnterTakesTheMiddleWhereNothingHasAimed)
{
    CameraStation station;
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    QTest::keyClick(&station.Original(), Qt::Key_Return);
    EXPECT_EQ(station.Session.CameraImage.Image().size(), QSize(140, 187));
    EXPECT_TRUE(EventsUntil([&] { return station.Dialog.isNull(); }));
}

TEST(CameraDialog, TheArrowKeysScrollAZoomedPicture)
{
    CameraStation station;
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    auto& bar = station.On<QScrollBar>("VS");
    bar.setFocus();
    QTest::keyClick(&bar, Qt::Key_Down);
    EXPECT_GT(bar.value(), 0);
}

TEST(CameraDialog, WithPreviewTheViewportStaysAndAPressTakesWhatItHolds)
{
    CameraStation station;
    CaptureSettings()->setValue(QStringLiteral("Preview"), QStringLiteral("True"));
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    station.Mouse(QEvent::MouseMove, {240, 180});
    EXPECT_TRUE(station.ViewportImage().isEmpty());
    station.Mouse(QEvent::MouseButtonPress, {240, 180}, Qt::LeftButton);
    EXPECT_FALSE(station.Session.CameraImage.HasHandle());
    CaptureSettings()->remove(QString());
}

TEST(CameraDialog, ANewOpeningHasTheSavedZoomAndItsScrollBarsAtZero)
{
    CameraStation station;
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    station.Click("cmdZPlus");
    station.On<QScrollBar>("VS").setValue(40);
    station.Click("cmdSave");
    station.Click("cmdClose");
    EXPECT_TRUE(EventsUntil([&] { return station.Dialog.isNull(); }));
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    EXPECT_EQ(station.Original().ShownPicture().width(), qRound(480 * 1.1));
    EXPECT_EQ(station.On<QScrollBar>("VS").value(), 0);
    CaptureSettings()->remove(QString());
}

TEST(CameraDialog, SaveZoomStoresWhereTheScrollBarsStand)
{
    CameraStation station;
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    station.On<QScrollBar>("HS").setValue(30);
    station.On<QScrollBar>("VS").setValue(40);
    station.Click("cmdSave");
    EXPECT_EQ(CaptureSettings()->value(QStringLiteral("ViewportH")).toString(),
              QStringLiteral("30"));
    EXPECT_EQ(CaptureSettings()->value(QStringLiteral("ViewportV")).toString(),
              QStringLiteral("40"));
    CaptureSettings()->remove(QString());
}

TEST(CameraDialog, TakePictureShowsTheWholePictureAgain)
{
    CameraStation station;
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    station.Click("cmdZPlus");
    station.Click("cmdTakePicture");
    EXPECT_EQ(station.Original().ShownPicture().width(), 480);
}

TEST(CameraDialog, ACameraThatNeverAnswersDoesNoHarm)
{
    CameraStation station;
    ASSERT_TRUE(WriteProfileValue(SettingsPath(station.Session.ProgramFolder),
                                  QStringLiteral("Station"), QStringLiteral("Camera"),
                                  QStringLiteral("No such device")));
    station.Open();
    for (const char* button : {"cmdZPlus", "cmdZMinus", "cmdTakePicture", "cmdSave"})
        station.Click(button);
    station.Mouse(QEvent::MouseMove, {240, 180});
    station.Mouse(QEvent::MouseButtonPress, {240, 180}, Qt::LeftButton);
    EXPECT_TRUE(EventsUntil([&] { return station.Dialog.isNull(); }));
    CaptureSettings()->remove(QString());
}

TEST(CameraDialog, SaysThatThereIsNoCameraAndHowToNameAFolder)
{
    CameraStation station;
    const auto lineFor = [&](const QString& camera) {
        EXPECT_TRUE(WriteProfileValue(SettingsPath(station.Session.ProgramFolder),
                                      QStringLiteral("Station"), QStringLiteral("Camera"), camera));
        station.Open();
        const auto& line = station.On<QLabel>("lblNoCamera");
        EXPECT_EQ(line.textFormat(), Qt::PlainText);
        QString shown = line.isVisible() ? line.text() : QString();
        station.Click("cmdClose");
        EXPECT_TRUE(EventsUntil([&] { return station.Dialog.isNull(); }));
        return shown;
    };
    const QString named = lineFor(QStringLiteral("<b>No such device</b>"));
    EXPECT_TRUE(named.startsWith(QStringLiteral("There is no camera \"<b>No such device</b>\".")))
        << named.toStdString();
    for (const char* part : {"Camera=folder:", "[Station]", "Vantrel 6.ini"})
        EXPECT_TRUE(named.contains(QLatin1StringView(part))) << part;
    const QString any = lineFor(QStringLiteral("default"));
    // The machine that runs this test may have a camera.
    EXPECT_TRUE(any.isEmpty() || any.startsWith(QStringLiteral("There is no camera.")))
        << any.toStdString();
    EXPECT_EQ(
        lineFor(QStringLiteral("folder:") + station.Session.PathInFolder(QStringLiteral("faces"))),
        QString());
}

TEST(CameraDialog, APressBeforeAnyPictureTakesWhatTheScreenShows)
{
    CameraStation station;
    station.Open();
    EXPECT_TRUE(station.Original().ShownPicture().isNull());
    const QImage shown = station.Original().grab().toImage().convertToFormat(QImage::Format_RGB32);
    station.Mouse(QEvent::MouseMove, {240, 180});
    station.Mouse(QEvent::MouseButtonPress, {240, 180}, Qt::LeftButton);
    EXPECT_FALSE(station.Session.RawPicture.HasHandle());
    EXPECT_EQ(station.Session.CameraImage.Image().convertToFormat(QImage::Format_RGB32),
              shown.copy(240 - 70, 180 - 94, 140, 187));
}

TEST(CameraDialog, APictureThatComesAfterItsCloseDoesNoHarm)
{
    CameraStation station;
    station.Open();
    delete station.Dialog.data();
    QCoreApplication::processEvents();
    EXPECT_FALSE(station.Session.RawPicture.HasHandle());
}

TEST(CameraDialog, ASecondPictureTakesThePlaceOfTheFirst)
{
    CameraStation station;
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    auto* camera = station.Dialog->findChild<Cam*>();
    ASSERT_NE(camera, nullptr);
    QImage second(40, 30, QImage::Format_RGB32);
    second.fill(Qt::red);
    Q_EMIT camera->PictureAvailable(Picture::FromImage(second));
    EXPECT_EQ(station.Session.RawPicture.Image().width(), 40);
    EXPECT_EQ(station.Original().ShownPicture().size(), station.Original().size());
    EXPECT_EQ(station.Original().ShownPicture().pixelColor(5, 5), QColor(Qt::red));
}

TEST(CameraDialog, TheObjectsMenuOpensItToo)
{
    CameraStation station;
    station.Session.Document.SelectedObject = station.Session.Document.Find(Family::img_CAM, 1);
    EXPECT_TRUE(
        EventsUntil([&] { return station.Get<QMenu>("mnuProperties").menuAction()->isEnabled(); }));
    station.Session.Face.SetEntryVisible(ObjectEntry::mnuImage, true);
    station.Choose("cmdTakePicture2");
    EXPECT_TRUE(station.Get<frmAquireImage2>("frmAquireImage2").isVisible());
}

TEST(CameraDialog, ARecordMayOpenItAndTheEarlierPictureStays)
{
    CameraStation station;
    DesktopOperator asked;
    QPointer<frmAquireImage2> opened;
    asked.OpenCameraDialog();
    asked.SetCameraDialog(
        [&] { opened = &OpenDialog<frmAquireImage2>(station.Session, &station.Window); });
    asked.OpenCameraDialog();
    ASSERT_FALSE(opened.isNull());
    EXPECT_TRUE(opened->isVisible());
    EXPECT_FALSE(station.Session.CameraImage.HasHandle());
}

} // namespace
} // namespace vantrel::test
