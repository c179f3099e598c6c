#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <memory>

namespace vantrel {

/// The decoded contents of a picture file. Immutable and shared by all users of the picture.
struct PictureData;

/// A picture; default-constructed it is empty. Cheap to copy.
class Picture
{
public:
    Picture() = default;
    explicit Picture(std::shared_ptr<const PictureData> data) : m_data(std::move(data)) {}
    /// Makes a picture from pixels, such as a camera image. A null image gives an empty picture.
    /// Fails with `InvalidPicture` if the image is too large for the renderer.
    static Picture FromImage(const QImage& image);

    /// Whether the picture is not empty.
    bool HasHandle() const { return m_data != nullptr; }
    /// Natural size in hundredths of a millimetre, 0 for an empty picture.
    int WidthHundredths() const;
    int HeightHundredths() const;
    /// Size in pixels as it is shown, empty for an empty picture. Decodes nothing.
    QSize SizeInPixels() const;
    /// The decoded pixels, a null image for an empty picture.
    QImage Image() const;
    const PictureData* Data() const { return m_data.get(); }

    friend bool operator==(const Picture&, const Picture&) = default;

private:
    std::shared_ptr<const PictureData> m_data;
};

/// Reads a picture file through a cache that notices changed files. An empty path gives an empty
/// picture. Fails with `FileNotFound` if the file does not exist, with `InvalidPicture` if it is
/// not a supported picture, is truncated or is too large.
Picture LoadPicture(const QString& path);

/// Reads the picture of an open file through the same cache. Fails with `InvalidPicture`.
/// @param path  the file's name for the cache; it is not opened by it
Picture LoadPicture(int descriptor, const QString& path);

/// Sets how much memory the cache of `LoadPicture` may take, in KiB; at first 256 MiB. For programs
/// that see each photo only once.
void LimitPictureCache(int kib);

} // namespace vantrel
