#include "desktop/designer/frmDocument.h"
#include "base/NumberFormat.h"
#include "card/PaintDocument.h"
#include "card/ShownValues.h"
#include "desktop/controls/DesktopAccess.h"
#include "desktop/controls/ScreenUnits.h"
#include "desktop/designer/DesktopCardAccess.h"
#include "desktop/designer/DesktopTextInPlace.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/ObjectMenu.h"
#include "station/session/Session.h"
#include <QCloseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTimer>

namespace vantrel {

namespace {
/// A thin line and a soft shadow are drawn around the card, outside it, so that the card keeps its
/// size.
constexpr int Surround = 8;
constexpr QColor HairlineColor(0, 0, 0, 90);
constexpr QColor ShadowLayerColor(0, 0, 0, 11);
constexpr int ShadowDrop = 2;
constexpr int MenuInterval = 100;

void PaintSurround(QPainter& painter, const QRect& card)
{
    painter.save();
    // Most of each layer lies under the card, which covers it.
    painter.setClipRegion(QRegion(card.adjusted(-Surround, -Surround, Surround, Surround)) - card,
                          Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ShadowLayerColor);
    for (int reach = 1; reach <= Surround - ShadowDrop; ++reach) {
        const QRect layer = card.adjusted(-reach, -reach, reach, reach).translated(0, ShadowDrop);
        painter.drawRoundedRect(layer, reach, reach);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(card.adjusted(-1, -1, 1, 1), HairlineColor);
    painter.restore();
}
} // namespace

frmDocument::frmDocument(Session& session, QWidget* parent)
    : QMdiSubWindow(parent, Qt::SubWindow | Qt::FramelessWindowHint), m_session(session)
{
    TellAs<frmDocument, QAccessible::Window, CardAccess>();
    setObjectName(QStringLiteral("frmDocument"));
    // The window has no title bar; this is its name for screen readers.
    setWindowTitle(QStringLiteral("Card"));
    setAccessibleName(windowTitle());
    // The shadow is drawn over the workspace, which shows through.
    setAutoFillBackground(false);
    setMouseTracking(true);
    auto* menuTimer = new QTimer(this);
    menuTimer->setObjectName(QStringLiteral("tmrMenu"));
    connect(menuTimer, &QTimer::timeout, this,
            [this] { TickObjectMenu(m_session.Face, m_session.Document); });
    menuTimer->start(MenuInterval);
    connect(&m_dragScroll, &QTimer::timeout, this, &frmDocument::ScrollWhileDragging);
    const CardDocument& document = m_session.Document;
    connect(&document, &CardDocument::Shown, this, &frmDocument::MirrorSoon);
    connect(&document, &CardDocument::Hidden, this, &frmDocument::MirrorSoon);
    connect(&document, &CardDocument::Changed, this, &frmDocument::MirrorSoon);
    connect(&m_session.Face, &StationFace::FieldsChanged, this, [this] {
        if (m_session.Face.IsTicked(Tick::cmdShowValues))
            MirrorSoon();
    });
}

frmDocument::~frmDocument() = default;

void frmDocument::MirrorSoon()
{
    // A record changes every object of the page; the window is updated once for all of them.
    m_picture.Spoil();
    if (m_mirrorAsked)
        return;
    m_mirrorAsked = true;
    QMetaObject::invokeMethod(this, &frmDocument::Mirror, Qt::QueuedConnection);
}

void frmDocument::Mirror()
{
    m_mirrorAsked = false;
    const CardDocument& document = m_session.Document;
    if (document.Drag.Mode == DragMode::None) {
        // The document of an unfinished drag may have been replaced by another one.
        // The band that selects objects is not the document's.
        if (!m_bandFrom)
            m_band.reset();
        m_snap.reset();
        ReleaseMouse();
    }
    if (!document.IsLoaded() || !document.IsShown()) {
        TellChanges();
        hide();
        return;
    }
    TakePlace();
    show();
    PlaceText();
    TellChanges();
    update();
    if (HasTools())
        Q_EMIT ViewChanged();
}

void frmDocument::TellChanges()
{
    // Most stations run without a screen reader.
    if (!QAccessible::isActive())
        return;
    if (auto* told = dynamic_cast<CardAccess*>(QAccessible::queryAccessibleInterface(this)))
        told->Follow(m_session.Options.DesignTools);
}

QRect frmDocument::CardRect() const
{
    return rect().adjusted(Surround, Surround, -Surround, -Surround);
}

KeptCardPicture::View frmDocument::PictureView() const
{
    const CardDocument& document = m_session.Document;
    return {BoxInWindow(0, 0, document.Width, document.Height).size(), m_zoom, devicePixelRatioF()};
}

void frmDocument::PaintPage(PageCanvas& canvas) const
{
    if (!m_session.Face.IsTicked(Tick::cmdShowValues)) {
        PaintDocument(m_session.Document, m_session.CurrentParams, canvas);
        return;
    }
    const auto shown = PageWithValues(m_session.Document, m_session.FieldValues, m_session.Pictures,
                                      MachineDecimalSeparator());
    PaintDocument(*shown, m_session.CurrentParams, canvas);
}

const QImage& frmDocument::CardPicture()
{
    const KeptCardPicture::View view = PictureView();
    const QRect whole(QPoint(0, 0), view.Card);
    m_picture.Draw([this](PageCanvas& canvas) { PaintPage(canvas); }, view, whole, whole);
    return m_picture.Image();
}

void frmDocument::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QRect card = CardRect();
    const QRect dirty = event->rect();
    if (!card.contains(dirty))
        PaintSurround(painter, card);
    const QPoint corner = card.topLeft();
    m_picture.Draw([this](PageCanvas& canvas) { PaintPage(canvas); }, PictureView(),
                   dirty.translated(-corner), VisiblePart().translated(-corner));
    painter.drawImage(corner + m_picture.Part().topLeft(), m_picture.Image());
    PaintDesign(painter, dirty);
}

void frmDocument::closeEvent(QCloseEvent* event)
{
    // The document disappears when its layout is closed, not by a window command.
    event->ignore();
}

bool frmDocument::focusNextPrevChild(bool next)
{
    const auto step = [next](const QWidget* from) {
        return next ? from->nextInFocusChain() : from->previousInFocusChain();
    };
    for (QWidget* widget = step(this); widget != this; widget = step(widget)) {
        if ((widget->focusPolicy() & Qt::TabFocus) == 0 || widget->focusProxy() != nullptr ||
            !widget->isVisible() || !widget->isEnabled() || widget->window() != window())
            continue;
        widget->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        return true;
    }
    return false;
}

} // namespace vantrel
