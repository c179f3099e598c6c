#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

namespace vantrel::test {

/// A whole picture file, `SampleWidth` by `SampleHeight` pixels.
struct SamplePicture
{
    /// What it is, for the messages of a test.
    const char* Kind;
    /// As the table of formats names it.
    const char* Format;
    QByteArray Bytes;
};

inline constexpr int SampleWidth = 20;
inline constexpr int SampleHeight = 12;

/// One of each kind that a card takes, with all ways in which a kind packs its pixels.
std::vector<SamplePicture> SamplePictures();

/// A picture of several images, as a short film is.
QByteArray GifOfSeveralImages();

/// A drawing that shows another file of the machine as a part of itself.
QByteArray DrawingThatLinks(const QString& path);

} // namespace vantrel::test
