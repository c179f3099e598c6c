#pragma once

#include <QString>

namespace vantrel {

/// Outcome of `PlaceFile`.
enum class PlaceResult { Placed, NameTaken, Failed };

/// Renames a finished file atomically and never replaces an existing one. Both paths must be in the
/// same folder. On `NameTaken` and `Failed` (`errno` holds the reason) the file keeps the name
/// `finished`.
PlaceResult PlaceFile(const QString& finished, const QString& name);

} // namespace vantrel
