#pragma once

#include <vector>

namespace vantrel {

class CardDocument;
class CardObject;

/// @file Placing several objects of a page at once. None of this fails; with no object it does
/// nothing.

/// The selected objects in stacking order; empty if none is selected.
std::vector<CardObject*> SelectedObjects(const CardDocument& document);
bool IsSelected(const CardDocument& document, const CardObject& object);

/// Moves objects, in twips.
void MoveObjects(const std::vector<CardObject*>& objects, float right, float down);

/// The line on which objects are put: a side or the middle of what they take together.
enum class AlignLine { Left, Middle, Right, Top, Centre, Bottom };
/// Puts objects on one line. A single one is put on that line of the card.
void AlignObjects(const CardDocument& document, const std::vector<CardObject*>& objects,
                  AlignLine line);

enum class SpreadAxis { Across, Down };
/// Gives three or more objects gaps of one size between the two outermost ones, in whole twips.
void SpreadObjects(const std::vector<CardObject*>& objects, SpreadAxis axis);

enum class StackMove { ToFront, Up, Down, ToBack };
/// Moves the selected objects in the stacking order; what they cover among themselves stays.
void RestackSelected(CardDocument& document, StackMove move);

} // namespace vantrel
