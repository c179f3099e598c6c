#pragma once

namespace vantrel {

class CardObject;

/// Raises an automatic number by one and shows it; any other object is left alone. Fails with
/// `TypeMismatch` where its current number is no number.
void Increment_If_AutoNumber(CardObject& object);

} // namespace vantrel
