#pragma once

#include "support/Host.h"
#include <QString>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <vector>

namespace vantrel::test {

/// The line that answers a record.
struct HostAnswer
{
    /// The first value of the record that it answers.
    QString Value;
    bool Ok = false;
    /// The entry in the ledger.
    qlonglong Id = 0;
    /// The number of cards, or the reason.
    QString Rest;
};

/// A host that sends bursts of records over several connections at once and reads the answers. What
/// is not answered when a connection is lost is sent once more. Never waits.
class BurstHost
{
public:
    /// @param name         the beginning of all its values, a letter
    /// @param connections  how many it has at a time
    BurstHost(int port, QString name, std::size_t connections, unsigned seed);

    /// Connects where it is not connected, sends a burst where all is answered, and reads. @return
    /// whether a record was sent or an answer came
    bool GoOn();
    /// Goes on until `holds` does; the limit only ends a test that has failed. @return whether it
    /// does
    bool GoOnUntil(const std::function<bool()>& holds);
    /// Goes on for a while, whatever comes of it.
    void GoOnFor(qint64 milliseconds);
    /// Sends only what is to be sent again from now on.
    void BeginNothingNew() { m_beginsNew = false; }
    bool IsAllAnswered() const;
    bool IsConnected() const;

    /// How often each value was sent.
    const std::map<QString, int>& Sent() const { return m_sent; }
    const std::vector<HostAnswer>& Answers() const { return m_answers; }

private:
    struct Link
    {
        std::unique_ptr<Host> Connection;
        /// What is sent and not answered, in its order.
        std::deque<QString> Unanswered;
        QByteArray Line;
    };

    static constexpr std::size_t LongestBurst = 12;

    bool Connect(Link& link) const;
    bool SendBurst(Link& link);
    bool Read(Link& link);
    void Lose(Link& link);
    QString NextValue();

    int m_port;
    QString m_name;
    std::mt19937 m_random;
    bool m_beginsNew = true;
    int m_begun = 0;
    std::vector<Link> m_links;
    std::deque<QString> m_again;
    std::map<QString, int> m_sent;
    std::vector<HostAnswer> m_answers;
};

} // namespace vantrel::test
