#pragma once

#include <QString>

namespace vantrel {

/// Converts the first page of a PDF file to a PNG in the program folder, at its own size and 300
/// dots to the inch. Does so only if "PdfImport" is True in the section "Station" of the settings
/// file. @return the path of the PNG, or the empty text if the import is off. Fails with
/// `InvalidPicture` if the file is broken, encrypted or empty or its page is too large, with
/// `PathNotFound` if the PNG cannot be written.
QString ConvertAcrobatFile(const QString& programFolder, const QString& path);

} // namespace vantrel
