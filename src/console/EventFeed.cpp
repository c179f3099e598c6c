#include "console/EventFeed.h"
#include "console/ConsoleStore.h"
#include <algorithm>

namespace vantrel::console {

namespace {

constexpr std::chrono::milliseconds LookInterval{250};
/// A line now and then shows a viewer who has left, and keeps the connection through whatever ends
/// quiet ones.
constexpr std::chrono::seconds KeepAliveInterval{5};
constexpr std::size_t MostViewers = 300;

} // namespace

EventFeed::EventFeed(StoreThread& thread)
    : m_thread(thread), m_follower(std::make_shared<LedgerFollower>())
{
    connect(&m_look, &QTimer::timeout, this, &EventFeed::Look);
    connect(&m_keepAlive, &QTimer::timeout, this, &EventFeed::KeepAlive);
}

Answer EventFeed::Open(std::function<bool()> mayLook)
{
    if (m_viewers.size() >= MostViewers)
        return Refusal(503, QStringLiteral("Too many look at the console."));
    Answer answer;
    answer.Type = "text/event-stream";
    answer.Live = std::make_shared<LiveStream>();
    answer.Live->Push("retry: 2000\n\n");
    m_viewers.push_back({answer.Live, std::move(mayLook)});
    if (!m_look.isActive()) {
        // What happened while nobody looked is no news.
        m_follower = std::make_shared<LedgerFollower>();
        m_look.start(LookInterval);
        m_keepAlive.start(KeepAliveInterval);
        Look();
    }
    return answer;
}

void EventFeed::Look()
{
    if (std::exchange(m_isLooking, true))
        return;
    const auto look = [follower = m_follower](ConsoleStore& store) {
        Answer answer;
        answer.Body = follower->Look(store);
        return answer;
    };
    m_thread.Ask(look, [this](const Answer& answer) {
        m_isLooking = false;
        if (!answer.Body.isEmpty() && answer.Status == 200)
            Tell(answer.Body);
    });
}

void EventFeed::Tell(const QByteArray& events)
{
    for (const Viewer& viewer : m_viewers)
        viewer.Stream->Push(events);
}

void EventFeed::KeepAlive()
{
    for (const Viewer& viewer : m_viewers) {
        if (viewer.MayLook())
            viewer.Stream->Push(": \n\n");
        else
            viewer.Stream->End();
    }
    m_viewers.erase(std::remove_if(m_viewers.begin(), m_viewers.end(),
                                   [](const Viewer& viewer) { return viewer.Stream->IsEnded(); }),
                    m_viewers.end());
    if (m_viewers.empty()) {
        m_look.stop();
        m_keepAlive.stop();
    }
}

} // namespace vantrel::console
