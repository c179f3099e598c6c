#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace vantrel {

/// The parts of the only kind of statement a cursor supports: SELECT [DISTINCT] columns FROM one
/// table, with an optional WHERE that compares columns with texts or numbers, and an optional ORDER
/// BY.
struct SelectStatement
{
    /// A column that is equal to, or greater than, a text or a whole number.
    struct Comparison
    {
        QString Column;
        bool IsGreater = false;
        bool IsText = false;
        /// The text without its apostrophes, or the number as written.
        QString Operand;
    };

    bool Distinct = false;
    /// Column names without brackets; empty means all of them.
    QStringList Columns;
    QString Table;
    /// The condition as written; empty if there is none.
    QString Where;
    /// The same condition, comparison by comparison; all of them must hold.
    std::vector<Comparison> Conditions;
    /// Column names in brackets, each with its direction if one was given.
    QStringList OrderBy;
    /// At most so many rows; 0 for all. No text says so.
    int Limit = 0;

    /// The statement that SQLite runs. The first column of its rows is the hidden key, and rows are
    /// in its order unless sorted. Rows of a DISTINCT have no key and are in the order of their
    /// values.
    QString Sql() const;
};

/// Parses a statement. Fails with `StatementInvalid` for anything else, such as several statements,
/// a comment, a subquery, a text that contains an apostrophe or is not closed.
SelectStatement ParseSelect(const QString& text);

} // namespace vantrel
