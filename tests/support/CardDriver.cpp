#include "support/CardDriver.h"
#include <QString>

namespace vantrel::test {

namespace {

constexpr auto Beginning = R"ppd(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "CARD.PPD"
*Manufacturer: "Test"
*Product: "(Card)"
*ModelName: "Test Card"
*ShortNickName: "Test Card"
*NickName: "Test Card"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*cupsVersion: 2.4
)ppd";

constexpr auto PdfTaken = R"ppd(*cupsFilter2: "application/pdf application/pdf 0 -"
)ppd";

constexpr auto DotsTaken =
    R"ppd(*cupsFilter2: "application/vnd.cups-raster application/vnd.cups-raster 0 -"
*OpenUI *Resolution/Resolution: PickOne
*DefaultResolution: DOTSdpi
*Resolution DOTSdpi/DOTS DPI: "<</HWResolution[DOTS DOTS]>>setpagedevice"
*Resolution 1200dpi/1200 DPI: "<</HWResolution[1200 1200]>>setpagedevice"
*CloseUI: *Resolution
*OpenUI *ColorModel/Color Model: PickOne
*DefaultColorModel: RGB
*ColorModel RGB/Color: "<</cupsColorSpace 1/cupsColorOrder 0/cupsBitsPerColor 8>>setpagedevice"
*CloseUI: *ColorModel
)ppd";

constexpr auto AnySizeTaken = R"ppd(*VariablePaperSize: True
*MaxMediaWidth: "500"
*MaxMediaHeight: "500"
*HWMargins: 0 0 0 0
*CustomPageSize True: "pop pop pop <</PageSize[5 -2 roll]/ImagingBBox null>>setpagedevice"
*ParamCustomPageSize Width: 1 points 72 500
*ParamCustomPageSize Height: 2 points 72 500
*ParamCustomPageSize WidthOffset: 3 points 0 0
*ParamCustomPageSize HeightOffset: 4 points 0 0
*ParamCustomPageSize Orientation: 5 int 0 0
)ppd";

QByteArray Sides(const DriverSize& size)
{
    return QByteArray::number(size.Width) + ' ' + QByteArray::number(size.Length);
}

/// A keyword of the description for each of the sizes.
template <typename Value>
QByteArray ForEachSize(const CardDriver& driver, const QByteArray& keyword, Value value)
{
    QByteArray lines = "*Default" + keyword + ": " + driver.Default + '\n';
    for (const DriverSize& size : driver.Sizes)
        lines +=
            '*' + keyword + ' ' + size.Name + '/' + size.Name + " card: \"" + value(size) + "\"\n";
    return lines;
}

QByteArray Choice(const CardDriver& driver, const QByteArray& keyword)
{
    return "*OpenUI *" + keyword + "/Media Size: PickOne\n" +
           ForEachSize(driver, keyword,
                       [](const DriverSize& size) -> QByteArray {
                           return "<</PageSize[" + Sides(size) +
                                  "]/ImagingBBox null>>setpagedevice";
                       }) +
           "*CloseUI: *" + keyword + '\n';
}

} // namespace

QByteArray PpdOf(const CardDriver& driver)
{
    QByteArray ppd = Beginning;
    ppd += driver.TakesDots
               ? QByteArray(DotsTaken).replace("DOTS", QByteArray::number(driver.DotsPerInch))
               : QByteArray(PdfTaken);
    ppd += Choice(driver, "PageSize") + Choice(driver, "PageRegion");
    ppd += ForEachSize(driver, "ImageableArea", [&driver](const DriverSize& size) -> QByteArray {
        const QByteArray margin = QByteArray::number(driver.Margin);
        const DriverSize edge{{}, size.Width - driver.Margin, size.Length - driver.Margin};
        return margin + ' ' + margin + ' ' + Sides(edge);
    });
    ppd += ForEachSize(driver, "PaperDimension", Sides);
    if (driver.TakesAnySize)
        ppd += AnySizeTaken;
    return ppd;
}

} // namespace vantrel::test
