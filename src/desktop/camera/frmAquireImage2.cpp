#include "desktop/camera/frmAquireImage2.h"
#include "base/Skip.h"
#include "desktop/camera/DesktopCamera.h"
#include "desktop/camera/DesktopViewportImage.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopFileDialog.h"
#include "desktop/controls/RunTimeError.h"
#include "desktop/controls/ScreenUnits.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include <QFileInfo>
#include <QFrame>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QWindow>

namespace vantrel {

namespace {

constexpr double PlaceTwips = 250;
constexpr int ExposureMode = 8;
constexpr QSize PictureSize{480, 360};
constexpr QSize LeastPanel{180, 220};

QSize TwipsOf(QSize pixels)
{
    return {ScreenTwips(pixels.width()), ScreenTwips(pixels.height())};
}

} // namespace

frmAquireImage2::frmAquireImage2(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session), m_capture(session, {}, CaptureSettings()),
      m_camera(MakeCamera(session).release()),
      m_original(MakeControl<DesktopViewportImage>("imgOriginal", this)),
      m_horizontal(MakeControl<QScrollBar>("HS", Qt::Horizontal, this)),
      m_vertical(MakeControl<QScrollBar>("VS", Qt::Vertical, this)),
      m_panel(MakeControl<QFrame>("pnlViewport", this)),
      m_viewport(MakeControl<QLabel>("imgViewport", m_panel))
{
    setObjectName(QStringLiteral("frmAquireImage2"));
    setWindowTitle(QStringLiteral("Image Capture"));
    auto* row = new QHBoxLayout(this);
    row->addLayout(MakePicture());
    row->addLayout(MakeSide());
    row->setSizeConstraint(QLayout::SetFixedSize);
    move(ScreenPixels(PlaceTwips), ScreenPixels(PlaceTwips));
    Connect();
    Expose(m_capture.FlashModeAtOpening());
}

QLayout* frmAquireImage2::MakePicture()
{
    m_original->setFixedSize(PictureSize);
    m_original->setAccessibleName(QStringLiteral("Picture"));
    m_horizontal->setAccessibleName(QStringLiteral("Horizontal position"));
    m_vertical->setAccessibleName(QStringLiteral("Vertical position"));
    for (QScrollBar* bar : {m_horizontal, m_vertical}) {
        bar->setMaximum(0);
        bar->setFocusPolicy(Qt::StrongFocus);
    }
    auto* grid = new QGridLayout;
    grid->setSpacing(0);
    grid->addWidget(m_original, 0, 0);
    grid->addWidget(m_vertical, 0, 1);
    grid->addWidget(m_horizontal, 1, 0);
    auto* absence = MakeControl<QLabel>("lblNoCamera", this);
    absence->setTextFormat(Qt::PlainText);
    absence->setText(m_camera->Absence());
    absence->setWordWrap(true);
    absence->setFixedWidth(PictureSize.width());
    absence->setVisible(!absence->text().isEmpty());
    grid->addWidget(absence, 2, 0);
    grid->setRowStretch(3, 1);
    return grid;
}

QLayout* frmAquireImage2::MakeSide()
{
    const QSize viewport(ScreenPixels(m_capture.ViewportTwips().width()),
                         ScreenPixels(m_capture.ViewportTwips().height()));
    m_panel->setFrameStyle(static_cast<int>(QFrame::StyledPanel) |
                           static_cast<int>(QFrame::Sunken));
    m_panel->setFixedSize(LeastPanel.expandedTo(viewport + QSize(16, 16)));
    m_viewport->setFixedSize(viewport);
    m_viewport->move((m_panel->width() - viewport.width()) / 2,
                     (m_panel->height() - viewport.height()) / 2);
    const auto button = [this](const char* name, const QString& caption, auto press) {
        auto* made = MakeControl<QPushButton>(name, caption, this);
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, press);
        return made;
    };
    auto* zoom = new QHBoxLayout;
    auto* out = button("cmdZMinus", QStringLiteral("\u2212"), [this] {
        m_capture.ZoomOut();
        ApplyZoom();
    });
    out->setAccessibleName(QStringLiteral("Zoom out"));
    auto* in = button("cmdZPlus", QStringLiteral("+"), [this] {
        m_capture.ZoomIn();
        ApplyZoom();
    });
    in->setAccessibleName(QStringLiteral("Zoom in"));
    zoom->addWidget(out);
    zoom->addWidget(in);
    auto* column = new QVBoxLayout;
    column->addWidget(m_panel, 0, Qt::AlignHCenter);
    column->addLayout(zoom);
    column->addStretch();
    column->addWidget(
        button("cmdTakePicture", QStringLiteral("Take Picture"), [this] { TakePicture(); }));
    column->addWidget(button("cmImport", QStringLiteral("Import"), [this] { Import(); }));
    column->addWidget(button("cmdSave", QStringLiteral("Save Zoom"), [this] {
        m_capture.SaveZoom({m_horizontal->value(), m_vertical->value()});
    }));
    column->addWidget(button("cmdClose", QStringLiteral("Close"), [this] { close(); }));
    return column;
}

void frmAquireImage2::Connect()
{
    // The camera is deleted with the dialog, and a picture that it delivers later is dropped.
    m_camera->setParent(this);
    connect(m_camera, &Cam::PictureAvailable, this, [this](const Picture& picture) {
        m_capture.TakeRawPicture(picture);
        m_original->SetPicture(picture.Image());
        ApplyZoom();
    });
    for (QScrollBar* bar : {m_horizontal, m_vertical})
        connect(bar, &QScrollBar::valueChanged, this, &frmAquireImage2::Scroll);
    connect(m_original, &DesktopViewportImage::Moved, this, &frmAquireImage2::Aim);
    connect(m_original, &DesktopViewportImage::Pressed, this, &frmAquireImage2::Press);
}

void frmAquireImage2::Expose(int flashMode)
{
    int mode = ExposureMode;
    int third = 0;
    m_camera->Expose(flashMode, mode, third);
}

void frmAquireImage2::TakePicture()
{
    const QPointer<frmAquireImage2> self(this);
    m_session.Operator.LetEventsRun();
    if (self.isNull())
        return;
    Expose(m_capture.ReadFlashMode());
    m_capture.ResetZoom();
    ApplyZoom();
}

void frmAquireImage2::Import()
{
    auto& dialog = DesktopFileDialog::Of(*parentWidget());
    dialog.FileName.clear();
    const QPointer<frmAquireImage2> self(this);
    dialog.ShowOpen();
    if (self.isNull() || !QFileInfo(dialog.FileName).isFile())
        return;
    // The picture is shown unzoomed: the stored zoom applies from the next zoom step on.
    Skip("import picture", [&] {
        const Picture picture = LoadPicture(dialog.FileName);
        m_original->SetPicture(picture.Image());
        m_capture.TakeRawPicture(picture);
    });
}

void frmAquireImage2::ApplyZoom()
{
    RunOrEnd([this] {
        m_original->SetPicture(m_capture.Shown(TwipsOf(m_original->size())));
        m_vertical->setMaximum(m_capture.VerticalMaximum());
        m_horizontal->setMaximum(m_capture.HorizontalMaximum());
        Scroll();
    });
}

void frmAquireImage2::Scroll()
{
    m_original->SetOffset({-m_horizontal->value(), -m_vertical->value()});
}

QImage frmAquireImage2::CopyScreen(const QRect& rectangle) const
{
    if (QGuiApplication::platformName() == QStringLiteral("xcb")) {
        const QPoint corner = screen()->virtualGeometry().topLeft();
        return screen()
            ->grabWindow(0, rectangle.x() - corner.x(), rectangle.y() - corner.y(),
                         rectangle.width(), rectangle.height())
            .toImage();
    }
    QImage cut(rectangle.size(), QImage::Format_RGB32);
    cut.fill(Qt::black);
    if (!cut.isNull())
        m_original->render(&cut, -m_original->mapFromGlobal(rectangle.topLeft()));
    return cut;
}

void frmAquireImage2::Aim(QPoint global, QPointF local)
{
    if (!m_capture.Preview()) {
        m_cutOut = CopyScreen(m_capture.AimAt(global, screen()->virtualGeometry()));
        m_viewport->setPixmap(QPixmap::fromImage(m_cutOut));
    }
    Skip("source rectangle", [&] {
        const QSize shown = TwipsOf(m_original->ShownPicture().size());
        m_source = m_capture.SourceAt(
            {local.x() * ScreenTwips(1), local.y() * ScreenTwips(1)}, TwipsOf(m_original->size()),
            {qRound(HundredthsOfTwips(shown.width())), qRound(HundredthsOfTwips(shown.height()))});
    });
}

void frmAquireImage2::Press(Qt::MouseButton button)
{
    if (button != Qt::LeftButton)
        return;
    m_capture.Accept(m_cutOut);
    close();
}

void frmAquireImage2::mousePressEvent(QMouseEvent* event)
{
    QDialog::mousePressEvent(event);
    // The dialog can be dragged by any part of its body, as by its title bar.
    if (QWindow* frame = windowHandle())
        frame->startSystemMove();
}

} // namespace vantrel
