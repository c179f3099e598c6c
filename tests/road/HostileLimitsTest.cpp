#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include "support/Events.h"
#include "support/Host.h"
#include <QFile>
#include <QThread>
#include <deque>
#include <gtest/gtest.h>
#include <sys/resource.h>

// Hosts that try to exhaust the station's descriptors or its stack.

namespace vantrel::test {
namespace {

/// Room for what a growing heap keeps.
constexpr int RoomMiB = 24;

TEST(HostileLimits, WaitingHostsAreServedWhenThoseThatHoldAllDescriptorsLeave)
{
    constexpr int descriptors = 64;
    constexpr int kept = descriptors / 4;
    constexpr int hosts = 200;
    StationFolder folder;
    folder.SetStatus("Visible", QStringLiteral("False"));
    const int port = folder.WithCapture();
    StationProcess station(folder.Session.ProgramFolder, {.BeforeProgram = [] {
                               const rlimit few{descriptors, descriptors};
                               ::setrlimit(RLIMIT_NOFILE, &few);
                           }});
    ASSERT_TRUE(station.WaitUntilItListens(port));
    SendRecord(port, "<Anna+1>");
    EXPECT_EQ(folder.TextOfCard(1), QStringLiteral("Anna 1"));
    const int before = station.OpenDescriptors();
    {
        std::deque<Host> idle;
        for (int count = 0; count < hosts; ++count) {
            idle.emplace_back(port);
            ASSERT_TRUE(idle.back().IsConnected()) << count;
        }
        // The station keeps some descriptors for its cards; hosts beyond them wait.
        EXPECT_TRUE(EventsUntil([&] { return station.OpenDescriptors() >= descriptors - kept; }));
        idle.front().Send("<Bert+2>");
        EXPECT_EQ(folder.TextOfCard(2), QStringLiteral("Bert 2"));
        EXPECT_LT(station.OpenDescriptors(), descriptors);
        // The waiting hosts are accepted at the next attempt.
        for (int count = 0; count < hosts - 20; ++count)
            idle.pop_front();
        EXPECT_TRUE(EventsUntil([&] { return station.OpenDescriptors() <= before + 20; }));
    }
    EXPECT_TRUE(EventsUntil([&] { return station.OpenDescriptors() <= before; }));
    SendRecord(port, "<Carl+3>");
    EXPECT_EQ(folder.TextOfCard(3), QStringLiteral("Carl 3"));
    EXPECT_TRUE(EventsUntil([&] { return station.OpenDescriptors() <= before; }));
}

/// A station whose operator is away, with a layout that asks for a picture at each record.
class HostileQuestion : public ::testing::Test
{
protected:
    HostileQuestion()
    {
        m_folder.AddCameraObject();
        m_port = m_folder.WithCapture();
        m_answer = m_folder.Session.PathInFolder(QStringLiteral("answer"));
        const StationStart start{
            .Environment = {
                {QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("minimal")},
                {QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(VANTREL_ANSWER_PLUGINS)},
                {QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("answer:") + m_answer}}};
        m_station.emplace(m_folder.Session.ProgramFolder, start);
        EXPECT_TRUE(m_station->WaitUntilItListens(m_port));
    }

    void Answer() const
    {
        QFile file(m_answer);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    }

    StationFolder m_folder;
    QString m_answer;
    int m_port = 0;
    std::optional<StationProcess> m_station;
};

TEST_F(HostileQuestion, AFloodOfRecordsWaitsWhileItIsOpenAndEndsNoStation)
{
    constexpr qsizetype records = 300;
    for (int count = 1; count <= records; ++count)
        SendRecord(m_port, "<Anna+" + QByteArray::number(count) + ">");
    EXPECT_TRUE(m_station->IsRunning());
    EXPECT_TRUE(m_folder.Cards().isEmpty());
    Answer();
    EXPECT_TRUE(EventsUntil([&] { return m_folder.Cards().size() == records; }))
        << m_folder.Cards().size();
    const int memory = m_station->MemoryMiB();
    const int descriptors = m_station->OpenDescriptors();
    for (int count = 1; count <= records; ++count)
        SendRecord(m_port, "<Bert+" + QByteArray::number(count) + ">");
    EXPECT_TRUE(EventsUntil([&] { return m_folder.Cards().size() == 2 * records; }))
        << m_folder.Cards().size();
    SendRecord(m_port, "<Carl+1>");
    EXPECT_EQ(m_folder.TextOfCard(2 * records + 1), QStringLiteral("Carl 1"));
    EXPECT_TRUE(EventsUntil([&] { return m_station->OpenDescriptors() <= descriptors; }));
    EXPECT_LE(m_station->MemoryMiB(), memory + RoomMiB);
}

} // namespace
} // namespace vantrel::test
