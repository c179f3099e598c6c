#include "base/Profile.h"
#include "desktop/DesktopStation.h"
#include "desktop/camera/DesktopPhotoView.h"
#include "desktop/camera/frmTakePhoto.h"
#include "desktop/controls/DesktopControls.h"
#include "samples/DemoArt.h"
#include "station/imaging/ImageCapture.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

StationOptions WithDesignTools()
{
    StationOptions options;
    options.DesignTools = true;
    return options;
}

/// A station with design tools, a camera object that is three wide and four high, and a folder with
/// a picture of 640 x 480 pixels, whose colour tells each place.
class PhotoStation : public DesktopStation
{
public:
    PhotoStation() : DesktopStation(true, WithDesignTools())
    {
        WithLayout();
        Draw_CamView(OpenForm(Session),
                     {.cTop = 1500, .cLeft = 300, .cHeight = 1400, .cWidth = 1050}, 0, Picture(),
                     true, QString());
        SavePage(Session);
        Load();
        Faces = Session.PathInFolder(QStringLiteral("faces"));
        EXPECT_TRUE(QDir().mkpath(Faces));
        Scene = QImage(640, 480, QImage::Format_RGB32);
        for (int y = 0; y < 480; ++y) {
            for (int x = 0; x < 640; ++x)
                Scene.setPixel(x, y, qRgb(x * 255 / 639, y * 255 / 479, 128));
        }
        EXPECT_TRUE(Scene.save(Faces + QStringLiteral("/scene.png")));
        SetCamera(QStringLiteral("folder:") + Faces);
    }
    ~PhotoStation() { CaptureSettings()->remove(QString()); }

    void SetCamera(const QString& camera) const
    {
        EXPECT_TRUE(WriteProfileValue(SettingsPath(Session.ProgramFolder),
                                      QStringLiteral("Station"), QStringLiteral("Camera"), camera));
    }
    void Open()
    {
        Choose("cmdTakePicture");
        Dialog = &Get<frmTakePhoto>("frmTakePhoto");
    }
    bool WaitForPicture()
    {
        return EventsUntil([&] { return !View().Frame().IsEmpty(); });
    }
    template <typename Control>
    Control& On(const char* name)
    {
        return Named<Control>(*Dialog, name);
    }
    DesktopPhotoView& View() { return On<DesktopPhotoView>("imgOriginal"); }
    QRectF Frame() { return View().Frame().Frame(); }
    void Click(const char* name)
    {
        On<QPushButton>(name).click();
        QCoreApplication::processEvents();
    }
    /// Presses at one place of the picture, in its pixels, and releases at another.
    void Drag(QPointF from, QPointF to)
    {
        Mouse(QEvent::MouseButtonPress, from, Qt::LeftButton);
        Mouse(QEvent::MouseMove, (from + to) / 2, Qt::NoButton);
        Mouse(QEvent::MouseMove, to, Qt::NoButton);
        Mouse(QEvent::MouseButtonRelease, to, Qt::LeftButton);
    }
    void Mouse(QEvent::Type type, QPointF place, Qt::MouseButton button)
    {
        const QPointF at = View().OnView(place);
        QMouseEvent event(type, at, View().mapToGlobal(at), button, Qt::LeftButton, {});
        QApplication::sendEvent(&View(), &event);
    }
    CardObject& Camera() { return *Session.Document.Find(Family::img_CAM, 1); }
    bool IsClosed()
    {
        return EventsUntil([&] { return Dialog.isNull(); });
    }

    QString Faces;
    QImage Scene;
    QPointer<frmTakePhoto> Dialog;
};

/// Accepts the next file dialog with a path.
void AnswerFileDialog(const QString& path)
{
    auto* look = new QTimer(qApp);
    QObject::connect(look, &QTimer::timeout, look, [look, path] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr)
            return;
        look->deleteLater();
        DesktopStation::Named<QLineEdit>(*dialog, "fileNameEdit").setText(path);
        static_cast<QDialog&>(*dialog).accept();
    });
    look->start(10);
}

TEST(TakePhotoWindow, ShowsTheWholePictureWithAFrameOfTheBoxesProportions)
{
    PhotoStation station;
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    EXPECT_EQ(station.Frame(), QRectF(140, 0, 360, 480));
    EXPECT_TRUE(station.On<QLabel>("lblNoCamera").isHidden());
    EXPECT_EQ(station.On<QLabel>("lblDots").text(),
              QStringLiteral("494 dots to the inch on the card"));
    EXPECT_FALSE(station.On<QLabel>("imgViewport").pixmap().isNull());
}

TEST(TakePhotoWindow, EnterTakesThePartWithinTheFrame)
{
    PhotoStation station;
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    QTest::keyClick(&station.View(), Qt::Key_Return);
    EXPECT_TRUE(station.IsClosed());
    EXPECT_EQ(station.Session.CameraImage.Image().convertToFormat(QImage::Format_RGB32),
              station.Scene.copy(140, 0, 360, 480));
    EXPECT_EQ(station.Camera().Picture, station.Session.CameraImage);
    EXPECT_EQ(station.Camera().Fit, PictureFit::Filled);
}

TEST(TakePhotoWindow, TheMouseMovesTheFrameAndDrawsItsCorners)
{
    PhotoStation station;
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    station.Drag({320, 240}, {220, 240});
    EXPECT_NEAR(station.Frame().left(), 40, 2);
    EXPECT_EQ(station.Frame().height(), 480);
    station.Drag(station.Frame().bottomRight(), station.Frame().center());
    EXPECT_NEAR(station.Frame().width(), 180, 3);
    EXPECT_NEAR(station.Frame().height(), 240, 4);
    EXPECT_NEAR(station.Frame().left(), 40, 2);
    // A press beside the frame brings it there.
    station.Drag({500, 300}, {500, 300});
    EXPECT_NEAR(station.Frame().center().x(), 500, 2);
    EXPECT_NEAR(station.Frame().center().y(), 300, 2);
}

TEST(TakePhotoWindow, TheKeyboardMovesAndSizesTheFrame)
{
    PhotoStation station;
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    EXPECT_EQ(station.Dialog->focusWidget(), &station.View());
    QTest::keyClick(&station.View(), Qt::Key_Minus);
    EXPECT_NEAR(station.Frame().width(), 360 / 1.1, 0.01);
    const QRectF before = station.Frame();
    QTest::keyClick(&station.View(), Qt::Key_Right);
    QTest::keyClick(&station.View(), Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(&station.View(), Qt::Key_Down);
    EXPECT_GT(station.Frame().left(), before.left());
    EXPECT_GT(station.Frame().top(), before.top());
    QTest::keyClick(&station.View(), Qt::Key_Plus);
    EXPECT_NEAR(station.Frame().width(), 360, 0.01);
    QTest::keyClick(&station.View(), Qt::Key_Home);
    EXPECT_EQ(station.Frame(), QRectF(140, 0, 360, 480));
}

TEST(TakePhotoWindow, WheelAndButtonsSizeTheFrameToo)
{
    PhotoStation station;
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    station.Click("cmdZPlus");
    EXPECT_NEAR(station.Frame().width(), 360 / 1.1, 0.01);
    station.Click("cmdZMinus");
    EXPECT_NEAR(station.Frame().width(), 360, 0.01);
    QWheelEvent wheel({100, 100}, station.View().mapToGlobal(QPointF(100, 100)), {}, {0, -120},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&station.View(), &wheel);
    EXPECT_NEAR(station.Frame().width(), 360 / 1.1, 0.01);
}

TEST(TakePhotoWindow, ADoubleClickTakesThePart)
{
    PhotoStation station;
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    QTest::mouseDClick(&station.View(), Qt::LeftButton, {}, station.View().rect().center());
    EXPECT_TRUE(station.IsClosed());
    EXPECT_TRUE(station.Session.CameraImage.HasHandle());
}

TEST(TakePhotoWindow, CloseTakesNothing)
{
    PhotoStation station;
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    station.Click("cmdClose");
    EXPECT_TRUE(station.IsClosed());
    EXPECT_FALSE(station.Session.CameraImage.HasHandle());
}

TEST(TakePhotoWindow, TheFrameIsToldToScreenReaders)
{
    PhotoStation station;
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    QAccessibleInterface* view = QAccessible::queryAccessibleInterface(&station.View());
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->role(), QAccessible::Graphic);
    EXPECT_EQ(view->text(QAccessible::Name), QStringLiteral("Picture"));
    EXPECT_TRUE(view->text(QAccessible::Description)
                    .startsWith(QStringLiteral("The frame begins at 22 percent across")))
        << view->text(QAccessible::Description).toStdString();
}

TEST(TakePhotoWindow, ACameraThatIsMissingSaysSoAndNothingCanBeTaken)
{
    PhotoStation station;
    station.SetCamera(QStringLiteral("No such device"));
    station.Open();
    const auto& line = station.On<QLabel>("lblNoCamera");
    EXPECT_TRUE(line.isVisible());
    for (const char* part : {"There is no camera \"No such device\".",
                             "Camera=folder:", "[Station]", "Vantrel 6.ini", "From a Folder ..."})
        EXPECT_TRUE(line.text().contains(QLatin1StringView(part))) << part;
    // A screen reader reads the description of a window when it opens.
    EXPECT_EQ(station.Dialog->accessibleDescription(), line.text());
    EXPECT_FALSE(station.On<QPushButton>("cmdUse").isEnabled());
    QTest::keyClick(&station.View(), Qt::Key_Return);
    EXPECT_FALSE(station.Dialog.isNull());
    EXPECT_FALSE(station.Session.CameraImage.HasHandle());
}

TEST(TakePhotoWindow, AFolderIsChosenInPlaceOfTheCamera)
{
    PhotoStation station;
    station.SetCamera(QStringLiteral("No such device"));
    station.Open();
    AnswerFileDialog(station.Faces);
    station.Click("cmdFolder");
    ASSERT_TRUE(station.WaitForPicture());
    EXPECT_TRUE(station.On<QLabel>("lblNoCamera").isHidden());
    EXPECT_EQ(StationOption(station.Session.ProgramFolder, QStringLiteral("Camera")),
              QStringLiteral("folder:") + station.Faces);
}

TEST(TakePhotoWindow, AnEmptyFolderSaysThatItHasNoPicture)
{
    PhotoStation station;
    const QString empty = station.Session.PathInFolder(QStringLiteral("empty"));
    ASSERT_TRUE(QDir().mkpath(empty));
    station.SetCamera(QStringLiteral("folder:") + empty);
    station.Open();
    EXPECT_TRUE(EventsUntil([&] { return station.On<QLabel>("lblNoCamera").isVisible(); }));
    EXPECT_TRUE(station.On<QLabel>("lblNoCamera").text().contains(empty));
    ASSERT_TRUE(station.Scene.save(empty + QStringLiteral("/late.png")));
    station.Click("cmdTakePicture");
    EXPECT_TRUE(station.WaitForPicture());
}

TEST(TakePhotoWindow, APictureComesFromAFileToo)
{
    PhotoStation station;
    station.SetCamera(QStringLiteral("No such device"));
    station.Open();
    const QString file = station.Session.PathInFolder(QStringLiteral("portrait.png"));
    ASSERT_TRUE(DrawPortrait().save(file));
    AnswerFileDialog(file);
    station.Click("cmImport");
    EXPECT_FALSE(station.View().Frame().IsEmpty());
    EXPECT_TRUE(station.On<QLabel>("lblNoCamera").isHidden());
    station.Click("cmdUse");
    EXPECT_TRUE(station.IsClosed());
    const QSize taken = station.Session.CameraImage.SizeInPixels();
    EXPECT_NEAR(static_cast<double>(taken.width()) / taken.height(), 0.75, 0.01);
}

TEST(TakePhotoWindow, WithoutACameraImageOnTheCardThePartHasThePicturesProportions)
{
    PhotoStation station;
    station.Session.Document.Remove(station.Camera());
    station.Open();
    ASSERT_TRUE(station.WaitForPicture());
    EXPECT_EQ(station.Frame(), QRectF(0, 0, 640, 480));
}

} // namespace
} // namespace vantrel::test
