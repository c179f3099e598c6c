#pragma once

#include "ledger/LedgerTables.h"
#include "road/ConsoleClient.h"
#include "samples/FreshInstall.h"
#include "store/Connection.h"
#include "support/LedgerFill.h"
#include "support/TestStore.h"
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <optional>

namespace vantrel::test {

/// The built console on a program folder. It is ended with the test.
class ConsoleProcess
{
public:
    /// Starts it and waits until it listens, on a free port of this machine.
    /// @param environment  variables besides those of this process
    explicit ConsoleProcess(const QString& programFolder, const QStringList& options = {},
                            const QMap<QString, QString>& environment = {});
    ~ConsoleProcess();
    ConsoleProcess(const ConsoleProcess&) = delete;
    ConsoleProcess& operator=(const ConsoleProcess&) = delete;

    int Port() const { return m_port; }
    /// What it told when it began.
    const QByteArray& Told() const { return m_told; }
    bool IsRunning() const { return m_process.state() == QProcess::Running; }
    /// Its resident memory.
    int MemoryMiB() const;
    int OpenDescriptors() const;
    void SendSignal(int number) const;
    /// Waits for its end. @return its exit code, or -1 where it crashed or goes on
    int ExitCode();

private:
    QProcess m_process;
    QByteArray m_told;
    int m_port = 0;
};

/// How a run of the console ended that does not get as far as to listen, and what it told.
struct ConsoleEnd
{
    int Code = -1;
    QString Out;
    QString Errors;
};
ConsoleEnd RunConsole(const QStringList& arguments);

/// A program folder with a ledger, in a file or on a server (`StoresAreOnServer`), and a console on
/// it.
class ConsoleTest : public ::testing::Test
{
protected:
    ConsoleTest();

    void Start(const QStringList& options = {});
    /// The token of the folder.
    QByteArray Token() const;
    HttpHeaders Bearer() const { return {{"Authorization", "Bearer " + Token()}}; }
    HttpAnswer Get(const QByteArray& target) { return Ask(Port(), "GET", target, Bearer()); }
    /// Logs in. @return what a page of the console sends along with changes
    HttpHeaders LogIn();
    int Port() const { return Console->Port(); }

    StoreDatabase& Database() { return Store.Database(); }
    qlonglong AddPrinted(const char* value)
    {
        return AddLedgerEntry(Database(), PrintedEntry({QString::fromUtf8(value)}));
    }

    QTemporaryDir Folder;

private:
    std::optional<TestStore> m_shared;

protected:
    Connection Store;
    std::unique_ptr<ConsoleProcess> Console;
};

} // namespace vantrel::test
