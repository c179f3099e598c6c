#include "desktop/camera/frmTakePhoto.h"
#include "base/Skip.h"
#include "desktop/camera/DesktopCamera.h"
#include "desktop/camera/DesktopPhotoView.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopFileDialog.h"
#include "desktop/controls/DesktopPictureDialog.h"
#include "desktop/controls/RunTimeError.h"
#include "station/imaging/ImageCapture.h"
#include "station/imaging/TakePhoto.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <cmath>

namespace vantrel {

namespace {

constexpr int ExposureMode = 8;
constexpr QSize FirstSize{800, 560};
constexpr QSize PartRoom{200, 240};
constexpr double SizeStep = 1.1;
/// Dots to the inch under which a photo looks coarse on a card.
constexpr int FineDots = 150;

QString DotsText(int dots)
{
    if (dots == 0)
        return QStringLiteral("The card has no camera image yet.");
    const QString text = QStringLiteral("%1 dots to the inch on the card").arg(dots);
    return dots < FineDots ? text + QStringLiteral(": coarse") : text;
}

} // namespace

frmTakePhoto::frmTakePhoto(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session), m_box(CameraBoxOf(session.Document)),
      m_picture(MakeControl<DesktopPhotoView>("imgOriginal", this)),
      m_problem(MakeControl<QLabel>("lblNoCamera", this)),
      m_part(MakeControl<QLabel>("imgViewport", this)), m_dots(MakeControl<QLabel>("lblDots", this))
{
    setObjectName(QStringLiteral("frmTakePhoto"));
    setWindowTitle(QStringLiteral("Take Picture"));
    auto* row = new QHBoxLayout(this);
    row->addLayout(MakePicture(), 1);
    row->addLayout(MakeSide());
    connect(m_picture, &DesktopPhotoView::FrameChanged, this, &frmTakePhoto::ShowPart);
    connect(m_picture, &DesktopPhotoView::Taken, this, &frmTakePhoto::UsePart);
    if (session.RawPicture.HasHandle())
        ShowPicture(session.RawPicture);
    ShowPart();
    StartCamera();
    m_picture->setFocus();
    resize(FirstSize);
}

frmTakePhoto::~frmTakePhoto() = default;

QLayout* frmTakePhoto::MakePicture()
{
    m_picture->setAccessibleName(QStringLiteral("Picture"));
    auto* hint = MakeControl<QLabel>("lblHint",
                                     QStringLiteral("Drag the frame or its corners. Arrow keys "
                                                    "move it, + and \u2212 size it, Enter takes "
                                                    "the part."),
                                     this);
    hint->setWordWrap(true);
    m_problem->setTextFormat(Qt::PlainText);
    m_problem->setWordWrap(true);
    m_problem->hide();
    auto* column = new QVBoxLayout;
    column->addWidget(m_picture, 1);
    column->addWidget(hint);
    column->addWidget(m_problem);
    return column;
}

QPushButton* frmTakePhoto::MakeButton(const char* name, const QString& caption,
                                      void (frmTakePhoto::*press)())
{
    auto* made = MakeControl<QPushButton>(name, caption, this);
    made->setAutoDefault(false);
    connect(made, &QPushButton::clicked, this, press);
    return made;
}

QLayout* frmTakePhoto::MakeSide()
{
    m_part->setFixedSize(PartRoom);
    m_part->setAlignment(Qt::AlignCenter);
    m_part->setAccessibleName(QStringLiteral("Part that is taken"));
    m_dots->setWordWrap(true);
    m_dots->setFixedWidth(PartRoom.width());
    m_dots->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    // Room for two lines, so that the buttons stay where they are.
    m_dots->setMinimumHeight(2 * fontMetrics().lineSpacing());
    auto* out = MakeButton("cmdZMinus", QStringLiteral("\u2212"), &frmTakePhoto::Enlarge);
    out->setAccessibleName(QStringLiteral("Larger frame"));
    out->setToolTip(QStringLiteral("Larger frame: more of the picture"));
    auto* in = MakeButton("cmdZPlus", QStringLiteral("+"), &frmTakePhoto::Reduce);
    in->setAccessibleName(QStringLiteral("Smaller frame"));
    in->setToolTip(QStringLiteral("Smaller frame: nearer"));
    m_use = MakeButton("cmdUse", QStringLiteral("&Use This Part"), &frmTakePhoto::UsePart);
    m_use->setDefault(true);
    auto* zoom = new QHBoxLayout;
    zoom->addWidget(out);
    zoom->addWidget(in);
    auto* column = new QVBoxLayout;
    column->addWidget(m_part, 0, Qt::AlignHCenter);
    column->addWidget(m_dots);
    column->addLayout(zoom);
    column->addWidget(m_use);
    column->addStretch();
    column->addWidget(
        MakeButton("cmdTakePicture", QStringLiteral("&Take Picture"), &frmTakePhoto::TakePicture));
    column->addWidget(
        MakeButton("cmImport", QStringLiteral("From a &File ..."), &frmTakePhoto::Import));
    column->addWidget(
        MakeButton("cmdFolder", QStringLiteral("From a F&older ..."), &frmTakePhoto::ChooseFolder));
    auto* leave = MakeControl<QPushButton>("cmdClose", QStringLiteral("&Close"), this);
    leave->setAutoDefault(false);
    connect(leave, &QPushButton::clicked, this, &QDialog::close);
    column->addWidget(leave);
    return column;
}

void frmTakePhoto::StartCamera()
{
    m_camera = MakeCamera(m_session);
    connect(m_camera.get(), &Cam::PictureAvailable, this, &frmTakePhoto::ShowPicture);
    connect(m_camera.get(), &Cam::PictureMissing, this, &frmTakePhoto::TellProblem);
    const QString absence = m_camera->Absence();
    TellProblem(absence.isEmpty() ? QString()
                                  : absence + QStringLiteral(" \"From a Folder ...\" does that."));
    int flashMode = ImageCapture(m_session, {}, CaptureSettings()).ReadFlashMode();
    int mode = ExposureMode;
    int third = 0;
    m_camera->Expose(flashMode, mode, third);
}

void frmTakePhoto::TakePicture()
{
    const QPointer<frmTakePhoto> self(this);
    m_session.Operator.LetEventsRun();
    if (self.isNull())
        return;
    // A camera that was plugged in since then is found.
    StartCamera();
}

void frmTakePhoto::Import()
{
    const QPointer<frmTakePhoto> self(this);
    const QString path = DesktopPictureDialog::Ask(*this, m_session.ProgramFolder);
    if (self.isNull() || path.isEmpty())
        return;
    const bool isPicture = Skip("import picture", [&] { ShowPicture(LoadPicture(path)); });
    if (!isPicture)
        TellProblem(QStringLiteral("The file \"%1\" is no picture, or not a whole one.")
                        .arg(ShownLine(path)));
}

void frmTakePhoto::ChooseFolder()
{
    const QPointer<frmTakePhoto> self(this);
    const QString folder = DesktopFileDialog::AskFolder(
        *this, QStringLiteral("Folder with Pictures"), PictureFolder());
    if (self.isNull() || folder.isEmpty())
        return;
    const QString problem = NameCameraFolder(m_session.ProgramFolder, folder);
    if (problem.isEmpty())
        StartCamera();
    else
        TellProblem(problem);
}

void frmTakePhoto::Enlarge()
{
    m_picture->ScaleFrame(SizeStep);
}

void frmTakePhoto::Reduce()
{
    m_picture->ScaleFrame(1 / SizeStep);
}

void frmTakePhoto::ShowPicture(const Picture& picture)
{
    TellProblem(QString());
    m_session.RawPicture = picture;
    // The page may have been changed while the camera was waited for.
    m_box = CameraBoxOf(m_session.Document);
    m_picture->SetPicture(picture.Image(), m_box);
}

void frmTakePhoto::ShowPart()
{
    const PhotoFrame& frame = m_picture->Frame();
    m_use->setEnabled(!frame.IsEmpty());
    if (frame.IsEmpty()) {
        m_part->setPixmap({});
        m_part->setText(QStringLiteral("No picture yet"));
        m_dots->clear();
        return;
    }
    const QImage part = frame.PartOf(m_session.RawPicture.Image(), {});
    const double ratio = devicePixelRatioF();
    QPixmap shown = QPixmap::fromImage(
        part.scaled(PartRoom * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    shown.setDevicePixelRatio(ratio);
    m_part->setPixmap(shown);
    m_dots->setText(DotsText(DotsOnCard(part.size(), m_box)));
}

void frmTakePhoto::UsePart()
{
    const PhotoFrame& frame = m_picture->Frame();
    if (frame.IsEmpty())
        return;
    const QImage part = frame.PartOf(m_session.RawPicture.Image(), m_box);
    Skip("take photo", [&] { AcceptPhoto(m_session, part); });
    close();
}

void frmTakePhoto::TellProblem(const QString& problem)
{
    m_problem->setText(problem);
    m_problem->setVisible(!problem.isEmpty());
    setAccessibleDescription(problem);
    if (problem.isEmpty())
        return;
    QAccessibleEvent alert(m_problem, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace vantrel
