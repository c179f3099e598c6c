#pragma once

#include "station/compose/ComposerElement.h"
#include "station/print/SerializerElement.h"
#include <optional>

namespace vantrel {

class FieldValues;

/// One element of the row in which a layout's output stream is composed.
struct StreamElement
{
    std::int32_t Kind = StreamKind::Text;
    /// The word it is stored by: "TEXT", "HEX", "START", "STOP", "CR", or "DAT" and a field number.
    QString Tag;
    /// The text of a text element.
    QString LinkItem;
    QString ToolTipText;

    /// Whether it holds a text that can be asked for.
    bool IsText() const;
    /// Gives it a text, also an empty one.
    void SetText(const QString& text);
};

/// An element as it comes onto the row. An empty tag or link leaves what it would set.
StreamElement MakeStreamElement(std::int32_t kind, const QString& tag, const QString& link);

/// The element of a stored row; none for a row of no kind. Fails where its kind is no number.
std::optional<StreamElement> StreamElementOf(const StoredStreamElement& stored);
/// The element that a drop of this key makes; none for any other key, "FD" among them.
std::optional<StreamElement> StreamElementOfKey(const QString& key);
/// The nodes to drag: kinds, then the values of the last record.
std::vector<ElementNode> StreamElementNodes(const FieldValues& values);

/// What the store keeps of an element: told by its tag, its text freed of the tag's own word. An
/// element of another tag has no kind.
StoredStreamElement StoredFormOf(const StreamElement& element);

ElementLook LookOf(const StreamElement& element);

} // namespace vantrel
