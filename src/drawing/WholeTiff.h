#pragma once

#include <QByteArrayView>

namespace vantrel {

/// Whether a TIFF file contains everything that it refers to: the pixels of every page and all
/// directories. Never throws.
bool IsWholeTiff(QByteArrayView file);

} // namespace vantrel
