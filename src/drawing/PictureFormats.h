#pragma once

#include <QByteArrayView>
#include <span>

namespace vantrel {

/// A supported picture file format. All formats hold pixels. Vector drawings are not supported
/// because they can refer to other files of the machine, which would then appear on a card.
struct PictureFormat
{
    /// Name of Qt's image reader for the format.
    const char* Name;
    /// Endings that its files usually have, in small letters with blanks between.
    const char* Endings;
    /// Whether the first `PictureHeadBytes` of a file are of this format.
    bool (*IsOne)(QByteArrayView head);
    /// Whether the file is complete. Image readers fill in missing pixels, so a truncated photo
    /// must be detected before. Time is linear in the file size.
    bool (*IsWhole)(QByteArrayView file);
};

inline constexpr qsizetype PictureHeadBytes = 32;

/// All supported formats.
std::span<const PictureFormat> PictureFormats();

/// @return the format of a file by its first bytes, or null if it is not a supported picture
const PictureFormat* FindPictureFormat(QByteArrayView head);

} // namespace vantrel
