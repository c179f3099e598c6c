#pragma once

#include "road/BurstHost.h"
#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include <QString>
#include <memory>
#include <optional>
#include <utility>

namespace vantrel::test {

/// A session of a long run, its host, and what the process takes of the machine while it lives.
class LongSession
{
public:
    LongSession(const StationFolder& folder, std::uint8_t session, int port, StationStart start,
                unsigned seed);

    void KillAndStart();
    /// Notes what the process takes. Once it has settled, it must not take more and more.
    void Measure();
    /// @return its exit code
    int End();

    BurstHost Host;
    int MemoryMiB = 0;
    int Descriptors = 0;

private:
    static constexpr std::size_t Connections = 3;

    void Start();

    QString m_folder;
    int m_port;
    StationStart m_start;
    std::unique_ptr<StationProcess> m_station;
    std::optional<std::pair<int, int>> m_settled;
};

} // namespace vantrel::test
