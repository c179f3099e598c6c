#pragma once

#include <QString>
#include <cups/cups.h>
#include <memory>
#include <vector>

namespace vantrel {

struct CupsDestinationDeleter
{
    void operator()(cups_dest_t* destination) const { cupsFreeDests(1, destination); }
};
using CupsDestination = std::unique_ptr<cups_dest_t, CupsDestinationDeleter>;

struct CupsInfoDeleter
{
    void operator()(cups_dinfo_t* info) const { cupsFreeDestInfo(info); }
};
using CupsInfo = std::unique_ptr<cups_dinfo_t, CupsInfoDeleter>;

/// The queues of the machine's CUPS server in its order, the default one marked. The network is not
/// browsed. Without a server there are none.
std::vector<CupsDestination> ListCupsQueues();

/// @return the queue of that name, or nothing
CupsDestination FindCupsQueue(const QString& name);

} // namespace vantrel
