#pragma once

#include <QString>

namespace vantrel {

class Session;

/// @file The picture painted under all objects of a page, which prints with the card.

/// Gives the open page a back image from a picture file. The layout's parameters keep it at the
/// next save. A file that is missing changes nothing; one that is no picture leaves its path on the
/// document. Fails with nothing.
void SetBackImage(Session& session, const QString& path);

/// Drops both back images of the page and writes its parameters at once. Does nothing without a
/// layout. Fails like `SaveLayoutParams`.
void ClearBackImages(Session& session);

/// Gives the open page a back image from a PDF file by way of `ConvertAcrobatFile`, and tells the
/// operator where that fails. Without a conversion the page loses its first back image.
void ImportAcrobatFile(Session& session, const QString& path);

} // namespace vantrel
