#pragma once

#include <QMetaObject>
#include <QObject>
#include <QThread>
#include <utility>
#ifdef __SANITIZE_THREAD__
#include <mutex>
#endif

namespace vantrel {

#ifdef __SANITIZE_THREAD__
/// Qt is built without the sanitizer, which does not see how its threads wait for each other. It
/// sees this lock, which is held while a call is handed over and when a thread ends.
inline std::mutex HandingOver;
#endif

/// Lets `work` run in the thread of `object`, by its event loop and in the order of the calls. It
/// does not run if the object is gone by then.
template <typename Work>
void CallIn(QObject* object, Work&& work)
{
#ifdef __SANITIZE_THREAD__
    const std::lock_guard handing(HandingOver);
    const auto call = [work = std::forward<Work>(work)] {
        {
            const std::lock_guard handedOver(HandingOver);
        }
        work();
    };
    QMetaObject::invokeMethod(object, call, Qt::QueuedConnection);
#else
    QMetaObject::invokeMethod(object, std::forward<Work>(work), Qt::QueuedConnection);
#endif
}

/// Lets the event loop of a thread end, and waits until the thread has ended. Calls that were
/// handed over before may run first, or never.
inline void EndThread(QThread& thread)
{
#ifdef __SANITIZE_THREAD__
    const auto end = [] { const std::lock_guard ending(HandingOver); };
    QObject::connect(&thread, &QThread::finished, &thread, end, Qt::DirectConnection);
#endif
    thread.quit();
    thread.wait();
#ifdef __SANITIZE_THREAD__
    const std::lock_guard ended(HandingOver);
#endif
}

} // namespace vantrel
