#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <span>
#include <vector>

namespace vantrel::admin {

/// The columns that a text takes on a terminal: two for a wide character, none for one that
/// combines.
int ColumnsOf(const QString& text);

/// A table with aligned columns. Rows are written in blocks, so a table of any length takes little
/// memory; a column may become wider from one block to the next.
class TextTable
{
public:
    enum class Align { Left, Right };
    struct Column
    {
        const char* Title;
        Align Alignment = Align::Left;
        /// Longer cells are cut; 0 for any width.
        int MostColumns = 0;
    };
    using Write = std::function<void(const QByteArray&)>;

    TextTable(std::span<const Column> columns, Write write);
    /// Adds a row with a text for each column.
    void Add(const QStringList& cells);
    /// Writes the rows that are left, and the titles if there was no row.
    void End();

private:
    void WriteBlock();
    void WriteRow(const QStringList& cells) const;

    std::span<const Column> m_columns;
    Write m_write;
    std::vector<int> m_widths;
    std::vector<QStringList> m_block;
};

} // namespace vantrel::admin
