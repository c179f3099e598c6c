#include "road/PrintFolder.h"
#include "ledger/LedgerReading.h"
#include "ledger/LedgerTables.h"
#include "road/StationProcess.h"
#include "road/TestedProgram.h"
#include "station/session/StoreLocation.h"
#include "store/Connection.h"
#include "support/Layouts.h"
#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

constexpr int LimitMs = 100'000;

} // namespace

QString PrintFolder::PathOf(const QString& name) const
{
    return Session.PathInFolder(name);
}

QString PrintFolder::Write(const QString& name, const QByteArray& bytes) const
{
    QFile file(PathOf(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return file.fileName();
}

QString PrintFolder::WriteRows(int count) const
{
    QByteArray rows;
    for (int row = 1; row <= count; ++row)
        rows += 'A' + QByteArray::number(row) + ",x\n";
    return Write(QStringLiteral("rows.csv"), rows);
}

std::unique_ptr<QProcess> PrintFolder::Start(const QStringList& words) const
{
    auto run = std::make_unique<QProcess>();
    run->start(TestedProgram(VANTREL_PRINT_PROGRAM),
               QStringList{Session.ProgramFolder, QStringLiteral("Badge")} + words);
    EXPECT_TRUE(run->waitForStarted(LimitMs));
    return run;
}

PrintFolder::Outcome PrintFolder::EndOf(QProcess& run)
{
    EXPECT_TRUE(run.state() == QProcess::NotRunning || run.waitForFinished(LimitMs));
    const int code = run.exitStatus() == QProcess::NormalExit ? run.exitCode() : -1;
    return {code, QString::fromUtf8(run.readAllStandardOutput()),
            QString::fromUtf8(run.readAllStandardError()).split(u'\n', Qt::SkipEmptyParts)};
}

PrintFolder::Outcome PrintFolder::Run(const QStringList& words, const QByteArray& input) const
{
    return RunPlain(QStringList{Session.ProgramFolder, QStringLiteral("Badge")} + words, input);
}

PrintFolder::Outcome PrintFolder::RunPlain(const QStringList& words, const QByteArray& input)
{
    QProcess run;
    run.start(TestedProgram(VANTREL_PRINT_PROGRAM), words);
    run.write(input);
    run.closeWriteChannel();
    return EndOf(run);
}

QStringList PrintFolder::CardsIn(const QString& folder)
{
    QStringList paths;
    for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name))
        paths.append(folder + u'/' + name);
    return paths;
}

QStringList PrintFolder::TextsOf(const QStringList& cards)
{
    QStringList texts;
    for (const QString& card : cards)
        texts.append(TextOfPdf(card));
    return texts;
}

std::map<qlonglong, LedgerEntry> PrintFolder::Entries() const
{
    std::map<qlonglong, LedgerEntry> entries;
    Connection store;
    store.Open(StoreLocation(Session.ProgramFolder));
    if (HasLedger(store.Database()))
        ReadEntries(store.Database(), {},
                    [&](const LedgerEntry& entry) { entries.emplace(entry.Id, entry); });
    return entries;
}

QString PrintFolder::StoredNumber() const
{
    Connection store;
    store.Open(StoreLocation(Session.ProgramFolder));
    return StoredNumbers(store, QStringLiteral("Badge")).value(0);
}

} // namespace vantrel::test
