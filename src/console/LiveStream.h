#pragma once

#include <QByteArray>
#include <functional>
#include <memory>

namespace vantrel::console {

/// The body of an answer that goes on as long as its reader stays, such as live events. Used in the
/// thread of the server only.
class LiveStream
{
public:
    /// Bytes that may wait for a slow reader. One who is further behind is sent away, and connects
    /// anew.
    static constexpr qsizetype MostWaiting = qsizetype{1024} * 1024;

    /// Adds bytes to what is sent.
    void Push(const QByteArray& bytes);
    /// Ends the answer when what waits is sent.
    void End();
    bool IsEnded() const { return m_ended; }

    // For the server:
    /// What waits, up to so many bytes.
    QByteArray Take(qsizetype most);
    bool IsEmpty() const { return m_waiting.isEmpty(); }
    /// Called when there is something to send again, or the end.
    std::function<void()> Wake = [] {};

private:
    QByteArray m_waiting;
    bool m_ended = false;
};

using LiveStreamPtr = std::shared_ptr<LiveStream>;

} // namespace vantrel::console
