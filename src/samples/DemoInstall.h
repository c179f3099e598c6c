#pragma once

#include <QString>

namespace vantrel {

/// Creates a program folder like `MakeRecommendedFolder`, with sample layouts, their pictures, and
/// settings with which session 1 captures on port 10001 and opens the member card. Fails like
/// `MakeProgramFolder`.
void MakeDemoFolder(const QString& folder);

} // namespace vantrel
