#include "desktop/designer/DesktopTextInPlace.h"
#include "base/DesktopColor.h"
#include "card/CaptionFigure.h"
#include "desktop/controls/Contrast.h"
#include "desktop/controls/DesktopFont.h"
#include "desktop/controls/ScreenUnits.h"
#include <QCoreApplication>
#include <QKeyEvent>
#include <QTextDocument>
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

/// Room for the caret behind the text, and the frame, in pixels.
constexpr int CaretRoom = 4;
constexpr int Frame = 1;
constexpr int NarrowestField = 60;
constexpr double SmallestFont = 6;
/// A text needs this contrast to be read.
constexpr double Legible = 3;

/// The ground on which a text of that colour is edited: the card's white, or dark for light texts.
QColor GroundFor(const QColor& ink)
{
    return Contrast(ink, Qt::white) >= Legible ? QColor(Qt::white) : QColor(0x40, 0x40, 0x40);
}

} // namespace

DesktopTextInPlace::DesktopTextInPlace(const CardObject& object, PageKey page, QWidget* parent)
    : QPlainTextEdit(parent), m_index(object.Index()), m_page(std::move(page)),
      m_font(object.Font())
{
    setObjectName(QStringLiteral("txtInPlace"));
    setAccessibleName(QStringLiteral("Text"));
    setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    setLineWidth(Frame);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // Its menu would take the keyboard, which takes the text.
    setContextMenuPolicy(Qt::NoContextMenu);
    setTabChangesFocus(true);
    document()->setDocumentMargin(0);
    const QColor ink = ColorOf(object.ForeColor);
    QPalette colors = palette();
    colors.setColor(QPalette::Text, ink);
    colors.setColor(QPalette::Base, GroundFor(ink));
    setPalette(colors);
    setPlainText(object.Caption());
    selectAll();
    connect(this, &QPlainTextEdit::textChanged, this, &DesktopTextInPlace::Grown);
    QCoreApplication::instance()->installEventFilter(this);
}

void DesktopTextInPlace::TakeZoom(double zoom)
{
    // A code shows bars, its text is edited in the desktop's own font.
    QFont shown = IsFigureFont(m_font) ? QFont() : DialogFont(m_font);
    const double points = IsFigureFont(m_font) ? shown.pointSizeF() : m_font.Size * zoom;
    shown.setPointSizeF(
        std::max(SmallestFont, points * ScreenPixelsPerInch / std::max(1, logicalDpiY())));
    setFont(shown);
}

QSize DesktopTextInPlace::SizeFor(const QSize& box) const
{
    const QFontMetrics metrics(font());
    int widest = 0;
    const QStringList lines = toPlainText().split(u'\n');
    for (const QString& line : lines)
        widest = std::max(widest, metrics.horizontalAdvance(line));
    const int height = metrics.lineSpacing() * static_cast<int>(lines.size());
    return {std::max({box.width(), widest + CaretRoom, NarrowestField}) + 2 * Frame,
            std::max(box.height(), height) + 2 * Frame};
}

bool DesktopTextInPlace::eventFilter(QObject* /*watched*/, QEvent* event)
{
    // A command that a key chooses, such as saving, is to find the text on the card.
    if (event->type() == QEvent::Shortcut && hasFocus())
        Q_EMIT Taken();
    return false;
}

void DesktopTextInPlace::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape)
        Q_EMIT Left();
    else if (isEnter && (event->modifiers() & Qt::ShiftModifier) == 0)
        Q_EMIT Taken();
    else
        QPlainTextEdit::keyPressEvent(event);
}

void DesktopTextInPlace::focusOutEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusOutEvent(event);
    // Another program, or a box of this one, may be in front for a while.
    if (event->reason() != Qt::ActiveWindowFocusReason)
        Q_EMIT Taken();
}

} // namespace vantrel
