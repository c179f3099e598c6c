#pragma once

#include <QByteArrayView>

namespace vantrel {

/// Whether all that a TIFF file names is in it: every page with its pixels, and what belongs to
/// pages.
bool IsWholeTiff(QByteArrayView file);

} // namespace vantrel
