#include "road/LongSession.h"
#include "support/Memory.h"
#include <csignal>
#include <gtest/gtest.h>

namespace vantrel::test {

LongSession::LongSession(const StationFolder& folder, std::uint8_t session, int port,
                         StationStart start, unsigned seed)
    : Host(port, QString(QChar(u'A' + session)), Connections, seed),
      m_folder(folder.Session.ProgramFolder), m_port(port), m_start(std::move(start))
{
    m_start.Arguments = {QString::number(session)};
    Start();
}

void LongSession::Start()
{
    m_settled.reset();
    m_station = std::make_unique<StationProcess>(m_folder, m_start);
}

void LongSession::KillAndStart()
{
    m_station->SendSignal(SIGKILL);
    EXPECT_EQ(m_station->ExitCode(), -1);
    Start();
}

void LongSession::Measure()
{
    EXPECT_TRUE(m_station->WaitUntilItListens(m_port));
    MemoryMiB = m_station->MemoryMiB();
    Descriptors = m_station->OpenDescriptors();
    if (!m_settled)
        m_settled = {MemoryMiB, Descriptors};
    constexpr int room = MemoryRoom(24);
    constexpr int moreFiles = 16;
    EXPECT_LE(MemoryMiB, m_settled->first + room);
    EXPECT_LE(Descriptors, m_settled->second + moreFiles);
}

int LongSession::End()
{
    EXPECT_TRUE(m_station->WaitUntilItListens(m_port));
    m_station->SendSignal(SIGTERM);
    return m_station->ExitCode();
}

} // namespace vantrel::test
