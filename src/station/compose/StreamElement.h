#pragma once

#include "station/compose/ComposerElement.h"
#include "station/print/SerializerElement.h"
#include <optional>

namespace vantrel {

class FieldValues;

/// One element of a layout's output stream in the composer.
struct StreamElement
{
    std::int32_t Kind = StreamKind::Text;
    /// Its kind: "TEXT", "HEX", "START", "STOP", "CR", or "DAT" and a field number.
    QString Tag;
    /// The text of a text element.
    QString LinkItem;
    QString ToolTipText;

    /// Whether it holds a text that can be edited.
    bool IsText() const;
    /// Sets its text, which may be empty.
    void SetText(const QString& text);
};

/// Creates an element. Its tag or text stays empty if the argument is empty.
StreamElement MakeStreamElement(std::int32_t kind, const QString& tag, const QString& link);

/// Converts a stored element; nothing if its kind is null or unknown. Fails with `TypeMismatch` or
/// `Overflow` if its kind is not a 32-bit number.
std::optional<StreamElement> StreamElementOf(const StoredStreamElement& stored);
/// The element that a drop of this key creates; nothing for any other key, including "FD".
std::optional<StreamElement> StreamElementOfKey(const QString& key);
/// The nodes of the tree: the kinds, then the first `MostValuesListed` values of the last record.
std::vector<ElementNode> StreamElementNodes(const FieldValues& values);

/// Converts an element to its stored form. Its kind follows from its tag, and its text is stored
/// without the word of the tag. An element with an unknown tag has no kind.
StoredStreamElement StoredFormOf(const StreamElement& element);

/// The appearance of an element.
ElementLook LookOf(const StreamElement& element);

} // namespace vantrel
