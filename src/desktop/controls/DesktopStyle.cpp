#include "desktop/controls/DesktopStyle.h"
#include "desktop/controls/Contrast.h"
#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <array>

namespace vantrel {

namespace {

constexpr double TextShare = 0.5;
constexpr double DisabledTextShare = 0.3;
constexpr double FocusTextShare = 0.6;
/// Space above and below the text of a row of a list, together, in pixels.
constexpr int RowAir = 8;

bool IsDark(const QPalette& palette)
{
    return Contrast(palette.color(QPalette::Base), Qt::white) >
           Contrast(palette.color(QPalette::Base), Qt::black);
}

/// Whether a row of a list has the focus without being chosen.
bool IsRowNotChosen(const QStyleOption& option)
{
    const auto* focus = qstyleoption_cast<const QStyleOptionFocusRect*>(&option);
    // A list passes this for each column's text, a tree for the row as a whole.
    const bool isRow = option.state.testFlag(QStyle::State_Item) ||
                       qobject_cast<const QAbstractItemView*>(option.styleObject) != nullptr;
    if (focus == nullptr || !isRow)
        return false;
    constexpr std::array groups{QPalette::Active, QPalette::Inactive, QPalette::Disabled};
    return std::ranges::none_of(groups, [&](auto group) {
        return focus->backgroundColor == option.palette.color(group, QPalette::Highlight);
    });
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
    if (element == PE_FrameFocusRect && IsRowNotChosen(*option)) {
        DrawRowFocus(*option, *painter);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    DrawBoxOutline(element, *option, *painter);
}

QSize DesktopStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                     const QSize& contents, const QWidget* widget) const
{
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (type != CT_ItemViewItem)
        return size;
    return {size.width(), std::max(size.height(), option->fontMetrics.height() + RowAir)};
}

void DesktopStyle::DrawRowFocus(const QStyleOption& option, QPainter& painter)
{
    const QPalette& colors = option.palette;
    painter.save();
    painter.setPen(
        QPen(Between(colors.color(QPalette::Text), colors.color(QPalette::Base), FocusTextShare), 1,
             Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

void DesktopStyle::DrawBoxOutline(PrimitiveElement element, const QStyleOption& option,
                                  QPainter& painter)
{
    const bool isRound = element == PE_IndicatorRadioButton;
    const bool isBox = element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck;
    if ((!isRound && !isBox) || !IsDark(option.palette))
        return;
    // The colour of the focus outline stays.
    if (option.state.testFlag(State_HasFocus) && option.state.testFlag(State_KeyboardFocusChange))
        return;
    const bool enabled = option.state.testFlag(State_Enabled);
    const auto group = enabled ? QPalette::Active : QPalette::Disabled;
    const QRectF outline = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, isRound);
    painter.setPen(Between(option.palette.color(group, QPalette::Text),
                           option.palette.color(group, QPalette::Base),
                           enabled ? TextShare : DisabledTextShare));
    painter.setBrush(Qt::NoBrush);
    if (isRound)
        painter.drawEllipse(outline);
    else
        painter.drawRect(outline);
    painter.restore();
}

} // namespace vantrel
