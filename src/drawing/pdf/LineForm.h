#pragma once

#include "base/Color.h"
#include <memory>

namespace vantrel {

class PdfFile;
struct ShapedLine;

/// Adds a line as a form, drawn by cairo with its own fonts: for lines that a `PdfFace` cannot
/// hold. The form's origin is the start of the line on its baseline. Its text can be searched and
/// copied. Fails with `PrinterError`; nothing of the line is in the file then.
/// @return the form's object number
int AddLineForm(PdfFile& file, const std::shared_ptr<const ShapedLine>& line, ColorValue color);

} // namespace vantrel
