#include "printers/DotsPerInch.h"
#include <QtGlobal>
#include <numeric>

namespace vantrel {

namespace {

constexpr int LeastDots = 100;
constexpr int MostDots = 4800;
constexpr auto ResolutionAttribute = "printer-resolution";
constexpr double CentimetresPerInch = 2.54;

} // namespace

int UsableDots(std::int64_t dotsPerInch)
{
    return dotsPerInch >= LeastDots && dotsPerInch <= MostDots ? static_cast<int>(dotsPerInch) : 0;
}

int DotsOfQueue(cups_dest_t& queue, cups_dinfo_t& info)
{
    ipp_attribute_t* told =
        cupsFindDestDefault(CUPS_HTTP_DEFAULT, &queue, &info, ResolutionAttribute);
    if (ippGetValueTag(told) != IPP_TAG_RESOLUTION)
        return 0;
    int down = 0;
    ipp_res_t unit = IPP_RES_PER_INCH;
    const int across = ippGetResolution(told, 0, &down, &unit);
    const int both = std::gcd(across, down);
    return UsableDots(unit == IPP_RES_PER_CM ? qRound(both * CentimetresPerInch) : both);
}

} // namespace vantrel
