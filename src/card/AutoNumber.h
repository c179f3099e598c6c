#pragma once

namespace vantrel {

class CardObject;

/// Raises an automatic number by one and shows the new number in its caption; does nothing to other
/// objects. Fails with `TypeMismatch` if its current number is not a number.
void Increment_If_AutoNumber(CardObject& object);

} // namespace vantrel
