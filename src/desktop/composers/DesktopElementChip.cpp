#include "desktop/composers/DesktopElementChip.h"
#include "base/DesktopColor.h"
#include "desktop/controls/DesktopAccess.h"
#include "desktop/controls/DesktopToolTip.h"
#include <QPainter>
#include <QPixmap>
#include <algorithm>

namespace vantrel {

namespace {

constexpr qreal Inset = 1.5;
constexpr qreal Radius = 4;
constexpr qreal FocusWidth = 2;
/// The least and the greatest width of an element, in characters.
constexpr int LeastCharacters = 5;
constexpr int MostCharacters = 14;
constexpr int OutlineDarker = 140;
constexpr int HoverLighter = 112;

enum class ChipState { Plain, Hovered, Focused };

QFont ChipFont(const QFont& base)
{
    QFont font = base;
    font.setFamily(QStringLiteral("Arial"));
    font.setBold(true);
    return font;
}

const QString& ShownText(const ElementLook& look)
{
    return look.Caption.isEmpty() ? look.Mark : look.Caption;
}

void PaintChip(QPainter& painter, const QRectF& box, const ElementLook& look, const QFont& base,
               ChipState state)
{
    const QColor back = ColorOf(look.BackColor);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(state == ChipState::Hovered ? back.lighter(HoverLighter) : back);
    painter.setPen(state == ChipState::Focused ? QPen(Qt::black, FocusWidth)
                                               : QPen(back.darker(OutlineDarker)));
    painter.drawRoundedRect(box.adjusted(Inset, Inset, -Inset, -Inset), Radius, Radius);
    painter.setFont(ChipFont(base));
    painter.setPen(ColorOf(look.ForeColor));
    const QRectF inside = box.adjusted(Radius, 0, -Radius, 0);
    const QString text = QFontMetrics(painter.font())
                             .elidedText(WithVisibleCodes(ShownText(look)), Qt::ElideRight,
                                         static_cast<int>(inside.width()) + 1);
    painter.drawText(box, Qt::AlignCenter | Qt::TextSingleLine, text);
}

} // namespace

DesktopElementChip::DesktopElementChip(QWidget* parent) : QLabel(parent)
{
    TellAs<DesktopElementChip, QAccessible::ListItem>();
    setFocusPolicy(Qt::ClickFocus);
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize DesktopElementChip::SizeFor(const ElementLook& look, const QFont& font)
{
    const QFontMetrics metrics(ChipFont(font));
    const int character = metrics.horizontalAdvance(QLatin1Char('0'));
    const int wanted = metrics.horizontalAdvance(ShownText(look)) + 2 * character;
    return {std::clamp(wanted, LeastCharacters * character, MostCharacters * character),
            HeightFor(font)};
}

int DesktopElementChip::HeightFor(const QFont& font)
{
    return QFontMetrics(ChipFont(font)).height() * 2;
}

void DesktopElementChip::Show(const ElementLook& look, const QString& toolTip)
{
    m_look = look;
    setText(look.Caption);
    SetPlainToolTip(*this, toolTip);
    setAccessibleName(look.Name);
    updateGeometry();
    update();
}

QSize DesktopElementChip::sizeHint() const
{
    return SizeFor(m_look, font());
}

void DesktopElementChip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    ChipState state = underMouse() ? ChipState::Hovered : ChipState::Plain;
    if (hasFocus())
        state = ChipState::Focused;
    PaintChip(painter, rect(), m_look, font(), state);
}

void DesktopElementChip::enterEvent(QEnterEvent* event)
{
    QLabel::enterEvent(event);
    update();
}

void DesktopElementChip::leaveEvent(QEvent* event)
{
    QLabel::leaveEvent(event);
    update();
}

QPixmap DesktopElementChip::PictureOf(const ElementLook& look, const QWidget& shownOn)
{
    const QSize size = SizeFor(look, shownOn.font());
    const qreal ratio = shownOn.devicePixelRatioF();
    QPixmap picture(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    PaintChip(painter, QRectF(QPointF(0, 0), QSizeF(size)), look, shownOn.font(), ChipState::Plain);
    return picture;
}

} // namespace vantrel
