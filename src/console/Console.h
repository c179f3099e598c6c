#pragma once

#include "console/ConsoleStore.h"
#include "console/EventFeed.h"
#include "console/Gate.h"
#include "console/HttpServer.h"
#include "console/StoreThread.h"

namespace vantrel::console {

/// The file with the token, in the program folder.
inline constexpr const char* TokenFileName = "Console.token";

/// The path of the live events.
inline constexpr const char* EventsPath = "api/v1/events";

/// The console of a program folder: serves it from when it is made until it is destroyed, in the
/// event loop of its thread.
class Console : public QObject
{
public:
    /// Fails like `ConsoleStore`, `Tokens` and `HttpServer`.
    Console(const QString& programFolder, const ListenTerms& terms);

    quint16 Port() const { return m_server.Port(); }

private:
    void Handle(const Request& request, const HttpServer::Reply& reply);
    /// @return whether it is one of the paths that need no store
    bool HandleHere(const Request& request, const HttpServer::Reply& reply);
    void CountSoFar();
    Answer ShowEvents(const Request& request);
    void Refuse(const Answer& refusal, const HttpServer::Reply& reply);

    ConsoleStore m_store;
    ConsoleStore m_pictureStore;
    Gate m_gate;
    StoreThread m_thread;
    StoreThread m_pictureThread;
    HttpServer m_server;
    EventFeed m_events;
    QTimer m_count;
};

} // namespace vantrel::console
