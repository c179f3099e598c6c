#include "desktop/designer/DesktopWorkspace.h"
#include "desktop/controls/ScreenUnits.h"
#include "desktop/designer/DesktopRuler.h"
#include "desktop/designer/frmDocument.h"
#include "station/session/Session.h"
#include <QEvent>
#include <QLabel>

namespace vantrel {

namespace {
constexpr double UnitSize = 0.7;
} // namespace

DesktopWorkspace::DesktopWorkspace(QWidget* parent) : QMdiArea(parent) {}

void DesktopWorkspace::AddRulers(Session& session, frmDocument& form)
{
    m_session = &session;
    m_form = &form;
    m_across = new DesktopRuler(Qt::Horizontal, this);
    m_down = new DesktopRuler(Qt::Vertical, this);
    m_unit = new QLabel(this);
    m_unit->setObjectName(QStringLiteral("lblUnit"));
    m_unit->setAlignment(Qt::AlignCenter);
    m_unit->setAutoFillBackground(true);
    QFont small = m_unit->font();
    small.setPointSizeF(small.pointSizeF() * UnitSize);
    m_unit->setFont(small);
    ShowRulers(false);
    connect(&form, &frmDocument::ViewChanged, this, &DesktopWorkspace::FollowView);
    connect(&session.Face, &StationFace::DesignChanged, this, &DesktopWorkspace::FollowView);
    FollowView();
}

void DesktopWorkspace::ShowRulers(bool show)
{
    for (QWidget* part : std::initializer_list<QWidget*>{m_across, m_down, m_unit})
        part->setVisible(show);
    const int breadth = show ? DesktopRuler::Breadth : 0;
    setViewportMargins(breadth, breadth, 0, 0);
    PlaceRulers();
    Q_EMIT RulersChanged();
}

void DesktopWorkspace::FollowView()
{
    const bool isShown = m_form->isVisibleTo(this);
    if (isShown == m_across->isHidden())
        ShowRulers(isShown);
    if (!isShown)
        return;
    const CardDocument& document = m_session->Document;
    const QPoint corner = m_form->pos() + m_form->CardRect().topLeft();
    const std::optional<QRectF> extent = m_form->Extent();
    const std::optional<QPointF>& pointer = m_form->Pointer();
    RulerView view;
    view.Unit = m_session->Options.Unit;
    view.PixelsPerTwip = PixelsOfTwips(m_form->Zoom(), ScreenPixelsPerInch);
    RulerView down = view;
    view.Origin = corner.x();
    view.Card = document.Width;
    down.Origin = corner.y();
    down.Card = document.Height;
    if (extent) {
        view.Extent = {extent->left(), extent->right()};
        down.Extent = {extent->top(), extent->bottom()};
    }
    if (pointer) {
        view.Pointer = pointer->x();
        down.Pointer = pointer->y();
    }
    m_across->Show(view);
    m_down->Show(down);
    m_unit->setText(UnitName(view.Unit));
}

void DesktopWorkspace::PlaceRulers()
{
    constexpr int breadth = DesktopRuler::Breadth;
    const QRect view = viewport()->geometry();
    m_across->setGeometry(view.left(), view.top() - breadth, view.width(), breadth);
    m_down->setGeometry(view.left() - breadth, view.top(), breadth, view.height());
    m_unit->setGeometry(view.left() - breadth, view.top() - breadth, breadth, breadth);
}

bool DesktopWorkspace::viewportEvent(QEvent* event)
{
    const bool handled = QMdiArea::viewportEvent(event);
    if (m_across != nullptr && event->type() == QEvent::Resize)
        PlaceRulers();
    return handled;
}

} // namespace vantrel
