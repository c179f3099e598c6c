#pragma once

#include <QString>
#include <array>

namespace vantrel {

class CardDocument;

/// The four fields of an object's geometry, in the order of `SizeFields`.
enum class SizeField { Top, Left, Height, Width };
inline constexpr int SizeFieldCount = 4;

/// The texts of the fields, twips.
using SizeFields = std::array<QString, SizeFieldCount>;

/// The geometry of the selected object. Fails with `ObjectNotSet` where none is selected.
SizeFields SizeFieldsOfSelected(const CardDocument& document);

/// Adds one twip to the number in the text, or takes one off where it is at least 1. A text that is
/// no number counts as 0.
void StepUp(QString& field);
void StepDown(QString& field);

/// Gives all four numbers to the selected object and lays the grips around it. An object that has
/// gone meanwhile is passed over.
void ApplySizeFields(CardDocument& document, const SizeFields& fields);

} // namespace vantrel
