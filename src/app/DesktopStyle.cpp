#include "app/DesktopStyle.h"
#include "app/Contrast.h"
#include <QApplication>
#include <QPainter>
#include <QStyleOption>

namespace vantrel {

namespace {

constexpr double TextShare = 0.5;
constexpr double DisabledTextShare = 0.3;

bool IsDark(const QPalette& palette)
{
    return Contrast(palette.color(QPalette::Base), Qt::white) >
           Contrast(palette.color(QPalette::Base), Qt::black);
}

} // namespace

void DesktopStyle::Install()
{
    if (QApplication::style()->name() == QStringLiteral("fusion"))
        QApplication::setStyle(new DesktopStyle);
}

void DesktopStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool isRound = element == PE_IndicatorRadioButton;
    const bool isBox = element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck;
    if ((!isRound && !isBox) || !IsDark(option->palette))
        return;
    // The colour of the focus stays.
    if (option->state.testFlag(State_HasFocus) && option->state.testFlag(State_KeyboardFocusChange))
        return;
    const bool enabled = option->state.testFlag(State_Enabled);
    const auto group = enabled ? QPalette::Active : QPalette::Disabled;
    const QRectF outline = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, isRound);
    painter->setPen(Between(option->palette.color(group, QPalette::Text),
                            option->palette.color(group, QPalette::Base),
                            enabled ? TextShare : DisabledTextShare));
    painter->setBrush(Qt::NoBrush);
    if (isRound)
        painter->drawEllipse(outline);
    else
        painter->drawRect(outline);
    painter->restore();
}

} // namespace vantrel
