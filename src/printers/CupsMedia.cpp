#include "printers/CupsMedia.h"
#include <QTemporaryFile>
#include <cstdlib>
#include <cups/pwg.h>

namespace vantrel {

namespace {

constexpr auto MediaOption = "media";
constexpr auto PageSizeOption = "PageSize";
/// CUPS considers two sizes equal if both sides differ by less than this: five points, in
/// hundredths of a millimetre.
constexpr int Tolerance = 176;
constexpr auto SmallestSize = "custom_min_";
constexpr auto LargestSize = "custom_max_";

std::optional<SheetSize> SizeOf(const pwg_media_t* media)
{
    return media != nullptr && media->width > 0 && media->length > 0
               ? std::optional(SheetSize{media->width, media->length})
               : std::nullopt;
}

/// The size of a standard or self-describing media name, independent of the driver.
std::optional<SheetSize> SizeOfKnownName(const QByteArray& name)
{
    if (const auto size = SizeOf(pwgMediaForPWG(name.constData())))
        return size;
    if (const auto size = SizeOf(pwgMediaForLegacy(name.constData())))
        return size;
    return SizeOf(pwgMediaForPPD(name.constData()));
}

/// The media sizes of one queue.
class QueueSizes
{
public:
    QueueSizes(cups_dest_t& queue, cups_dinfo_t& info) : m_queue(queue), m_info(info) {}

    std::optional<QueueSheet> OfUser();
    std::optional<QueueSheet> OfServer();
    std::optional<QueueSheet> OfDriver();
    std::optional<QueueSheet> First();

private:
    const char* Option(const char* name) const
    {
        const char* value = cupsGetOption(name, m_queue.num_options, m_queue.options);
        return value == nullptr ? "" : value;
    }
    ipp_attribute_t* Default(const char* name) const
    {
        return cupsFindDestDefault(CUPS_HTTP_DEFAULT, &m_queue, &m_info, name);
    }
    const DriverSizes& Driver();
    std::optional<SheetSize> Named(const QByteArray& name);
    std::optional<cups_size_t> Nearest(const SheetSize& size) const;
    bool TakesOwn(const SheetSize& size) const;

    cups_dest_t& m_queue;
    cups_dinfo_t& m_info;
    std::optional<DriverSizes> m_driver;
};

/// Fetches the driver's description from the server on the first call.
const DriverSizes& QueueSizes::Driver()
{
    if (!m_driver) {
        m_driver.emplace();
        QTemporaryFile ppd;
        const QByteArray resource = QByteArrayLiteral("/printers/") + m_queue.name + ".ppd";
        if (ppd.open() &&
            cupsGetFd(CUPS_HTTP_DEFAULT, resource.constData(), ppd.handle()) == HTTP_STATUS_OK) {
            ppd.seek(0);
            m_driver.emplace(ppd);
        }
    }
    return *m_driver;
}

std::optional<cups_size_t> QueueSizes::Nearest(const SheetSize& wanted) const
{
    const int count = cupsGetDestMediaCount(CUPS_HTTP_DEFAULT, &m_queue, &m_info, 0);
    std::optional<cups_size_t> nearest;
    int leastOff = 2 * Tolerance;
    for (int i = 0; i < count; ++i) {
        cups_size_t size = {};
        if (cupsGetDestMediaByIndex(CUPS_HTTP_DEFAULT, &m_queue, &m_info, i, 0, &size) != 1)
            continue;
        const int width = std::abs(size.width - wanted.Width);
        const int length = std::abs(size.length - wanted.Length);
        if (width < Tolerance && length < Tolerance && width + length < leastOff) {
            leastOff = width + length;
            nearest = size;
        }
    }
    return nearest;
}

bool QueueSizes::TakesOwn(const SheetSize& size) const
{
    ipp_attribute_t* names =
        cupsFindDestSupported(CUPS_HTTP_DEFAULT, &m_queue, &m_info, CUPS_MEDIA);
    SheetSize least;
    SheetSize most;
    for (int i = 0; i < ippGetCount(names); ++i) {
        const QByteArray name(ippGetString(names, i, nullptr));
        if (name.startsWith(SmallestSize))
            least = SizeOfKnownName(name).value_or(SheetSize());
        else if (name.startsWith(LargestSize))
            most = SizeOfKnownName(name).value_or(SheetSize());
    }
    return size.Width >= least.Width && size.Width <= most.Width && size.Length >= least.Length &&
           size.Length <= most.Length;
}

/// The size of a media name, resolved as the print server does; nothing if the queue does not
/// support it.
std::optional<SheetSize> QueueSizes::Named(const QByteArray& name)
{
    if (const auto size = Driver().Named(name))
        return size;
    const auto size = SizeOfKnownName(name);
    if (!size)
        return std::nullopt;
    if (const auto nearest = Nearest(*size))
        return SheetSize{nearest->width, nearest->length};
    return TakesOwn(*size) ? size : std::nullopt;
}

/// The size that a user has set for the queue. Filters give the page size precedence over the
/// media; the media can be a list that also names a tray or a material.
std::optional<QueueSheet> QueueSizes::OfUser()
{
    const QByteArray pageSize(Option(PageSizeOption));
    const QByteArray media(Option(MediaOption));
    if (const auto size = pageSize.isEmpty() ? std::nullopt : Named(pageSize)) {
        QueueSheet sheet{*size, {{PageSizeOption, pageSize}}};
        if (!media.isEmpty())
            sheet.Options.push_back({MediaOption, media});
        return sheet;
    }
    for (const QByteArray& name : media.split(',')) {
        if (const auto size = name.isEmpty() ? std::nullopt : Named(name))
            return QueueSheet{*size, {{MediaOption, media}}};
    }
    return std::nullopt;
}

/// The server's default size. `cupsGetDestMediaDefault` is not used because for sizes that only the
/// driver defines it returns the first one.
std::optional<QueueSheet> QueueSizes::OfServer()
{
    if (ipp_attribute_t* collection = Default("media-col");
        ippGetValueTag(collection) == IPP_TAG_BEGIN_COLLECTION) {
        ipp_attribute_t* sides = ippFindAttribute(ippGetCollection(collection, 0), "media-size",
                                                  IPP_TAG_BEGIN_COLLECTION);
        ipp_t* size = ippGetCollection(sides, 0);
        const auto side = [size](const char* name) {
            return ippGetInteger(ippFindAttribute(size, name, IPP_TAG_INTEGER), 0);
        };
        const SheetSize sheet{side("x-dimension"), side("y-dimension")};
        if (sheet.Width > 0 && sheet.Length > 0)
            return QueueSheet{sheet, {}};
    }
    const char* name = ippGetString(Default(MediaOption), 0, nullptr);
    const auto size = name == nullptr ? std::nullopt : Named(name);
    return size ? std::optional(QueueSheet{*size, {}}) : std::nullopt;
}

/// The driver's default size. For a driverless printer with borderless sizes only, the server has
/// no default and would print a job without a media option on office paper.
std::optional<QueueSheet> QueueSizes::OfDriver()
{
    const auto size = Named(Driver().DefaultName());
    const auto nearest = size ? Nearest(*size) : std::nullopt;
    return nearest ? std::optional(QueueSheet{{nearest->width, nearest->length},
                                              {{MediaOption, QByteArray(nearest->media)}}})
                   : std::nullopt;
}

std::optional<QueueSheet> QueueSizes::First()
{
    cups_size_t size = {};
    return cupsGetDestMediaDefault(CUPS_HTTP_DEFAULT, &m_queue, &m_info, 0, &size) == 1 &&
                   size.width > 0 && size.length > 0
               ? std::optional(
                     QueueSheet{{size.width, size.length}, {{MediaOption, QByteArray(size.media)}}})
               : std::nullopt;
}

} // namespace

std::optional<QueueSheet> SheetOfQueue(cups_dest_t& queue, cups_dinfo_t& info)
{
    QueueSizes sizes(queue, info);
    for (const auto sheet :
         {&QueueSizes::OfUser, &QueueSizes::OfServer, &QueueSizes::OfDriver, &QueueSizes::First}) {
        if (auto found = (sizes.*sheet)())
            return found;
    }
    return std::nullopt;
}

} // namespace vantrel
