#include "layout/frmDocument.h"
#include "app/ScreenUnits.h"
#include "app/Session.h"
#include "layout/DocumentForm.h"
#include "platform/PageCanvas.h"
#include "platform/Skip.h"
#include <QCloseEvent>
#include <QPainter>

namespace vantrel {

namespace {
/// The hairline around the card stands outside it, so that the card keeps its size.
constexpr int FrameWidth = 1;
constexpr QRgb FrameColor = 0xFF8A8F98U;
} // namespace

frmDocument::frmDocument(Session& session, QWidget* parent)
    : QMdiSubWindow(parent, Qt::SubWindow | Qt::FramelessWindowHint), m_session(session)
{
    setObjectName(QStringLiteral("frmDocument"));
    setAccessibleName(QStringLiteral("Card"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    const CardDocument& document = m_session.Document;
    connect(&document, &CardDocument::Shown, this, &frmDocument::MirrorSoon);
    connect(&document, &CardDocument::Hidden, this, &frmDocument::MirrorSoon);
    connect(&document, &CardDocument::Changed, this, &frmDocument::MirrorSoon);
}

void frmDocument::MirrorSoon()
{
    // A record changes every object of the page; the window follows once for all of them.
    m_stale = true;
    if (m_mirrorAsked)
        return;
    m_mirrorAsked = true;
    QMetaObject::invokeMethod(this, &frmDocument::Mirror, Qt::QueuedConnection);
}

void frmDocument::Mirror()
{
    m_mirrorAsked = false;
    const CardDocument& document = m_session.Document;
    if (!document.IsLoaded() || !document.IsShown()) {
        hide();
        return;
    }
    const QRect card = ScreenRect(document.Left, document.Top, document.Width, document.Height);
    const QRect framed = card.adjusted(-FrameWidth, -FrameWidth, FrameWidth, FrameWidth);
    if (geometry() != framed)
        setGeometry(framed);
    show();
    update();
}

void frmDocument::DrawCard()
{
    const double scale = devicePixelRatioF();
    const CardDocument& document = m_session.Document;
    const QSize size = ScreenRect(0, 0, document.Width, document.Height).size() * scale;
    if (m_card.size() != size)
        m_card = QImage(size, QImage::Format_RGB32);
    m_card.setDevicePixelRatio(1.0);
    m_card.fill(Qt::white);
    Skip("paint the document", [&] {
        const auto canvas = PageCanvas::OnImage(m_card, scale * ScreenPixelsPerInch / TwipsPerInch);
        PaintDocument(m_session, *canvas);
        canvas->Finish();
    });
    m_card.setDevicePixelRatio(scale);
}

const QImage& frmDocument::CardPicture()
{
    if (m_stale || !qFuzzyCompare(m_card.devicePixelRatio(), devicePixelRatioF())) {
        m_stale = false;
        DrawCard();
    }
    return m_card;
}

void frmDocument::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), QColor(FrameColor));
    painter.drawImage(QPoint(FrameWidth, FrameWidth), CardPicture());
}

void frmDocument::closeEvent(QCloseEvent* event)
{
    // The document goes when its layout is closed, not by a window command.
    event->ignore();
}

} // namespace vantrel
