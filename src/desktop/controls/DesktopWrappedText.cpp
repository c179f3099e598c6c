#include "desktop/controls/DesktopWrappedText.h"
#include <QEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

constexpr int MostLines = 24;
constexpr char16_t Ellipsis = 0x2026;

/// In a text layout a line ends with a line separator.
QString WithLineSeparators(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    text.replace(QLatin1Char('\n'), QChar(QChar::LineSeparator));
    return text;
}

} // namespace

DesktopWrappedText::DesktopWrappedText(const QString& text, int widest, QWidget* parent)
    : QLabel(parent), m_widest(widest)
{
    setTextFormat(Qt::PlainText);
    setText(text);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    BreakLines();
}

void DesktopWrappedText::BreakLines()
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_lines.setTextOption(option);
    m_lines.setFont(font());
    // No character is narrower than a pixel, so the characters that are cut here would not show.
    QString shown = WithLineSeparators(text().left(static_cast<qsizetype>(MostLines) * m_widest));
    for (qsizetype end = LayOut(shown); end < shown.size(); end = LayOut(shown))
        shown = shown.left(std::max<qsizetype>(end - 2, 0)) + QChar(Ellipsis);
    updateGeometry();
}

qsizetype DesktopWrappedText::LayOut(const QString& text)
{
    qsizetype end = 0;
    QSizeF size;
    m_lines.setText(text);
    m_lines.beginLayout();
    for (int number = 0; number < MostLines; ++number) {
        QTextLine line = m_lines.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(m_widest);
        line.setPosition({0, size.height()});
        size = {std::max(size.width(), line.naturalTextWidth()),
                size.height() + std::ceil(line.height())};
        end = line.textStart() + line.textLength();
    }
    m_lines.endLayout();
    m_size = {static_cast<int>(std::ceil(size.width())), static_cast<int>(size.height())};
    return end;
}

void DesktopWrappedText::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        BreakLines();
}

void DesktopWrappedText::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    m_lines.draw(&painter, {0, 0});
}

} // namespace vantrel
