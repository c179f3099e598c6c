#pragma once

#include <QString>

namespace vantrel {

/// @file Text routines that count characters from 1, as the stored formats do.

/// Removes blanks (code 32 only) from both ends.
QStringView TrimBlanks(QStringView text);

/// @return the first position of `wanted` in `text` at or after `from`, 0 if it is not found. The
/// empty text is found at `from` unless that is past the end. Fails with `InvalidCall` if `from` is
/// below 1
qsizetype InStr(qsizetype from, const QString& text, const QString& wanted);

/// @return up to `length` characters of `text` starting at `from`. Fails with `InvalidCall` if
/// `from` is below 1 or `length` is negative
QString Mid(const QString& text, qsizetype from, qsizetype length);

/// Replaces every occurrence of `wanted` in place, in one pass and in linear time. Text that a
/// replacement produces is not searched again. An empty `wanted` changes nothing.
/// @param replacement  must not be longer than `wanted`
void ReplaceText(QString& text, QStringView wanted, QStringView replacement);

} // namespace vantrel
