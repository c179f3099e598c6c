#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include "support/Events.h"
#include "support/Host.h"
#include "support/Memory.h"
#include <QDir>
#include <QFileInfo>
#include <QThread>
#include <csignal>
#include <gtest/gtest.h>
#include <optional>

namespace vantrel::test {
namespace {

/// A station that keeps every record and answers its hosts.
class ManyRecords : public ::testing::Test
{
protected:
    ManyRecords()
    {
        Folder.SetOption("KeepEveryRecord", QStringLiteral("True"));
        Folder.SetOption("AnswerHost", QStringLiteral("True"));
        m_port = Folder.WithCapture();
        // A visible station lets events run after each page.
        Folder.SetStatus("Visible", QStringLiteral("False"));
        Station.emplace(Folder.Session.ProgramFolder);
        EXPECT_TRUE(Station->WaitUntilItListens(m_port));
    }

    /// Records whose second value counts from this number.
    static QByteArray Records(int from, int to)
    {
        QByteArray records;
        for (int number = from; number <= to; ++number)
            records += "<Anna+" + QByteArray::number(number) + ">\n";
        return records;
    }
    static QByteArray Answers(int from, int to)
    {
        QByteArray answers;
        for (int number = from; number <= to; ++number)
            answers += "OK " + QByteArray::number(number) + " 1\r\n";
        return answers;
    }
    /// Waits until this is all that a host has received.
    static void ExpectAnswers(const Host& host, const QByteArray& answers)
    {
        QByteArray received;
        EXPECT_TRUE(EventsUntil([&] {
            received += host.Received();
            return received.size() >= answers.size();
        }));
        EXPECT_EQ(received, answers);
    }
    /// Removes the first cards, except for the newest: the station counts on from the highest.
    void RemoveCardsBelow(int number)
    {
        for (; m_oldest < number; ++m_oldest)
            EXPECT_TRUE(QFile::remove(Folder.PathOfCard(m_oldest)));
    }
    int Port() const { return m_port; }

    StationFolder Folder;
    std::optional<StationProcess> Station;

private:
    int m_port = 0;
    int m_oldest = 1;
};

TEST_F(ManyRecords, TenInOneSendMakeTenCardsInTheirOrderAndAreAnsweredEach)
{
    const Host host(Port());
    host.Send(Records(1, 10));
    ExpectAnswers(host, Answers(1, 10));
    for (int card = 1; card <= 10; ++card)
        EXPECT_EQ(Folder.TextOfCard(card), QStringLiteral("Anna %1").arg(card));
    EXPECT_EQ(Folder.Cards().size(), 10);
}

TEST_F(ManyRecords, HalvesOfTwoHostsMakeTwoRightCards)
{
    const Host first(Port());
    const Host second(Port());
    const Host idle(Port());
    for (const char* piece : {"<A", "da+", "1"}) {
        first.Send(piece);
        QThread::msleep(30);
        second.Send(QByteArray(piece).replace("A", "B").replace("1", "2"));
        QThread::msleep(30);
    }
    second.Send(">");
    EXPECT_EQ(Folder.TextOfCard(1), QStringLiteral("Bda 2"));
    first.Send(">");
    EXPECT_EQ(Folder.TextOfCard(2), QStringLiteral("Ada 1"));
    ExpectAnswers(second, "OK 1 1\r\n");
    ExpectAnswers(first, "OK 2 1\r\n");
    EXPECT_EQ(idle.BytesToRead(), 0);
}

TEST_F(ManyRecords, AHostThatEndsItsSendingGetsItsAnswersAndThenTheEnd)
{
    const Host host(Port());
    host.Send(Records(1, 3));
    host.EndSending();
    ExpectAnswers(host, Answers(1, 3));
    EXPECT_TRUE(EventsUntil([&] { return host.SeesEnd(); }));
}

TEST_F(ManyRecords, OfAHostThatResetsItsConnectionAreStillPrinted)
{
    const Host other(Port());
    other.Send("<Bob");
    Host host(Port());
    host.Send(Records(1, 5) + "<half");
    host.Reset();
    EXPECT_EQ(Folder.TextOfCard(5), QStringLiteral("Anna 5"));
    EXPECT_TRUE(Station->WaitUntilItTells(
        QStringLiteral("ended within a record; 5 characters are dropped")));
    other.Send("+6>");
    EXPECT_EQ(Folder.TextOfCard(6), QStringLiteral("Bob 6"));
}

TEST_F(ManyRecords, TenThousandInOneConnectionPrintInOrderWithMemoryFlat)
{
    constexpr int count = 10000;
    constexpr int settled = 1000;
    const Host host(Port());
    const QByteArray records = Records(1, count);
    qsizetype sent = 0;
    QByteArray received;
    int memory = 0;
    int answered = 0;
    while (answered < count) {
        sent += host.SendWithoutWaiting(records.mid(sent, 1 << 16));
        if (!EventsUntil([&] {
                received += host.Received();
                return received.contains('\n');
            }))
            break;
        const qsizetype complete = received.lastIndexOf('\n') + 1;
        const int before = answered;
        answered += static_cast<int>(received.first(complete).count('\n'));
        ASSERT_EQ(received.first(complete), Answers(before + 1, answered));
        received.remove(0, complete);
        // One card in so many is read, and none but the newest is kept.
        if (answered / 200 > before / 200 && answered < count) {
            const int card = answered / 200 * 200;
            ASSERT_EQ(Folder.TextOfCard(card), QStringLiteral("Anna %1").arg(card));
            RemoveCardsBelow(answered);
        }
        if (before < settled && answered >= settled)
            memory = Station->MemoryMiB();
    }
    EXPECT_EQ(sent, records.size());
    EXPECT_EQ(answered, count);
    EXPECT_EQ(Folder.TextOfCard(count), QStringLiteral("Anna %1").arg(count));
    constexpr int room = MemoryRoom(16);
    EXPECT_LE(Station->MemoryMiB(), memory + room);
}

TEST_F(ManyRecords, AtAnOrderlyEndTheOneInHandIsFinishedAndAnswered)
{
    const Host host(Port());
    host.Send(Records(1, 2000));
    ASSERT_TRUE(EventsUntil([&] { return QFileInfo::exists(Folder.PathOfCard(20)); }));
    Station->SendSignal(SIGTERM);
    EXPECT_EQ(Station->ExitCode(), 0);
    const auto cards = static_cast<int>(Folder.Cards().size());
    EXPECT_LT(cards, 2000);
    ExpectAnswers(host, Answers(1, cards));
    EXPECT_EQ(Folder.TextOfCard(cards), QStringLiteral("Anna %1").arg(cards));
}

TEST_F(ManyRecords, OneOfMegabytesWithoutAnEndDelaysNobodyAndGivesItsMemoryBack)
{
    const Host good(Port());
    good.Send(Records(1, 1));
    ExpectAnswers(good, Answers(1, 1));
    const int memory = Station->MemoryMiB();
    {
        const Host flood(Port());
        flood.Send("<");
        const QByteArray piece(1 << 20, 'x');
        for (int count = 0; count < 64; ++count)
            flood.Send(piece);
        good.Send(Records(2, 2));
        ExpectAnswers(good, Answers(2, 2));
    }
    EXPECT_TRUE(Station->WaitUntilItTells(QStringLiteral("67108865 characters are dropped")));
    good.Send(Records(3, 3));
    ExpectAnswers(good, Answers(3, 3));
    constexpr int room = MemoryRoom(24);
    EXPECT_TRUE(EventsUntil([&] { return Station->MemoryMiB() <= memory + room; }))
        << Station->MemoryMiB() << " of " << memory;
}

TEST_F(ManyRecords, FiveHundredHostsWithHalvesDelayNobodyAndAreAllServed)
{
    const Host good(Port());
    good.Send(Records(1, 1));
    ExpectAnswers(good, Answers(1, 1));
    const int memory = Station->MemoryMiB();
    const int descriptors = Station->OpenDescriptors();
    constexpr int count = 500;
    {
        std::vector<Host> hosts;
        for (int number = 1; number <= count; ++number) {
            hosts.emplace_back(Port());
            ASSERT_TRUE(hosts.back().IsConnected()) << number;
            hosts.back().Send("<Host+" + QByteArray::number(number));
        }
        good.Send(Records(2, 2));
        ExpectAnswers(good, Answers(2, 2));
        // The answers come in the order in which the records end.
        for (const Host& host : hosts)
            host.Send(">");
        QByteArray all;
        for (int number = 1; number <= count; ++number) {
            QByteArray received;
            EXPECT_TRUE(EventsUntil([&] {
                received += hosts[static_cast<std::size_t>(number - 1)].Received();
                return received.endsWith("\r\n");
            }));
            EXPECT_TRUE(received.startsWith("OK ") && received.endsWith(" 1\r\n"))
                << received.constData();
        }
    }
    QStringList texts;
    for (const QString& card : {Folder.PathOfCard(3), Folder.PathOfCard(2 + count)})
        texts += TextOfPdf(card);
    EXPECT_TRUE(texts[0].startsWith(QStringLiteral("Host ")));
    EXPECT_EQ(Folder.Cards().size(), 2 + count);
    EXPECT_TRUE(EventsUntil([&] { return Station->OpenDescriptors() <= descriptors; }));
    constexpr int room = MemoryRoom(24);
    EXPECT_LE(Station->MemoryMiB(), memory + room);
}

} // namespace
} // namespace vantrel::test
