#include "printers/DotsPerInch.h"
#include <QRegularExpression>
#include <numeric>

namespace vantrel {

namespace {

constexpr int LeastDots = 100;
constexpr int MostDots = 4800;
constexpr auto ResolutionAttribute = "printer-resolution";
constexpr double CentimetresPerInch = 2.54;

/// Dots such as "300dpi" or "300x600dpi", as drivers and print servers name them.
int DotsNamed(const char* name)
{
    static const QRegularExpression form(QStringLiteral("^(\\d{1,5})(?:x(\\d{1,5}))?dpi$"));
    const QRegularExpressionMatch match = form.match(QString::fromLatin1(name));
    if (!match.hasMatch())
        return 0;
    const int across = match.captured(1).toInt();
    return UsableDots(match.hasCaptured(2) ? std::gcd(across, match.captured(2).toInt()) : across);
}

int DefaultDots(cups_dest_t& queue, cups_dinfo_t& info)
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

} // namespace

int UsableDots(std::int64_t dotsPerInch)
{
    return dotsPerInch >= LeastDots && dotsPerInch <= MostDots ? static_cast<int>(dotsPerInch) : 0;
}

int DotsOfQueue(cups_dest_t& queue, cups_dinfo_t& info)
{
    // Filters give the driver's own option precedence.
    for (const char* option : {"Resolution", ResolutionAttribute}) {
        const char* value = cupsGetOption(option, queue.num_options, queue.options);
        const int dots = value == nullptr ? 0 : DotsNamed(value);
        if (dots > 0)
            return dots;
    }
    return DefaultDots(queue, info);
}

} // namespace vantrel
