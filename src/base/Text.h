#pragma once

#include <QString>

namespace vantrel {

/// @file Text routines that count characters from 1, as the stored formats do.

/// Takes blanks (code 32 and nothing else) off both ends.
QStringView TrimBlanks(QStringView text);

/// @return the position of `wanted` in `text` at or behind `from`, 0 where it is not found. Nothing
/// is found from behind the end; the empty text is found at `from` itself. Fails with `InvalidCall`
/// for a position below 1
qsizetype InStr(qsizetype from, const QString& text, const QString& wanted);

/// @return `length` characters of `text` from `from` on, or as many as there are. Fails with
/// `InvalidCall` for a position below 1 or a negative length
QString Mid(const QString& text, qsizetype from, qsizetype length);

/// Replaces every occurrence of `wanted`, in place and in one pass whatever the number of
/// occurrences; what a replacement makes is not looked at again. The empty text occurs nowhere
/// here.
/// @param replacement  no longer than `wanted`
void ReplaceText(QString& text, QStringView wanted, QStringView replacement);

} // namespace vantrel
