#pragma once

#include <QMetaObject>
#include <QObject>
#include <utility>
#ifdef __SANITIZE_THREAD__
#include <mutex>
#endif

namespace vantrel {

#ifdef __SANITIZE_THREAD__
/// Qt is built without the sanitizer, which does not see how its event loops wait for each other.
/// It sees this lock, which is held while a call is handed over.
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

} // namespace vantrel
