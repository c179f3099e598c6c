#pragma once

#include <QByteArrayView>

namespace vantrel {

// Each tells whether a file of its format reaches as far as it says itself. None fails, whatever
// the file holds; what stands behind the end does not matter.

bool IsWholePng(QByteArrayView file);
bool IsWholeGif(QByteArrayView file);
bool IsWholeWebP(QByteArrayView file);
/// Icons and cursors, with all their pictures.
bool IsWholeIcon(QByteArrayView file);

} // namespace vantrel
