#pragma once

#include "card/PadResult.h"
#include "card/TrackFormula.h"
#include "station/compose/ComposerElement.h"
#include <optional>

namespace vantrel {

/// @file A track's formula as the row of elements in which it is composed. Reader and writer do not
/// agree: check digits and automatic numbers are read, and left out of what is written.

/// One element of a row.
struct TrackElement
{
    TokenKind Kind = TokenKind::DataField;
    /// Its stored text; of a formatted field what stands behind "FD".
    QString LinkItem;
    QString ToolTipText;
};

using TrackElements = std::vector<TrackElement>;

/// An element as it comes onto a row, its tool tip telling its text.
TrackElement MakeTrackElement(TokenKind kind, const QString& text);

/// Reads a formula: one element for each token, empty ones among them. Words are looked for
/// anywhere in a token, separators before check digits, which is not the order of the evaluation.
TrackElements ReadTrackElements(const QString& formula);
/// Writes a row as a formula, without its check digits and automatic numbers. Nothing is escaped.
QString WriteTrackElements(const TrackElements& elements);

/// The element that a drop of this key makes; none for any other key. A new formatted field holds
/// the word "FD", which is no padding until it has been opened once.
std::optional<TrackElement> TrackElementOfKey(const QString& key);
/// The nodes to drag: kinds, then the values of the last record, then automatic numbers.
std::vector<ElementNode> TrackElementNodes(int fieldCount, int autoNumberCount);

ElementLook LookOf(const TrackElement& element);

/// Reads how a formatted field pads: the first three of its "^"-separated parts. A part that is
/// missing or no number is 0, and so is the field.
PadResult ReadPad(const QString& linkItem);
/// The stored text of a formatted field.
QString PadText(const PadResult& pad);

/// Gives a literal its text; the empty answer changes nothing.
void SetStaticText(TrackElement& element, const QString& answer);

} // namespace vantrel
