#pragma once

#include <QString>

namespace vantrel {

/// Waits until the names in a folder are on the disk: those of new files are safe then. Fails with
/// `PrinterError`, the folder and the system's reason. File systems that cannot do that for a
/// folder are taken to do it by themselves.
void SyncFolder(const QString& path);

/// Creates a folder and those above it where they are missing. What it created is on the disk when
/// it returns. Fails with `PrinterError`, the folder and the system's reason.
void MakeFolderDurably(const QString& path);

} // namespace vantrel
