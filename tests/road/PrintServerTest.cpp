#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include "station/layout/LoadLayout.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include "support/PrivateCups.h"
#include <QThread>
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>

// The print server of the machine ends and comes back while records arrive.

namespace vantrel::test {
namespace {

constexpr int FirstNumber = 1000; // raised before it prints

class PrintServer : public ::testing::Test
{
protected:
    PrintServer()
    {
        Cups.AddQueue(QStringLiteral("Cards"));
        Folder.Session.CurrentParams.PrinterDevice = QStringLiteral("Cards");
        Folder.AddAutoNumber(FirstNumber);
        Folder.SetStatus("Visible", QStringLiteral("False"));
        m_port = Folder.WithCapture();
        m_start.Environment.insert(QStringLiteral("CUPS_SERVER"), Cups.SocketPath());
        m_station.emplace(Folder.Session.ProgramFolder, m_start);
        EXPECT_TRUE(m_station->WaitUntilItListens(m_port));
    }

    /// What the store holds as the last number given.
    int StoredNumber() { return StoredNumbers(Folder.Session, QStringLiteral("Badge"))[0].toInt(); }
    /// Sends records as a host does that waits for each number to be saved.
    void SendRecords(int count)
    {
        for (int record = 0; record < count; ++record) {
            const int before = StoredNumber();
            SendRecord(m_port, "<Anna+7>");
            ASSERT_TRUE(EventsUntil([&] { return StoredNumber() > before; }));
        }
    }
    static std::vector<int> NumbersOn(const QStringList& cards)
    {
        std::vector<int> numbers;
        for (const QString& card : cards)
            numbers.push_back(TextOfPdf(card).section(QLatin1Char(' '), -1).toInt());
        return numbers;
    }
    /// The number on each card that the queue printed, in the order of its jobs.
    std::vector<int> NumbersOfJobs(int count) const
    {
        QStringList cards;
        for (const PrivateCups::PrintedJob& job : Cups.WaitForJobs(count))
            cards.append(job.PdfPath);
        return NumbersOn(cards);
    }

    PrivateCups Cups;
    StationFolder Folder;
    int m_port = 0;
    StationStart m_start;
    std::optional<StationProcess> m_station;
};

TEST_F(PrintServer, AServerThatEndsCostsTheCardsUntilItIsBack)
{
    constexpr int few = 4;
    SendRecords(few);
    EXPECT_EQ(NumbersOfJobs(few), (std::vector<int>{1001, 1002, 1003, 1004}));
    Cups.Kill();
    SendRecords(few);
    Cups.Start();
    SendRecords(few);
    EXPECT_EQ(NumbersOfJobs(2 * few),
              (std::vector<int>{1001, 1002, 1003, 1004, 1009, 1010, 1011, 1012}));
    EXPECT_TRUE(m_station->IsRunning());
    EXPECT_TRUE(Folder.Cards().isEmpty());
}

TEST_F(PrintServer, AServerKilledAtAnyMomentHarmsNoStation)
{
    constexpr unsigned long kills = 5;
    for (unsigned long kill = 0; kill < kills; ++kill) {
        // The kill falls somewhere into the cards of these.
        for (int record = 0; record < 10; ++record)
            SendRecord(m_port, "<Anna+7>");
        QThread::msleep(10 + 7 * kill);
        Cups.Kill();
        SendRecords(1);
        Cups.Start();
    }
    SendRecord(m_port, "<Zoe+9>");
    // Such a server may print a job twice, or stop at one; what counts is what it was given.
    EXPECT_TRUE(EventsUntil([&] {
        const QStringList documents = Cups.DocumentsTaken();
        return !documents.isEmpty() &&
               TextOfPdf(documents.last()).startsWith(QStringLiteral("Zoe 9"));
    }));
    const std::vector<int> numbers = NumbersOn(Cups.DocumentsTaken());
    EXPECT_EQ(std::adjacent_find(numbers.begin(), numbers.end(), std::greater_equal<>()),
              numbers.end());
    const std::vector<int> printed = NumbersOfJobs(0);
    EXPECT_TRUE(std::is_sorted(printed.begin(), printed.end()));
    EXPECT_TRUE(m_station->IsRunning());
    EXPECT_EQ(Folder.StoreIntegrity(), QStringLiteral("ok"));
}

} // namespace
} // namespace vantrel::test
