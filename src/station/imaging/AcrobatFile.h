#pragma once

#include <QString>

namespace vantrel {

/// Makes an image file of a PDF file. @return the path of a PNG in the program folder with the
/// first page at its own size and 300 dots to the inch, where "PdfImport" is True in the section
/// "Station" of the settings file; else the empty text. Fails with `InvalidPicture` where the file
/// is broken, encrypted, empty or its page too large, and with `PathNotFound` where the PNG cannot
/// be written.
QString ConvertAcrobatFile(const QString& programFolder, const QString& path);

} // namespace vantrel
