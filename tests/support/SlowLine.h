#pragma once

#include <QByteArray>
#include <QString>
#include <atomic>
#include <list>
#include <memory>
#include <mutex>
#include <thread>

namespace vantrel::test {

/// A line between a program and a server on a domain socket, on a TCP port of this machine, which
/// can be slow, silent, or break. A thread of its own carries the bytes.
class SlowLine
{
public:
    explicit SlowLine(const QString& serverSocket);
    SlowLine(const SlowLine&) = delete;
    SlowLine& operator=(const SlowLine&) = delete;
    ~SlowLine();

    int Port() const { return m_port; }

    /// From now on what programs send comes to the server so many milliseconds later.
    void SetDelay(int milliseconds) { m_delayMs = milliseconds; }
    /// From now on nothing comes through in either direction, though programs can connect; or what
    /// was held back does.
    void SetSilent(bool silent) { m_silent = silent; }
    /// Is silent as soon as a program sends this word.
    void SilenceAt(const QByteArray& word);
    /// Breaks all connections.
    void Break() { m_break = true; }

    /// Which bytes are lost when the line breaks at a word.
    enum class Loses { Word, Answer };
    /// Breaks the next connection on which a program sends this word.
    void BreakAt(const QByteArray& word, Loses loses);
    /// Whether that has happened.
    bool HasBroken() const;

    /// What came through so far.
    struct Traffic
    {
        int Connections = 0;
        /// How often a program has sent something behind what the server has sent.
        qint64 RoundTrips = 0;
        qint64 BytesToServer = 0;
        qint64 BytesToProgram = 0;
    };
    Traffic Count() const;

private:
    struct Link;

    void Carry();
    void Accept();
    /// @return false if the link is to be closed
    bool Move(Link& link);
    bool TakeFromProgram(Link& link);
    bool TakeFromServer(Link& link) const;

    QByteArray m_server;
    int m_listener = -1;
    int m_port = 0;
    std::atomic<int> m_delayMs{0};
    std::atomic<bool> m_silent{false};
    std::atomic<bool> m_break{false};
    std::atomic<bool> m_ends{false};
    mutable std::mutex m_lock;
    QByteArray m_word;
    QByteArray m_wordOfSilence;
    Loses m_loses = Loses::Word;
    mutable Traffic m_traffic;
    std::list<std::unique_ptr<Link>> m_links;
    std::thread m_carrier;
};

} // namespace vantrel::test
