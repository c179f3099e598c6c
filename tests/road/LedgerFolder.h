#pragma once

#include "road/StationFolder.h"
#include <functional>
#include <memory>

namespace vantrel::test {

class Host;

/// A program folder of a station that keeps account: with a ledger, every record, unique numbers
/// and answers. Its layout has an automatic number; the first card bears 1001. The
/// test has the store closed.
class LedgerFolder : public StationFolder
{
public:
    static constexpr int NumberBefore = 1000;

    LedgerFolder();
};

/// A host that sends records one by one over one connection.
class AskingHost
{
public:
    explicit AskingHost(int port);
    ~AskingHost();
    AskingHost(const AskingHost&) = delete;
    AskingHost& operator=(const AskingHost&) = delete;

    /// Sends a record of this first value. Does not wait.
    void Send(const QString& value);
    /// Lets events run until the next answer comes. @return it, without its line end
    QString Answer();
    /// Whether an answer came that was not taken. Does not wait.
    bool HasAnswer();
    /// Sends a record and waits for its answer.
    QString Ask(const QString& value);

private:
    std::unique_ptr<Host> m_host;
    QByteArray m_received;
};

/// What an answer says, without the entry's number: "OK 1" or "ERR" and the reason.
QString WithoutId(const QString& answer);

} // namespace vantrel::test
