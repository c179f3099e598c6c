#include "ledger/LedgerReading.h"
#include "road/LedgerFolder.h"
#include "road/StationProcess.h"
#include "station/session/StoreLocation.h"
#include "store/StoreDatabase.h"
#include "support/Events.h"
#include "support/IppPrinter.h"
#include "support/Layouts.h"
#include "support/PdfReading.h"
#include "support/PrivateCups.h"
#include <cups/cups.h>
#include <gtest/gtest.h>

// A station prints through the print server on a printer of the network, which says itself what it
// can, and the ledger follows what the printer made of each job.

namespace vantrel::test {
namespace {

const QString Queue = QStringLiteral("Cards");

CardDriver DriverOfCR80()
{
    return {{{"CR79", 147, 238}, {"CR80", 153, 243}}, "CR80"};
}

class IppDelivery : public ::testing::Test
{
protected:
    IppDelivery()
    {
        Cups.AddPrinterQueue(Queue, Printer->Uri());
        Session& session = Folder.Session;
        session.LayoutDb.Open(StoreLocation(session.ProgramFolder));
        session.CurrentParams.PrinterDevice = Queue;
        SavePage(session);
        session.LayoutDb.Close();
        m_port = Folder.WithCapture();
        StationStart start;
        start.Environment.insert(QStringLiteral("CUPS_SERVER"), Cups.SocketPath());
        m_station.emplace(Folder.Session.ProgramFolder, start);
        EXPECT_TRUE(m_station->WaitUntilItListens(m_port));
        m_store = OpenStoreDatabase(StoreLocation(Folder.Session.ProgramFolder));
    }

    /// Sends a record and takes the answer that its card is handed over.
    void Print(const char* value, qlonglong id)
    {
        ASSERT_EQ(AskingHost(m_port).Ask(QLatin1StringView(value)),
                  QStringLiteral("OK %1 1").arg(id));
    }
    /// The document fills the card, and its texts stand where the layout has them.
    static void ExpectWholeCard(const QString& document)
    {
        constexpr double near = 0.1; // in points; the server's sizes are hundredths of millimetres
        const QString size = PageSizeOfPdf(document);
        EXPECT_NEAR(size.section(u' ', 0, 0).toDouble(), 153, near);
        EXPECT_NEAR(size.section(u' ', 2, 2).toDouble(), 243, near);
        const PdfWord first = WordOfPdf(document, QStringLiteral("A"));
        const PdfWord second = WordOfPdf(document, QStringLiteral("7"));
        EXPECT_NEAR(first.XMin, 15, near);
        EXPECT_NEAR(second.XMin, 15, near);
        EXPECT_NEAR(second.YMin - first.YMin, 30, near);
    }
    LedgerEntry Entry(qlonglong id) { return FindEntry(*m_store, id).value_or(LedgerEntry()); }
    /// What the server says of a job; 0 if it does not know it.
    static int StateOfJob(int job)
    {
        cups_job_t* jobs = nullptr;
        const int count = cupsGetJobs2(CUPS_HTTP_DEFAULT, &jobs, Queue.toUtf8().constData(), 0,
                                       CUPS_WHICHJOBS_ALL);
        int state = 0;
        for (int i = 0; i < count; ++i) {
            if (jobs[i].id == job)
                state = jobs[i].state;
        }
        cupsFreeJobs(count, jobs);
        return state;
    }
    /// Waits until the ledger has that state of an entry. @return the entry
    LedgerEntry EntryIn(LedgerState state, qlonglong id)
    {
        EXPECT_TRUE(EventsUntil([&] { return Entry(id).State == state; }))
            << NameOf(Entry(id).State).toStdString();
        return Entry(id);
    }

    PrivateCups Cups;
    std::optional<IppPrinter> Printer{DriverOfCR80()};
    LedgerFolder Folder;

private:
    int m_port = 0;
    std::optional<StationProcess> m_station;
    std::unique_ptr<StoreDatabase> m_store;
};

TEST_F(IppDelivery, ACardThatThePrinterHasPrintedIsDone)
{
    Print("A", 1);
    const LedgerEntry entry = EntryIn(LedgerState::Done, 1);
    ASSERT_EQ(entry.Cards.size(), 1U);
    EXPECT_EQ(entry.Cards[0].State, LedgerState::Done);
    EXPECT_EQ(entry.Cards[0].Printer, Queue);
    EXPECT_TRUE(entry.Cards[0].Job.has_value());
    EXPECT_EQ(entry.Cards[0].Reason, QString());
    const QString document = Printer->DocumentOf(1);
    ASSERT_FALSE(document.isEmpty());
    EXPECT_EQ(TextOfPdf(document), QStringLiteral("A 7 1001"));
    ExpectWholeCard(document);
}

// The server mostly reports such a job as canceled, but now and then as completed.
TEST_F(IppDelivery, OfACardThatThePrinterGivesUpTheLedgerHasWhatTheServerReports)
{
    Printer->SetJammed(true);
    Print("A", 1);
    ASSERT_TRUE(EventsUntil([&] { return Entry(1).State != LedgerState::Printed; }));
    const LedgerEntry entry = Entry(1);
    ASSERT_EQ(entry.Cards.size(), 1U);
    ASSERT_TRUE(entry.Cards[0].Job.has_value());
    const bool isCompleted = StateOfJob(*entry.Cards[0].Job) == IPP_JSTATE_COMPLETED;
    EXPECT_EQ(entry.State, isCompleted ? LedgerState::Done : LedgerState::Failed);
    EXPECT_EQ(entry.Cards[0].State, entry.State);
    EXPECT_EQ(entry.Cards[0].Reason,
              isCompleted ? QString() : QStringLiteral("Canceled: Print job canceled at printer."));
    EXPECT_TRUE(Printer->DocumentOf(1).isEmpty());
    Printer->SetJammed(false);
    Print("B", 2);
    EntryIn(LedgerState::Done, 2);
    EXPECT_EQ(TextOfPdf(Printer->DocumentOf(2)), QStringLiteral("B 7 1002"));
    EXPECT_EQ(Entry(1).State, entry.State);
}

TEST_F(IppDelivery, ACardForAPrinterThatIsAwayWaitsInItsQueueUntilItIsCanceled)
{
    Printer.reset();
    Print("A", 1);
    const LedgerEntry waits = Entry(1);
    EXPECT_EQ(waits.State, LedgerState::Printed);
    ASSERT_EQ(waits.Cards.size(), 1U);
    ASSERT_TRUE(waits.Cards[0].Job.has_value());
    EXPECT_LT(cupsCancelJob2(CUPS_HTTP_DEFAULT, Queue.toUtf8().constData(), *waits.Cards[0].Job, 0),
              IPP_STATUS_REDIRECTION_OTHER_SITE)
        << cupsLastErrorString();
    const LedgerEntry entry = EntryIn(LedgerState::Failed, 1);
    EXPECT_TRUE(entry.Cards[0].Reason.startsWith(QStringLiteral("Canceled")))
        << entry.Cards[0].Reason.toStdString();
}

} // namespace
} // namespace vantrel::test
