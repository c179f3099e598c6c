#pragma once

#include "card/PadResult.h"
#include "card/TrackFormula.h"
#include "station/compose/ComposerElement.h"
#include <optional>

namespace vantrel {

/// @file Conversion between a track's formula and the elements shown in the composer. It is not
/// symmetric: check digits and automatic numbers are read but not written.

/// One element of a row.
struct TrackElement
{
    TokenKind Kind = TokenKind::DataField;
    /// Its stored text; for a formatted field the text after "FD".
    QString LinkItem;
    QString ToolTipText;
};

using TrackElements = std::vector<TrackElement>;

/// Creates an element whose tooltip shows its text.
TrackElement MakeTrackElement(TokenKind kind, const QString& text);

/// Reads a formula: one element for each token, including empty ones. Words are searched anywhere
/// in a token, separators before check digits; the evaluation searches in another order.
TrackElements ReadTrackElements(const QString& formula);
/// Writes the elements as a formula, without check digits and automatic numbers. Nothing is
/// escaped.
QString WriteTrackElements(const TrackElements& elements);

/// The element that a drop of this key creates; nothing for any other key. A new formatted field
/// holds the text "FD", which has no valid padding until its dialog was saved once.
std::optional<TrackElement> TrackElementOfKey(const QString& key);
/// The nodes of the tree: the kinds, then the first `MostValuesListed` values of the last record,
/// then automatic numbers.
std::vector<ElementNode> TrackElementNodes(int fieldCount, int autoNumberCount);

/// The appearance of an element.
ElementLook LookOf(const TrackElement& element);

/// Reads the padding of a formatted field from its first three "^"-separated parts. A part that is
/// missing or not a number counts as 0; the field number is always 0.
PadResult ReadPad(const QString& linkItem);
/// The stored text of a formatted field.
QString PadText(const PadResult& pad);

/// Sets the text of a literal; an empty answer changes nothing.
void SetStaticText(TrackElement& element, const QString& answer);

} // namespace vantrel
