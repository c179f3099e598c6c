#include "road/CardAccount.h"
#include "ledger/LedgerReading.h"
#include "road/StationProcess.h"
#include "station/session/StoreLocation.h"
#include "store/Connection.h"
#include "support/Print.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <algorithm>
#include <gtest/gtest.h>
#include <iostream>

namespace vantrel::test {

namespace {

void ExpectWhole(const QString& path)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    const QByteArray bytes = file.readAll();
    EXPECT_TRUE(bytes.startsWith("%PDF-")) << qPrintable(path);
    EXPECT_TRUE(bytes.trimmed().endsWith("%%EOF")) << qPrintable(path);
}

QString TextOf(const LedgerEntry& entry, const QString& number)
{
    return (entry.Values + QStringList{number}).join(QLatin1Char(' '));
}

} // namespace

CardAccount::CardAccount(const QString& programFolder, int sessions)
    : m_printed(programFolder + QStringLiteral("/Printed/")), m_sessions(sessions)
{
    Connection store;
    store.Open(StoreLocation(programFolder));
    ReadEntries(store.Database(), {},
                [&](const LedgerEntry& entry) { m_entries.emplace(entry.Id, entry); });
}

void CardAccount::ExpectEnded() const
{
    QSet<QString> numbers;
    for (const auto& [id, entry] : m_entries) {
        EXPECT_NE(entry.State, LedgerState::Received) << id;
        EXPECT_NE(entry.State, LedgerState::Printing) << id;
        for (const LedgerCard& card : entry.Cards) {
            EXPECT_NE(card.State, LedgerState::Printing) << id;
            for (const QString& number : card.Numbers) {
                EXPECT_FALSE(numbers.contains(number)) << qPrintable(number) << " of " << id;
                numbers.insert(number);
            }
        }
    }
}

void CardAccount::ExpectNoNumberMissing(qlonglong first) const
{
    QSet<qlonglong> numbers;
    for (const auto& [id, entry] : m_entries)
        for (const LedgerCard& card : entry.Cards)
            for (const QString& number : card.Numbers)
                numbers.insert(number.toLongLong());
    for (qlonglong i = 0; i < numbers.size(); ++i)
        EXPECT_TRUE(numbers.contains(first + i)) << first + i;
}

void CardAccount::ExpectRecordsOf(const BurstHost& host) const
{
    std::map<QString, int> entries;
    for (const auto& [id, entry] : m_entries)
        ++entries[entry.Values.value(0)];
    for (const auto& [value, times] : host.Sent()) {
        EXPECT_GE(entries[value], 1) << qPrintable(value);
        EXPECT_LE(entries[value], times) << qPrintable(value);
    }
}

void CardAccount::ExpectEachPrintedOnce(const BurstHost& host) const
{
    std::map<QString, int> printed;
    for (const auto& [id, entry] : m_entries)
        printed[entry.Values.value(0)] += entry.State == LedgerState::Printed ? 1 : 0;
    for (const auto& [value, times] : printed)
        EXPECT_LE(times, 1) << qPrintable(value);
    for (const HostAnswer& answer : host.Answers())
        EXPECT_EQ(printed[answer.Value], answer.Ok ? 1 : 0)
            << qPrintable(answer.Value) << ' ' << qPrintable(answer.Rest);
}

void CardAccount::ExpectAnswersOf(const BurstHost& host) const
{
    QSet<qlonglong> answered;
    for (const HostAnswer& answer : host.Answers()) {
        EXPECT_TRUE(answer.Ok) << qPrintable(answer.Value + QLatin1Char(' ') + answer.Rest);
        EXPECT_EQ(answer.Rest, QStringLiteral("1"));
        EXPECT_FALSE(answered.contains(answer.Id)) << answer.Id;
        answered.insert(answer.Id);
        const auto entry = m_entries.find(answer.Id);
        ASSERT_NE(entry, m_entries.end()) << answer.Id;
        EXPECT_EQ(entry->second.Values.value(0), answer.Value) << answer.Id;
        EXPECT_EQ(entry->second.State, LedgerState::Printed) << answer.Id;
        ASSERT_EQ(entry->second.Cards.size(), 1U) << answer.Id;
    }
}

void CardAccount::ExpectAnswersOrRefusalsOf(const BurstHost& host) const
{
    QSet<qlonglong> answered;
    std::map<QString, int> refused;
    for (const HostAnswer& answer : host.Answers()) {
        refused[answer.Value] += answer.Ok ? 0 : 1;
        const auto entry = m_entries.find(answer.Id);
        if (answer.Id != 0 || answer.Ok) {
            EXPECT_FALSE(answered.contains(answer.Id)) << answer.Id;
            ASSERT_NE(entry, m_entries.end()) << answer.Id;
            answered.insert(answer.Id);
            EXPECT_EQ(entry->second.Values.value(0), answer.Value) << answer.Id;
            const LedgerState state = entry->second.State;
            const bool printed = state == LedgerState::Printed || state == LedgerState::Done;
            EXPECT_TRUE(answer.Ok ? printed || state == LedgerState::Doubtful : !printed)
                << answer.Id << ' ' << qPrintable(NameOf(state));
        }
    }
    std::map<QString, int> entries;
    for (const auto& [id, entry] : m_entries) {
        // What a lost server had written all the same is void, and stands there once more.
        if (entry.State == LedgerState::Void)
            EXPECT_TRUE(entry.Reason.startsWith(QStringLiteral("The server was lost"))) << id;
        else
            ++entries[entry.Values.value(0)];
    }
    for (const auto& [value, times] : host.Sent()) {
        EXPECT_GE(entries[value] + refused[value], 1) << qPrintable(value);
        EXPECT_LE(entries[value], times) << qPrintable(value);
    }
}

QString CardAccount::FolderOf(int session) const
{
    return m_printed + QStringLiteral("Session %1/").arg(session);
}

void CardAccount::ExpectTextOf(const QString& path, const LedgerEntry& entry,
                               const LedgerCard& card) const
{
    EXPECT_EQ(TextOfPdf(path), TextOf(entry, card.Numbers.value(0))) << qPrintable(path);
}

void CardAccount::ExpectDoubtful(const QString& path) const
{
    const QString text = TextOfPdf(path);
    const auto shows = [&](const auto& idAndEntry) {
        const LedgerEntry& entry = idAndEntry.second;
        return std::any_of(entry.Cards.begin(), entry.Cards.end(), [&](const LedgerCard& card) {
            return card.State == LedgerState::Doubtful &&
                   text == TextOf(entry, card.Numbers.value(0));
        });
    };
    EXPECT_TRUE(std::any_of(m_entries.begin(), m_entries.end(), shows))
        << qPrintable(path) << " says " << qPrintable(text) << " and is no card of the ledger";
}

void CardAccount::ExpectFiles(std::size_t atMostRead) const
{
    QSet<QString> unaccounted;
    for (int session = 1; session <= m_sessions; ++session) {
        const QDir folder(FolderOf(session));
        for (const QFileInfo& card : folder.entryInfoList(QDir::Files | QDir::Hidden)) {
            ExpectWhole(card.filePath());
            unaccounted.insert(card.absoluteFilePath());
        }
    }
    const std::size_t readEvery = std::max<std::size_t>(1, m_entries.size() / atMostRead);
    std::size_t place = 0;
    for (const auto& [id, entry] : m_entries) {
        ++place;
        for (const LedgerCard& card : entry.Cards) {
            if (card.State != LedgerState::Printed || card.Job)
                continue;
            const QString path = QFileInfo(FolderOf(entry.Session) + card.File).absoluteFilePath();
            EXPECT_TRUE(unaccounted.remove(path)) << qPrintable(path) << " of " << id;
            if (place % readEvery == 0)
                ExpectTextOf(path, entry, card);
        }
    }
    for (const QString& path : std::as_const(unaccounted))
        ExpectDoubtful(path);
}

void CardAccount::ExpectNothingLost(const BurstHost& host, qlonglong firstNumber,
                                    std::size_t atMostRead) const
{
    ExpectEnded();
    ExpectFiles(atMostRead);
    ExpectNoNumberMissing(firstNumber);
    ExpectEachPrintedOnce(host);
    std::cout << host.Answers().size() << " answers; " << qPrintable(Summary()) << '\n';
}

std::size_t CardAccount::Count(LedgerState state) const
{
    return static_cast<std::size_t>(
        std::count_if(m_entries.begin(), m_entries.end(),
                      [&](const auto& entry) { return entry.second.State == state; }));
}

QString CardAccount::Summary() const
{
    QStringList parts{QStringLiteral("%1 entries").arg(m_entries.size())};
    for (const QString& name : LedgerStateNames())
        parts.append(QStringLiteral("%1 %2").arg(Count(*LedgerStateOf(name))).arg(name));
    return parts.join(QStringLiteral(", "));
}

} // namespace vantrel::test
