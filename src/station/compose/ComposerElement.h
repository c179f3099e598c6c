#pragma once

#include "base/Color.h"
#include <QString>
#include <vector>

namespace vantrel {

class FieldValues;

/// @file What the two composers share: trees of elements to drag, and rows they are dropped on.

/// How an element of a row looks.
struct ElementLook
{
    QString Caption;
    /// What an element without a caption shows instead: a field's number, a piece of its text.
    QString Mark;
    ColorValue BackColor = ColorWhite;
    ColorValue ForeColor = ColorBlack;
    /// What it stands for, for whoever cannot see it.
    QString Name;
};

/// A node of a composer's tree.
struct ElementNode
{
    QString Text;
    /// The word that a drag of the node carries, and a drop is told by.
    QString Key;
    /// Of the element that a drop of it makes.
    ElementLook Look = {};
};

/// The word that begins the key of a data field's node.
inline constexpr QLatin1StringView DataFieldKey{"KEY="};

/// @return what stands behind `word` in `key`; the empty text where it is not in it
QString RestOfKey(const QString& key, QLatin1StringView word);

/// @return the text freed of every occurrence of `word`
QString Without(QString text, QLatin1StringView word);

/// @return the text in one line, each control character as its code in brackets, "[D]" and the like
QString WithVisibleCodes(const QString& text);

} // namespace vantrel
