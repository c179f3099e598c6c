#pragma once

#include "printers/WatchedJobs.h"
#include <QByteArray>
#include <atomic>
#include <chrono>
#include <cups/cups.h>
#include <optional>

namespace vantrel {

/// The server that libcups uses in a thread.
struct CupsServerAddress
{
    QByteArray Host;
    int Port = 0;
    http_encryption_t Encryption = HTTP_ENCRYPTION_IF_REQUESTED;

    /// That of the calling thread.
    static CupsServerAddress OfThisThread();
};

/// How long a request may last.
struct RequestLimit
{
    /// It is given up if the server is silent for so long altogether.
    std::chrono::milliseconds Patience{10000};
    /// It is given up soon after another thread sets this to another value than 0.
    int* Stop = nullptr;
};

/// Lists the jobs of all queues and of all states from a number on, in one request by a connection
/// of its own. Asks nobody for a password.
/// @return null if the server could not be reached, gave no answer or refused it
std::optional<JobListing> ListCupsJobs(const CupsServerAddress& server, int first, int atMost,
                                       const RequestLimit& limit);

} // namespace vantrel
