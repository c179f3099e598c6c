#pragma once

#include "console/Answer.h"
#include "console/LedgerFollower.h"
#include "console/StoreThread.h"
#include <QObject>
#include <QTimer>
#include <functional>
#include <vector>

namespace vantrel::console {

/// Tells all who look at the console what happens, as it happens. However many they are, the ledger
/// is looked at a few times a second at most, and not at all while nobody looks on.
class EventFeed : public QObject
{
public:
    explicit EventFeed(StoreThread& thread);

    /// The answer for one more viewer, whose body goes on until he leaves or may no longer look.
    /// @param mayLook  asked now and then
    Answer Open(std::function<bool()> mayLook);
    std::size_t Viewers() const { return m_viewers.size(); }

private:
    struct Viewer
    {
        LiveStreamPtr Stream;
        std::function<bool()> MayLook;
    };

    void Look();
    void KeepAlive();
    void Tell(const QByteArray& events);

    StoreThread& m_thread;
    std::shared_ptr<LedgerFollower> m_follower;
    std::vector<Viewer> m_viewers;
    QTimer m_look;
    QTimer m_keepAlive;
    bool m_isLooking = false;
};

} // namespace vantrel::console
