#pragma once

#include <QByteArrayView>

namespace vantrel {

/// Whether a PNM file contains all its pixels. Pixels written as decimal numbers must be followed
/// by a blank or line end, because a truncated number looks like a smaller one.
bool IsWholePnm(QByteArrayView file);

/// Whether a picture in C source text (XBM, XPM) reaches the end of its list.
bool IsWholeCText(QByteArrayView file);

} // namespace vantrel
