#pragma once

#include <QString>
#include <QStringList>

namespace vantrel {

/// The one kind of statement a cursor takes, taken apart: SELECT [DISTINCT] columns FROM one table,
/// with an optional WHERE of columns compared with a text or a number, and an optional ORDER BY.
struct SelectStatement
{
    bool Distinct = false;
    /// Column names without brackets; empty means all of them.
    QStringList Columns;
    QString Table;
    /// The condition as it was written; empty where there is none.
    QString Where;
    /// Each a bracketed column name, with its direction where one was given.
    QStringList OrderBy;

    /// The statement the store runs. Rows come in the order of the hidden key unless sorted, and
    /// begin with that key; those of a DISTINCT have none and come in the order of their values.
    QString Sql() const;
};

/// Fails with `StatementInvalid` for anything else than such a statement: several statements, a
/// comment, a statement within a statement, a text with an apostrophe or without its closing one.
SelectStatement ParseSelect(const QString& text);

} // namespace vantrel
