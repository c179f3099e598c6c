#pragma once

#include <QString>

namespace vantrel {

class CardDocument;

/// Loads a picture file into the selected image object. The picture's size in hundredths of a
/// millimetre becomes the object's size in twips, so it appears at 57 percent of its own size.
/// Nothing changes if the file is not a picture or no image object is selected. Never fails.
void ChooseImage(CardDocument& document, const QString& path);

/// Loads a picture file into the selected image object, which keeps its box. The picture keeps its
/// proportions: an object that would stretch it shows the whole of it from then on. Otherwise as
/// `ChooseImage`.
void ChooseImageForBox(CardDocument& document, const QString& path);

} // namespace vantrel
