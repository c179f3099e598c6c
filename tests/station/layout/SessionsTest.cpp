#include "StoredRows.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/SaveLayout.h"
#include "support/Layouts.h"
#include <functional>
#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

// Sessions are processes of their own that meet in one database file.

namespace vantrel::test {

namespace {

constexpr int SessionCount = 4;
constexpr int ObjectsOnPage = 10;
/// Seconds after which a process that hangs ends, and fails its test.
constexpr unsigned HangLimit = 60;

const QString Staff = QStringLiteral("Staff");

/// A barrier for processes, in memory that they share.
class MeetingPoint
{
public:
    MeetingPoint()
        : m_barrier(static_cast<pthread_barrier_t*>(mmap(nullptr, sizeof(pthread_barrier_t),
                                                         PROT_READ | PROT_WRITE,
                                                         MAP_SHARED | MAP_ANONYMOUS, -1, 0)))
    {
        pthread_barrierattr_t shared;
        pthread_barrierattr_init(&shared);
        pthread_barrierattr_setpshared(&shared, PTHREAD_PROCESS_SHARED);
        pthread_barrier_init(m_barrier, &shared, SessionCount);
        pthread_barrierattr_destroy(&shared);
    }
    MeetingPoint(const MeetingPoint&) = delete;
    MeetingPoint& operator=(const MeetingPoint&) = delete;
    ~MeetingPoint() { munmap(m_barrier, sizeof(pthread_barrier_t)); }

    void Wait() { pthread_barrier_wait(m_barrier); }

private:
    pthread_barrier_t* m_barrier;
};

class Sessions : public ::testing::Test
{
protected:
    Sessions()
    {
        Test.WithDatabase();
        // A process must not share its parent's locks on the file.
        Test.Session.LayoutDb.Close();
    }

    /// Runs sessions side by side, each in a process of its own with the number it is given.
    /// @return how often a session failed to save
    int RunSessions(const std::function<void(vantrel::Session&, int)>& run)
    {
        std::vector<pid_t> children;
        for (int number = 1; number <= SessionCount; ++number) {
            const pid_t child = fork();
            EXPECT_GE(child, 0);
            if (child == 0)
                _exit(RunSession(run, number));
            children.push_back(child);
        }
        int failures = 0;
        for (const pid_t child : children) {
            int status = 0;
            EXPECT_EQ(waitpid(child, &status, 0), child);
            EXPECT_TRUE(WIFEXITED(status));
            failures += WEXITSTATUS(status);
        }
        return failures;
    }

    /// Puts the session's number on a page of the layout and saves it.
    static void SaveNumbered(vantrel::Session& session, const QString& layout, int page, int number)
    {
        BeginLayout(session, layout);
        session.CurrentParams.PageIndex = static_cast<std::int16_t>(page);
        session.CurrentParams.PrinterCopies = static_cast<std::int16_t>(number);
        for (int i = 0; i < ObjectsOnPage; ++i)
            AddText(session, QString::number(number));
        SaveLayout(session, SaveMessages::Silent);
    }

    /// Expects one whole save of one session on the page. @return the number of that session
    int SessionOnPage(const QString& layout, int page) const
    {
        const QList<StoredRow> rows = StoredPage(Test.Session, layout, page);
        EXPECT_EQ(rows.size(), ObjectsOnPage);
        const QString number =
            rows.isEmpty() ? QString() : rows[0][QStringLiteral("C_Value")].toString();
        for (const StoredRow& row : rows)
            EXPECT_EQ(row[QStringLiteral("C_Value")], number);
        return number.toInt();
    }

    TestSession Test;
    MeetingPoint Start;

private:
    int RunSession(const std::function<void(vantrel::Session&, int)>& run, int number)
    {
        alarm(HangLimit);
        TestOperator stationOperator;
        RecordingPrinters printers({QStringLiteral("Card Printer")});
        vantrel::Session session(Test.Session.ProgramFolder, stationOperator, printers);
        session.LayoutDb.Open(StoreAt(session.PathInFolder(QStringLiteral("Vantrel.dat"))));
        run(session, number);
        return static_cast<int>(stationOperator.CriticalBoxes.size());
    }
};

} // namespace

TEST_F(Sessions, EachKeepsItsOwnPageWhileAllSave)
{
    constexpr int Saves = 25;
    const int failures = RunSessions([this](vantrel::Session& session, int number) {
        Start.Wait();
        for (int i = 0; i < Saves; ++i)
            SaveNumbered(session, Staff, number, number);
    });
    EXPECT_EQ(failures, 0);
    for (int number = 1; number <= SessionCount; ++number)
        EXPECT_EQ(SessionOnPage(Staff, number), number);
    EXPECT_EQ(StoredRows(Test.Session, QStringLiteral("SELECT * FROM LayoutParams")).size(),
              SessionCount);
}

TEST_F(Sessions, TheFirstSaveOfOnePageByAllLeavesOneWholePageAndOneRowOfParameters)
{
    constexpr int Layouts = 25;
    const auto name = [](int layout) { return QStringLiteral("Layout %1").arg(layout); };
    const int failures = RunSessions([&](vantrel::Session& session, int number) {
        for (int layout = 1; layout <= Layouts; ++layout) {
            Start.Wait();
            SaveNumbered(session, name(layout), 1, number);
        }
    });
    EXPECT_EQ(failures, 0);
    for (int layout = 1; layout <= Layouts; ++layout) {
        SessionOnPage(name(layout), 1);
        EXPECT_EQ(
            StoredRows(Test.Session,
                       QStringLiteral("SELECT * FROM LayoutParams WHERE LayoutName = '%1' AND "
                                      "PageIndex = 1")
                           .arg(name(layout)))
                .size(),
            1)
            << layout;
    }
}

TEST_F(Sessions, APageIsAlwaysLoadedWholeWhileOthersSaveIt)
{
    constexpr int Rounds = 25;
    const int failures = RunSessions([this](vantrel::Session& session, int number) {
        SaveNumbered(session, Staff, 1, number);
        Start.Wait();
        for (int i = 0; i < Rounds; ++i) {
            if (number > 2) {
                SaveNumbered(session, Staff, 1, number);
                continue;
            }
            const bool loaded = LoadLayout(session, Staff);
            const int objects = session.Document.HighestIndex(Family::lbl_TEXT);
            if (!loaded || objects != ObjectsOnPage)
                _exit(HangLimit);
            for (int index = 2; index <= objects; ++index)
                if (session.Document.Find(Family::lbl_TEXT, index)->Caption() !=
                    session.Document.Find(Family::lbl_TEXT, 1)->Caption())
                    _exit(HangLimit);
        }
    });
    EXPECT_EQ(failures, 0);
}

} // namespace vantrel::test
