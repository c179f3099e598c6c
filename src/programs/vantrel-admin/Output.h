#pragma once

#include <QByteArray>

namespace vantrel::admin {

/// Writes to the standard output. Fails with `PathNotFound` if it cannot be written, as on a full
/// disk.
void WriteOutput(const QByteArray& bytes);
/// Writes what waits in the standard output's buffer. Fails like `WriteOutput`.
void FlushOutput();

} // namespace vantrel::admin
