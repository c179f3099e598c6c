#include "drawing/JpegDecoding.h"
#include "drawing/JpegMarkers.h"
#include <QByteArray>
#include <csetjmp>
#include <cstdio>
#include <jpeglib.h>

namespace vantrel {

namespace {

/// The decoder's way to fail, which jumps over its own frames only.
struct JpegErrors
{
    jpeg_error_mgr Base = {};
    std::jmp_buf Failed = {};
};

[[noreturn]] void OnError(j_common_ptr decoder)
{
    std::longjmp(reinterpret_cast<JpegErrors*>(decoder->err)->Failed, 1);
}

/// Damaged pixels are no reason to refuse a file.
void OnMessage(j_common_ptr /*decoder*/, int /*level*/) {}

/// Nothing in here has a destructor, since the decoder may jump out.
bool DecodeSmall(jpeg_decompress_struct& decoder, JpegErrors& errors, QByteArrayView file)
{
    if (setjmp(errors.Failed) != 0) // NOLINT(cert-err52-cpp)
        return false;
    jpeg_mem_src(&decoder, reinterpret_cast<const unsigned char*>(file.data()),
                 static_cast<unsigned long>(file.size()));
    jpeg_read_header(&decoder, TRUE);
    // The smallest picture that the decoder makes.
    decoder.scale_num = 1;
    decoder.scale_denom = 8;
    decoder.dct_method = JDCT_IFAST;
    decoder.do_fancy_upsampling = FALSE;
    jpeg_start_decompress(&decoder);
    JSAMPARRAY line = decoder.mem->alloc_sarray(
        reinterpret_cast<j_common_ptr>(&decoder), JPOOL_IMAGE,
        decoder.output_width * static_cast<JDIMENSION>(decoder.output_components), 1);
    while (decoder.output_scanline < decoder.output_height)
        jpeg_read_scanlines(&decoder, line, 1);
    jpeg_finish_decompress(&decoder);
    return true;
}

} // namespace

bool CanDecodeJpeg(QByteArrayView file)
{
    const QByteArray frame = JpegWithoutPixels(file);
    JpegErrors errors;
    jpeg_decompress_struct decoder = {};
    decoder.err = jpeg_std_error(&errors.Base);
    errors.Base.error_exit = OnError;
    errors.Base.emit_message = OnMessage;
    jpeg_create_decompress(&decoder);
    const bool isDecoded = DecodeSmall(decoder, errors, frame);
    jpeg_destroy_decompress(&decoder);
    return isDecoded;
}

} // namespace vantrel
