#pragma once

#include <QString>

namespace vantrel {

class CardDocument;

/// Puts a picture file into the selected image object, which takes the picture's own size in
/// hundredths of a millimetre as its size in twips, and so comes in at 57 percent. A file that is
/// no picture, or no image object selected, changes nothing. Fails with nothing.
void ChooseImage(CardDocument& document, const QString& path);

} // namespace vantrel
