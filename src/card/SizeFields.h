#pragma once

#include <QString>
#include <array>

namespace vantrel {

class CardDocument;

/// The fields of an object's position and size, in the order of `SizeFields`.
enum class SizeField { Top, Left, Height, Width };
inline constexpr int SizeFieldCount = 4;

/// The texts of the fields, in twips.
using SizeFields = std::array<QString, SizeFieldCount>;

/// Position and size of the selected object. Fails with `ObjectNotSet` if none is selected.
SizeFields SizeFieldsOfSelected(const CardDocument& document);

/// Add one twip to the number in the text, or subtract one if it is at least 1. A text that is not
/// a number counts as 0.
void StepUp(QString& field);
void StepDown(QString& field);

/// Sets position and size of the selected object and moves the grips. Does nothing if the object no
/// longer exists.
void ApplySizeFields(CardDocument& document, const SizeFields& fields);

} // namespace vantrel
