#include "desktop/window/frmStatus.h"
#include "desktop/controls/DesktopControls.h"
#include "station/session/MainRuntime.h"
#include "station/session/Session.h"
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

namespace vantrel {

namespace {
constexpr int Interval = 50;
constexpr int FirstWidth = 360;
} // namespace

frmStatus::frmStatus(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session), m_out(MakeControl<QLabel>("lblOut", this))
{
    setObjectName(QStringLiteral("frmStatus"));
    setWindowTitle(QStringLiteral("Layout Status"));
    m_out->setTextFormat(Qt::PlainText);
    m_out->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_out->setWordWrap(true);
    m_out->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_out);
    OnTick();
    resize(FirstWidth, sizeHint().height());

    auto* timer = MakeControl<QTimer>("tmrStatus", this);
    connect(timer, &QTimer::timeout, this, &frmStatus::OnTick);
    timer->start(Interval);
}

void frmStatus::OnTick()
{
    m_out->setText(LayoutStatusText(m_session.CurrentParams));
}

} // namespace vantrel
