#pragma once

#include <QByteArrayView>
#include <span>

namespace vantrel {

/// A kind of picture file that a card takes. All of them hold pixels: a drawing is no picture, for
/// it may name other files of the machine, which would come onto a card.
struct PictureFormat
{
    /// As the image readers of Qt call it.
    const char* Name;
    /// Told by the first `PictureHeadBytes` of a file, never by its name.
    bool (*IsOne)(QByteArrayView head);
    /// Readers fill up what a cut file lacks, so this is what tells a torn photo from a whole one.
    /// It costs time linear to the file.
    bool (*IsWhole)(QByteArrayView file);
};

inline constexpr qsizetype PictureHeadBytes = 32;

std::span<const PictureFormat> PictureFormats();

/// @return nothing for what is no picture
const PictureFormat* FindPictureFormat(QByteArrayView head);

} // namespace vantrel
