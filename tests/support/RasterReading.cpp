#include "support/RasterReading.h"
#include <QFile>
#include <cups/raster.h>
#include <gtest/gtest.h>
#include <memory>

namespace vantrel::test {

namespace {

struct RasterCloser
{
    void operator()(cups_raster_t* raster) const { cupsRasterClose(raster); }
};

} // namespace

QImage ImageOfRaster(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    const std::unique_ptr<cups_raster_t, RasterCloser> raster(
        cupsRasterOpen(file.handle(), CUPS_RASTER_READ));
    cups_page_header2_t page = {};
    if (!raster || cupsRasterReadHeader2(raster.get(), &page) == 0 || page.cupsBitsPerPixel != 24) {
        ADD_FAILURE() << "no page of dots in " << path.toStdString();
        return {};
    }
    QImage image(static_cast<int>(page.cupsWidth), static_cast<int>(page.cupsHeight),
                 QImage::Format_RGB888);
    QByteArray line(static_cast<qsizetype>(page.cupsBytesPerLine), '\0');
    for (int y = 0; y < image.height(); ++y) {
        auto* bytes = reinterpret_cast<unsigned char*>(line.data());
        EXPECT_EQ(cupsRasterReadPixels(raster.get(), bytes, page.cupsBytesPerLine),
                  page.cupsBytesPerLine);
        std::copy_n(bytes, 3 * image.width(), image.scanLine(y));
    }
    return image;
}

} // namespace vantrel::test
