#pragma once

#include <QString>

namespace vantrel {

/// What became of a finished file that was to be put in place.
enum class PlaceResult { Placed, NameTaken, Failed };

/// Gives a finished file its name, in one step and without ever replacing a file of that name. Both
/// paths are in one folder. Where it is not placed the finished file stays under its own name.
PlaceResult PlaceFile(const QString& finished, const QString& name);

} // namespace vantrel
