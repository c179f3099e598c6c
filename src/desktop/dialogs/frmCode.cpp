#include "desktop/dialogs/frmCode.h"
#include "desktop/controls/DesktopControls.h"
#include "station/commands/FigureCommands.h"
#include "station/session/Session.h"
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace vantrel {

namespace {
constexpr QSize PreviewRoom(320, 220);
constexpr int PreviewMargin = 8;
} // namespace

frmCode::frmCode(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session), m_label(SelectedLabel(session.Document)),
      m_kinds(MakeControl<QListWidget>("lstKinds", this)),
      m_preview(MakeControl<QLabel>("imgPreview", this)),
      m_save(MakeControl<QPushButton>("cmdSave", QStringLiteral("&Save"), this))
{
    setObjectName(QStringLiteral("frmCode"));
    setWindowTitle(QStringLiteral("Bar Code"));
    setModal(true);
    m_kinds->setAccessibleName(QStringLiteral("Kind"));
    m_kinds->addItems(FigureChoices());
    m_kinds->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const int frame = 2 * m_kinds->frameWidth();
    m_kinds->setMinimumHeight(m_kinds->count() * m_kinds->sizeHintForRow(0) + frame);
    m_kinds->setMinimumWidth(m_kinds->sizeHintForColumn(0) + 2 * frame +
                             fontMetrics().averageCharWidth());
    m_preview->setAccessibleName(QStringLiteral("Preview"));
    m_preview->setAlignment(Qt::AlignCenter);
    m_preview->setMinimumSize(PreviewRoom + QSize(2 * PreviewMargin, 2 * PreviewMargin));
    connect(m_kinds, &QListWidget::currentRowChanged, this, &frmCode::ShowPreview);
    connect(m_kinds, &QListWidget::itemDoubleClicked, this, &frmCode::Save);

    m_save->setDefault(true);
    connect(m_save, &QPushButton::clicked, this, &frmCode::Save);
    auto* cancel = MakeControl<QPushButton>("cmdCancel", QStringLiteral("&Cancel"), this);
    connect(cancel, &QPushButton::clicked, this, &QDialog::close);

    auto* choice = new QHBoxLayout;
    choice->addWidget(m_kinds);
    choice->addWidget(m_preview, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_save);
    buttons->addWidget(cancel);
    auto* column = new QVBoxLayout(this);
    column->addLayout(choice);
    column->addLayout(buttons);

    m_save->setEnabled(m_label != nullptr);
    m_kinds->setCurrentRow(
        m_label == nullptr ? 0
                           : static_cast<int>(FigureChoices().indexOf(FigureChoiceOf(*m_label))));
}

void frmCode::ShowPreview()
{
    // A record may have replaced the object.
    const CardObject* label = SelectedLabel(m_session.Document);
    if (label == nullptr || label != m_label || m_kinds->currentItem() == nullptr) {
        m_preview->setText(QStringLiteral("Select a text on the card first."));
        return;
    }
    const double scale = devicePixelRatioF();
    QImage picture = FigurePreview(*label, m_kinds->currentItem()->text(), PreviewRoom * scale);
    picture.setDevicePixelRatio(scale);
    m_preview->setPixmap(QPixmap::fromImage(picture));
}

void frmCode::Save()
{
    if (m_kinds->currentItem() != nullptr)
        ChooseFigure(m_session, m_label, m_kinds->currentItem()->text());
    close();
}

} // namespace vantrel
