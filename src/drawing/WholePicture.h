#pragma once

#include <QByteArrayView>

namespace vantrel {

// Each returns whether a file of its format is as long as its own structure says. They never throw,
// whatever the file contains, and ignore bytes after the end.

bool IsWholePng(QByteArrayView file);
bool IsWholeGif(QByteArrayView file);
bool IsWholeWebP(QByteArrayView file);
/// Icons and cursors; all their pictures must be complete.
bool IsWholeIcon(QByteArrayView file);

} // namespace vantrel
