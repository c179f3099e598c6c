#pragma once

#include <QString>

namespace vantrel::test {

/// Makes every warning that nobody announced fail the running test. Installed by the test main.
void InstallWarningGuard();

/// Announces that one warning containing this text may come in the running test.
void AnnounceWarning(const QString& containing);

} // namespace vantrel::test
