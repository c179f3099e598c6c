#pragma once

#include <QByteArrayView>

namespace vantrel {

/// Whether a file of the portable formats has all its pixels. Pixels that are written as numbers
/// must have a blank or line end behind the last: a cut number looks like a smaller one.
bool IsWholePnm(QByteArrayView file);

/// Whether a picture that is written as C source text reaches the end of its list.
bool IsWholeCText(QByteArrayView file);

} // namespace vantrel
