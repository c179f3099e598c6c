#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <memory>

namespace vantrel {

/// What a picture file held. Immutable, shared by all who show or print it.
struct PictureData;

/// A picture value; a fresh one holds nothing. Cheap to copy.
class Picture
{
public:
    Picture() = default;
    explicit Picture(std::shared_ptr<const PictureData> data) : m_data(std::move(data)) {}
    /// A picture made from pixels, such as a camera's. A null image gives an empty picture.
    static Picture FromImage(const QImage& image);

    /// The handle is what tells a picture that holds something: 0 means nothing.
    bool HasHandle() const { return m_data != nullptr; }
    /// Own size in hundredths of a millimetre, 0 for an empty picture.
    int WidthHundredths() const;
    int HeightHundredths() const;
    /// The decoded pixels, a null image for an empty picture.
    QImage Image() const;
    const PictureData* Data() const { return m_data.get(); }

    friend bool operator==(const Picture&, const Picture&) = default;

private:
    std::shared_ptr<const PictureData> m_data;
};

/// Reads a picture file, through a cache keyed by path, size and modification time. The empty path
/// gives an empty picture. Fails with `FileNotFound` where there is no such file and
/// `InvalidPicture` where it holds no picture that can be read.
Picture LoadPicture(const QString& path);

} // namespace vantrel
