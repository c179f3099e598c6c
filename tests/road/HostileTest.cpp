#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include "support/Events.h"
#include "support/Host.h"
#include <QThread>
#include <deque>
#include <gtest/gtest.h>
#include <random>
#include <sys/resource.h>

namespace vantrel::test {
namespace {

/// A station that captures, and hosts that send it harmful input.
class HostileNetwork : public ::testing::Test
{
protected:
    HostileNetwork() : m_port(Folder.WithCapture()), Station(Folder.Session.ProgramFolder)
    {
        EXPECT_TRUE(Station.WaitUntilItListens(m_port));
        // The first card loads resources that every later one uses.
        ExpectTheNextRecordPrints();
        EXPECT_TRUE(Station.WaitUntilHostsHaveLeft(m_port));
        m_descriptors = Station.OpenDescriptors();
        m_memory = Station.MemoryMiB();
    }

    void ExpectTheNextRecordPrints()
    {
        ++m_cards;
        SendRecord(m_port, "<Anna+" + QByteArray::number(m_cards) + ">");
        EXPECT_EQ(Folder.TextOfCard(m_cards), QStringLiteral("Anna %1").arg(m_cards));
    }
    /// Whether the station holds no more than before, and goes on to: hosts that wait to be
    /// accepted are not seen at once.
    bool HostsAreGone() const
    {
        return EventsUntil([&] {
            for (int look = 0; look < 5; ++look) {
                if (Station.OpenDescriptors() > m_descriptors)
                    return false;
                QThread::msleep(40);
            }
            return true;
        });
    }
    void ExpectNothingIsLeft()
    {
        EXPECT_TRUE(HostsAreGone()) << Station.OpenDescriptors() << " of " << m_descriptors;
        // Room for what a growing heap keeps; a leak of what was sent would be several times that.
        constexpr int room = 24;
        EXPECT_TRUE(EventsUntil([&] { return Station.MemoryMiB() <= m_memory + room; }))
            << Station.MemoryMiB() << " of " << m_memory;
    }
    /// Sends while the station reads.
    static void SendAll(const Host& host, const QByteArray& bytes)
    {
        constexpr qsizetype piece = 1 << 16;
        for (qsizetype from = 0; from < bytes.size(); from += piece)
            host.Send(bytes.mid(from, piece));
    }

    StationFolder Folder;
    int m_port;
    StationProcess Station;

private:
    int m_cards = 0;
    int m_descriptors = 0;
    int m_memory = 0;
};

TEST_F(HostileNetwork, RandomBytesMakeNoRecordAndDelayNone)
{
    std::mt19937 random(11);
    std::uniform_int_distribution<int> byte(0, 255);
    for (int round = 0; round < 20; ++round) {
        QByteArray bytes(4096, Qt::Uninitialized);
        // Without the end of a record, so that no card is made of it.
        for (char& each : bytes) {
            const int value = byte(random);
            each = static_cast<char>(value == '>' ? 0 : value);
        }
        Host host(m_port);
        SendAll(host, bytes);
        host.Close();
    }
    // The close of the last host empties the buffer; a record that another host has begun before
    // that is lost.
    EXPECT_TRUE(HostsAreGone());
    ExpectTheNextRecordPrints();
    ExpectNothingIsLeft();
}

TEST_F(HostileNetwork, ARecordThatTricklesInIsWhole)
{
    const Host host(m_port);
    for (const char each : QByteArray("<Anna+2>")) {
        host.Send(QByteArray(1, each));
        QThread::msleep(20);
    }
    EXPECT_EQ(Folder.TextOfCard(2), QStringLiteral("Anna 2"));
}

TEST_F(HostileNetwork, AThousandIdleHostsLeaveWhenTheyLike)
{
    rlimit files{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &files), 0);
    files.rlim_cur = std::min<rlim_t>(files.rlim_max, 4096);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &files), 0);
    {
        std::deque<Host> hosts;
        for (int count = 0; count < 1000; ++count) {
            hosts.emplace_back(m_port);
            ASSERT_TRUE(hosts.back().IsConnected()) << count;
        }
    }
    ExpectNothingIsLeft();
    ExpectTheNextRecordPrints();
}

TEST_F(HostileNetwork, HostsThatConnectAndResetDoNoHarm)
{
    for (int count = 0; count < 500; ++count) {
        Host host(m_port);
        host.Send("<half");
        host.Reset();
    }
    ExpectNothingIsLeft();
    ExpectTheNextRecordPrints();
}

TEST_F(HostileNetwork, MegabytesWithoutAnEndGiveTheirMemoryBack)
{
    {
        const Host host(m_port);
        host.Send("<");
        const QByteArray mebibyte(1 << 20, 'x');
        for (int count = 0; count < 64; ++count)
            SendAll(host, mebibyte);
    }
    // The raw view shows what came last until the next record, and the first one may still have
    // come behind the flood.
    EXPECT_TRUE(HostsAreGone());
    ExpectTheNextRecordPrints();
    ExpectTheNextRecordPrints();
    ExpectNothingIsLeft();
}

} // namespace
} // namespace vantrel::test
