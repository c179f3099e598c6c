#include "FuzzInput.h"
#include "drawing/JpegMarkers.h"
#include "drawing/PictureFormats.h"
#include <algorithm>

// A file of any bytes where a picture should be: whether it is whole is told without reading beyond
// it. What is left of a JPEG once it is bare is a whole JPEG, and bare.

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
