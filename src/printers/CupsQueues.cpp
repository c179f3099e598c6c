#include "printers/CupsQueues.h"

namespace vantrel {

namespace {

/// Called by libcups for each queue. Instances are option sets of users and not printers.
int KeepQueue(void* kept, unsigned flags, cups_dest_t* destination)
{
    if ((flags & CUPS_DEST_FLAGS_REMOVED) == 0 && destination->instance == nullptr) {
        cups_dest_t* copy = nullptr;
        if (cupsCopyDest(destination, 0, &copy) == 1)
            static_cast<std::vector<CupsDestination>*>(kept)->emplace_back(copy);
    }
    return 1;
}

} // namespace

std::vector<CupsDestination> ListCupsQueues()
{
    std::vector<CupsDestination> queues;
    // This mask excludes discovered printers; otherwise libcups browses the network for seconds.
    constexpr cups_ptype_t notDiscovered = 0;
    cupsEnumDests(CUPS_DEST_FLAGS_NONE, 0, nullptr, notDiscovered, CUPS_PRINTER_DISCOVERED,
                  KeepQueue, &queues);
    return queues;
}

CupsDestination FindCupsQueue(const QString& name)
{
    const QByteArray wanted = name.toUtf8();
    for (CupsDestination& queue : ListCupsQueues()) {
        if (wanted == queue->name)
            return std::move(queue);
    }
    return nullptr;
}

} // namespace vantrel
