#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

namespace vantrel::test {

/// A whole picture file, `SampleWidth` by `SampleHeight` pixels.
struct SamplePicture
{
    /// A description for the messages of a test.
    const char* Kind;
    /// Its name in the table of formats.
    const char* Format;
    QByteArray Bytes;
};

inline constexpr int SampleWidth = 20;
inline constexpr int SampleHeight = 12;

/// One file of each format that a card takes, with every compression of that format.
std::vector<SamplePicture> SamplePictures();

/// A picture of several images, as a short film is.
QByteArray GifOfSeveralImages();

/// A drawing that shows another file of the machine as a part of itself.
QByteArray DrawingThatLinks(const QString& path);

} // namespace vantrel::test
