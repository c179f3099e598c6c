#include "TextTable.h"
#include "base/HarmlessText.h"
#include <algorithm>
#include <cwchar>

namespace vantrel::admin {

namespace {

constexpr std::size_t RowsOfBlock = 500;
constexpr int BetweenColumns = 2;

int WidthOf(char32_t character)
{
    // A character that the system does not know stands for itself in one column.
    const int columns = wcwidth(static_cast<wchar_t>(character));
    return columns < 0 ? 1 : columns;
}

/// The text, cut with an ellipsis where it is wider than so many columns.
QString CutTo(const QString& text, int most)
{
    if (most == 0 || ColumnsOf(text) <= most)
        return text;
    QString cut;
    int width = 0;
    for (const char32_t character : text.toUcs4()) {
        width += WidthOf(character);
        if (width > most - 1)
            break;
        cut += QString::fromUcs4(&character, 1);
    }
    return cut + QChar(u'\u2026');
}

} // namespace

int ColumnsOf(const QString& text)
{
    int columns = 0;
    for (const char32_t character : text.toUcs4())
        columns += WidthOf(character);
    return columns;
}

TextTable::TextTable(std::span<const Column> columns, Write write)
    : m_columns(columns), m_write(std::move(write))
{
    QStringList titles;
    for (const Column& column : columns) {
        titles.append(QLatin1StringView(column.Title));
        m_widths.push_back(ColumnsOf(titles.back()));
    }
    m_block.push_back(titles);
}

void TextTable::Add(const QStringList& cells)
{
    QStringList shown;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const int most = m_columns[i].MostColumns;
        const QString& cell = cells.at(static_cast<qsizetype>(i));
        // What is cut need not be measured: each column takes at most a few characters.
        constexpr qsizetype CharactersOfColumn = 8;
        const qsizetype looked = most == 0 ? cell.size() : most * CharactersOfColumn;
        shown.append(CutTo(HarmlessText(QStringView(cell).left(looked)), most));
        m_widths[i] = std::max(m_widths[i], ColumnsOf(shown.back()));
    }
    m_block.push_back(shown);
    if (m_block.size() > RowsOfBlock)
        WriteBlock();
}

void TextTable::End()
{
    WriteBlock();
}

void TextTable::WriteBlock()
{
    for (const QStringList& row : m_block)
        WriteRow(row);
    m_block.clear();
}

void TextTable::WriteRow(const QStringList& cells) const
{
    QString line;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const QString& cell = cells.at(static_cast<qsizetype>(i));
        const QString space(m_widths[i] - ColumnsOf(cell), u' ');
        line += m_columns[i].Alignment == Align::Right ? space + cell : cell + space;
        line += QString(BetweenColumns, u' ');
    }
    while (line.endsWith(u' '))
        line.chop(1);
    m_write(line.toLocal8Bit() + '\n');
}

} // namespace vantrel::admin
