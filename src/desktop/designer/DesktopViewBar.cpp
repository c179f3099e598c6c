#include "desktop/designer/DesktopViewBar.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/designer/frmDocument.h"
#include "station/session/Session.h"
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <cmath>

namespace vantrel {

namespace {

constexpr double Percent = 100;
/// The zooms of the menu, in percent.
constexpr int Zooms[] = {25, 50, 75, 100, 150, 200, 300, 400, 600, 800};

QString PercentText(double zoom)
{
    return QStringLiteral("%1 %").arg(std::lround(zoom * Percent));
}

} // namespace

DesktopViewBar::DesktopViewBar(Session& session, frmDocument& form, QWidget* parent)
    : QWidget(parent), m_session(session), m_form(form),
      m_place(MakeControl<QLabel>("lblPlace", this)),
      m_zoom(MakeControl<QToolButton>("cmdZoom", this)), m_zooms(new QMenu(this))
{
    setObjectName(QStringLiteral("ViewBar"));
    m_place->setTextFormat(Qt::PlainText);
    m_zooms->setObjectName(QStringLiteral("mnuZooms"));
    m_zooms->setAccessibleName(QStringLiteral("Zoom"));
    m_zoom->setAccessibleName(QStringLiteral("Zoom"));
    m_zoom->setToolTip(QStringLiteral("Zoom; Ctrl and the wheel zoom around the pointer"));
    m_zoom->setAutoRaise(true);
    m_zoom->setPopupMode(QToolButton::InstantPopup);
    m_zoom->setMenu(m_zooms);
    m_zoom->setFocusPolicy(Qt::TabFocus);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_place);
    row->addWidget(m_zoom);
    FillZooms();
    connect(&form, &frmDocument::ViewChanged, this, &DesktopViewBar::FollowView);
    connect(&session.Face, &StationFace::DesignChanged, this, &DesktopViewBar::FollowView);
    FollowView();
}

void DesktopViewBar::FillZooms()
{
    for (const int zoom : Zooms) {
        QAction* const entry = m_zooms->addAction(PercentText(zoom / Percent));
        connect(entry, &QAction::triggered, this,
                [this, zoom] { m_form.ZoomInPlace(zoom / Percent); });
    }
    m_zooms->addSeparator();
    QAction* const fit = m_zooms->addAction(QStringLiteral("&Fit"));
    connect(fit, &QAction::triggered, this, [this] { m_form.ZoomToFit(); });
}

QString DesktopViewBar::PlaceText() const
{
    const LengthUnit unit = m_session.Options.Unit;
    const auto text = [unit](double twips) { return LengthText(std::round(twips), unit); };
    if (const std::optional<QRectF> extent = m_form.Extent())
        return QStringLiteral("%1, %2   %3 \u00d7 %4 %5")
            .arg(text(extent->left()), text(extent->top()), text(extent->width()),
                 text(extent->height()), UnitName(unit));
    if (const std::optional<QPointF>& pointer = m_form.Pointer())
        return QStringLiteral("%1, %2 %3")
            .arg(text(pointer->x()), text(pointer->y()), UnitName(unit));
    return {};
}

void DesktopViewBar::FollowView()
{
    const bool isShown = m_form.isVisibleTo(m_form.window());
    setVisible(isShown);
    if (!isShown)
        return;
    m_place->setText(PlaceText());
    const QString zoom = PercentText(m_form.Zoom());
    if (zoom == m_zoom->text())
        return;
    m_zoom->setText(zoom);
    m_zoom->setAccessibleDescription(zoom);
}

} // namespace vantrel
