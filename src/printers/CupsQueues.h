#pragma once

#include <QString>
#include <cups/cups.h>
#include <memory>
#include <vector>

namespace vantrel {

/// Frees a destination of libcups.
struct CupsDestinationDeleter
{
    void operator()(cups_dest_t* destination) const { cupsFreeDests(1, destination); }
};
using CupsDestination = std::unique_ptr<cups_dest_t, CupsDestinationDeleter>;

/// Frees the destination information of libcups.
struct CupsInfoDeleter
{
    void operator()(cups_dinfo_t* info) const { cupsFreeDestInfo(info); }
};
using CupsInfo = std::unique_ptr<cups_dinfo_t, CupsInfoDeleter>;

/// The queues of the machine's CUPS server in its order; the default one is marked. The network is
/// not browsed. Never fails; without a server the list is empty.
std::vector<CupsDestination> ListCupsQueues();

/// @return the queue of that name, or null. Never fails
CupsDestination FindCupsQueue(const QString& name);

} // namespace vantrel
