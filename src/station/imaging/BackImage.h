#pragma once

#include <QString>

namespace vantrel {

class Session;

/// @file The back image of a page, which is printed under all objects.

/// Sets a picture file as the back image of the open page; the next save stores it. A missing file
/// changes nothing; the path of a file that is not a picture stays on the document. Never fails.
void SetBackImage(Session& session, const QString& path);

/// Clears both back images of the page and stores its parameters at once. Does nothing without a
/// layout. Fails like `SaveLayoutParams`.
void ClearBackImages(Session& session);

/// Sets a PDF file, converted by `ConvertAcrobatFile`, as the back image of the open page. A failed
/// conversion is reported to the operator. If the import is off, the page's first back image is
/// removed.
void ImportAcrobatFile(Session& session, const QString& path);

} // namespace vantrel
