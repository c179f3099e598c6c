#include "FuzzInput.h"
#include "drawing/JpegMarkers.h"
#include "drawing/PictureFormats.h"
#include <algorithm>

// For a picture file of any bytes: the check for completeness never reads beyond the end. A JPEG
// stripped by `BareJpeg` is a complete JPEG, and stripping it again changes nothing.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace vantrel;
    const QByteArrayView file(data, static_cast<qsizetype>(size));
    const PictureFormat* format =
        FindPictureFormat(file.first(std::min(PictureHeadBytes, file.size())));
    if (format == nullptr || !format->IsWhole(file) || !ReadJpegMarkers(file))
        return 0;
    const QByteArray bare = BareJpeg(file);
    fuzz::Require(bare.size() <= file.size(), "nothing is added");
    fuzz::Require(ReadJpegMarkers(bare).has_value(), "a bare JPEG is whole");
    fuzz::Require(BareJpeg(bare) == bare, "a bare JPEG stays as it is");
    return 0;
}
