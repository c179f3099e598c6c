#pragma once

#include "base/Color.h"
#include <QString>
#include <vector>

namespace vantrel {

class FieldValues;

/// @file Common parts of the two composers: a tree of elements to drag, and rows to drop them on.

/// The appearance of an element in a row.
struct ElementLook
{
    QString Caption;
    /// Shown by an element without a caption: a field's number or the start of its text.
    QString Mark;
    ColorValue BackColor = ColorWhite;
    ColorValue ForeColor = ColorBlack;
    /// Name of the element for screen readers.
    QString Name;
};

/// A node of a composer's tree.
struct ElementNode
{
    QString Text;
    /// Identifies the node in a drag and drop.
    QString Key;
    /// The appearance of the element that a drop of the node creates.
    ElementLook Look = {};
};

/// How many values of a record a menu, list or tree shows, and how many characters of each.
inline constexpr int MostValuesListed = 1000;
inline constexpr qsizetype LongestListed = 1000;

/// Prefix of the key of a data field's node.
inline constexpr QLatin1StringView DataFieldKey{"KEY="};

/// @return the part of `key` after `word`; empty if `key` does not contain `word`
QString RestOfKey(const QString& key, QLatin1StringView word);

/// @return the text without any occurrence of `word`
QString Without(QString text, QLatin1StringView word);

/// @return the text with each control character replaced by its code in brackets, such as "[D]"
QString WithVisibleCodes(const QString& text);

} // namespace vantrel
