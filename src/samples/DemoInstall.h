#pragma once

#include <QString>

namespace vantrel {

/// Makes a program folder like `MakeProgramFolder`, and in it two layouts to begin with, their
/// pictures, and settings that let session 1 capture on port 10001 with the member card open. Fails
/// like `MakeProgramFolder`.
void MakeDemoFolder(const QString& folder);

} // namespace vantrel
