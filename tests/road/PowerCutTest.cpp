#include "ledger/LedgerTables.h"
#include "road/BurstHost.h"
#include "road/CardAccount.h"
#include "road/DiskHistory.h"
#include "road/LedgerFolder.h"
#include "road/StationProcess.h"
#include "samples/FreshInstall.h"
#include "store/Connection.h"
#include "store/StoreDatabase.h"
#include "support/Layouts.h"
#include <QFile>
#include <QSet>
#include <csignal>
#include <gtest/gtest.h>
#include <iostream>

// A power cut at any moment, and a disk that has lost whatever was not forced to it.

namespace vantrel::test {
namespace {

constexpr std::size_t Connections = 4;
/// So many that the store also moves what is in its log into its file.
constexpr std::size_t Records = 250;
/// One state in so many is started by the station, the others are read by this program.
constexpr int StartOneIn = 20;
constexpr std::size_t MostCardsRead = 20;
const QString PrintedFolder = QStringLiteral("Printed/Session 1/");

/// How many states are made; scripts/kills.sh asks for more.
int CutCount()
{
    constexpr int shortRun = 200;
    const int asked = qEnvironmentVariableIntValue("VANTREL_POWER_CUTS");
    return asked > 0 ? asked : shortRun;
}

/// A station that keeps account, and all that it did to its disk while a host sent bursts.
class RecordedStation
{
public:
    RecordedStation();

    /// Lets it print and end.
    void Run();
    std::size_t Events() const { return m_history->Events(); }
    std::size_t Lost() const { return m_history->Lost(); }
    /// Makes a state that a cut before an event can leave, and expects that nothing is lost in it.
    void ExpectNothingLost(std::size_t cut, std::mt19937& random) const;
    /// The same, after a station was started on that state and has printed further records.
    void ExpectToGoOn(std::size_t cut, std::mt19937& random) const;

private:
    /// A program folder as it was on the disk after a cut.
    struct State
    {
        QTemporaryDir Place;
        QString Folder = Place.filePath(QStringLiteral("Vantrel"));
    };

    void ExpectAccount(std::size_t cut, const QString& state) const;
    void ExpectAnswered(std::size_t cut, const QString& state, const CardAccount& account) const;
    void ExpectDrawn(std::size_t cut, const QString& state, const CardAccount& account) const;

    void ExpectWholeFiles(const QString& state) const;

    LedgerFolder m_folder;
    int m_port;
    std::unique_ptr<DiskHistory> m_history;
    std::map<QString, DiskHistory::File> m_files;
    /// The number of each file's card, by the file's path within the folder.
    std::map<QString, QString> m_numbers;
};

RecordedStation::RecordedStation() : m_port(m_folder.WithCapture())
{
    m_history = std::make_unique<DiskHistory>(m_folder.Session.ProgramFolder);
}

void RecordedStation::Run()
{
    const QString record = m_folder.Folder.filePath(QStringLiteral("record"));
    StationStart start;
    start.Environment = {
        {QStringLiteral("LD_PRELOAD"), QStringLiteral(VANTREL_DISK_RECORDER)},
        {QLatin1StringView(DiskRecordVariable), record},
        // A sanitizer wants to be the first library of a program.
        {QStringLiteral("ASAN_OPTIONS"), QStringLiteral("verify_asan_link_order=0")}};
    StationProcess station(m_folder.Session.ProgramFolder, start);
    BurstHost host(m_port, QStringLiteral("A"), Connections, 1);
    ASSERT_TRUE(host.GoOnUntil([&] { return host.Answers().size() >= Records; }));
    host.BeginNothingNew();
    ASSERT_TRUE(host.GoOnUntil([&] { return host.IsAllAnswered(); }));
    station.SendSignal(SIGTERM);
    ASSERT_EQ(station.ExitCode(), 0);
    m_history->Read(record);
    m_files = m_history->FilesAtEnd();
    const CardAccount account(m_folder.Session.ProgramFolder, 1);
    account.ExpectAnswersOf(host);
    for (const auto& [id, entry] : account.Entries()) {
        for (const LedgerCard& card : entry.Cards)
            m_numbers[PrintedFolder + card.File] = card.Numbers.value(0);
    }
    ASSERT_GE(m_numbers.size(), Records);
}

void RecordedStation::ExpectNothingLost(std::size_t cut, std::mt19937& random) const
{
    const State state;
    m_history->MakeStateAfterCut(cut, random, state.Folder);
    ExpectWholeFiles(state.Folder);
    ExpectAccount(cut, state.Folder);
}

void RecordedStation::ExpectToGoOn(std::size_t cut, std::mt19937& random) const
{
    const State state;
    m_history->MakeStateAfterCut(cut, random, state.Folder);
    {
        StationProcess station(state.Folder);
        BurstHost host(m_port, QStringLiteral("B"), Connections, 2);
        ASSERT_TRUE(host.GoOnUntil([&] { return host.Answers().size() >= Connections; }));
        host.BeginNothingNew();
        ASSERT_TRUE(host.GoOnUntil([&] { return host.IsAllAnswered(); }));
        station.SendSignal(SIGTERM);
        ASSERT_EQ(station.ExitCode(), 0);
        const CardAccount account(state.Folder, 1);
        account.ExpectEnded();
        account.ExpectRecordsOf(host);
        account.ExpectAnswersOf(host);
        account.ExpectFiles(MostCardsRead);
    }
    ExpectAccount(cut, state.Folder);
}

void RecordedStation::ExpectAccount(std::size_t cut, const QString& state) const
{
    {
        Connection store;
        store.Open(LayoutDatabasePath(state));
        EXPECT_EQ(store.Database().Execute(QStringLiteral("PRAGMA integrity_check")).toString(),
                  QStringLiteral("ok"));
        if (!HasLedger(store.Database())) {
            EXPECT_EQ(m_history->SentBefore(cut), QByteArray());
            return;
        }
    }
    const CardAccount account(state, 1);
    ExpectAnswered(cut, state, account);
    ExpectDrawn(cut, state, account);
}

void RecordedStation::ExpectAnswered(std::size_t cut, const QString& state,
                                     const CardAccount& account) const
{
    for (const QByteArray& line : m_history->SentBefore(cut).split('\n')) {
        if (line.isEmpty())
            continue;
        ASSERT_TRUE(line.startsWith("OK ")) << line.constData();
        const qlonglong id = line.split(' ').at(1).toLongLong();
        const auto entry = account.Entries().find(id);
        ASSERT_NE(entry, account.Entries().end()) << "answered entry " << id << " is lost";
        ASSERT_EQ(entry->second.State, LedgerState::Printed) << id;
        const QString name = PrintedFolder + entry->second.Cards.at(0).File;
        QFile file(state + QLatin1Char('/') + name);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << "answered card " << qPrintable(name);
        EXPECT_EQ(file.readAll(), m_files.at(name).Bytes) << qPrintable(name);
    }
}

/// What was drawn before the cut may be in somebody's hands, also where its file is lost.
void RecordedStation::ExpectDrawn(std::size_t cut, const QString& state,
                                  const CardAccount& account) const
{
    QSet<QString> known;
    for (const auto& [id, entry] : account.Entries()) {
        for (const LedgerCard& card : entry.Cards)
            known.insert(card.Numbers.value(0));
    }
    Connection store;
    store.Open(LayoutDatabasePath(state));
    const qlonglong given = StoredNumbers(store, QStringLiteral("Badge")).at(0).toLongLong();
    for (const auto& [path, number] : m_numbers) {
        const DiskHistory::File& file = m_files.at(path);
        if (file.Begun >= cut)
            continue;
        EXPECT_TRUE(known.contains(number)) << qPrintable(number);
        EXPECT_GE(given, number.toLongLong());
    }
}

/// A name that is there is that of a whole file.
void RecordedStation::ExpectWholeFiles(const QString& state) const
{
    for (const auto& [path, number] : m_numbers) {
        QFile left(state + QLatin1Char('/') + path);
        if (left.open(QIODevice::ReadOnly)) {
            EXPECT_EQ(left.readAll(), m_files.at(path).Bytes) << qPrintable(path);
        }
    }
}

TEST(PowerCut, AtAnyMomentLosesNoAnsweredCardAndLetsNoNumberComeAgain)
{
    RecordedStation station;
    ASSERT_NO_FATAL_FAILURE(station.Run());
    const unsigned seed = std::random_device()();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::uniform_int_distribution<std::size_t> moment(0, station.Events());
    for (int state = 0; state < CutCount() && !testing::Test::HasFailure(); ++state) {
        const std::size_t cut = moment(random);
        SCOPED_TRACE(cut);
        if (state % StartOneIn == 0)
            station.ExpectToGoOn(cut, random);
        else
            station.ExpectNothingLost(cut, random);
    }
    EXPECT_GT(station.Lost(), static_cast<std::size_t>(CutCount()));
    std::cout << station.Events() << " events, " << station.Lost() << " changes lost\n";
}

} // namespace
} // namespace vantrel::test
