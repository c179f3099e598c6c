#include "console/Console.h"
#include "base/Skip.h"
#include "console/Page.h"
#include "console/Routes.h"
#include <QDir>
#include <QTimer>

namespace vantrel::console {

namespace {

/// How often the ledger is counted while nobody asks, so that nothing is removed before that.
constexpr std::chrono::seconds CountInterval{5};

/// Whether a request with this method may ask what `wanted` answers.
bool IsMethod(const QByteArray& method, const char* wanted)
{
    return method == wanted || (method == "HEAD" && QByteArrayView(wanted) == "GET");
}

Answer NotFound()
{
    return Refusal(404, QStringLiteral("There is nothing of this name."));
}

Answer WrongMethod(const QByteArray& allowed)
{
    Answer refusal = Refusal(405, QStringLiteral("This is asked for by another method."));
    refusal.Headers.emplace_back("Allow", allowed);
    return refusal;
}

} // namespace

Console::Console(const QString& programFolder, const ListenTerms& terms)
    : m_store(programFolder), m_pictureStore(programFolder),
      m_gate(Tokens(QDir(programFolder).filePath(QLatin1StringView(TokenFileName)))),
      m_thread(m_store), m_pictureThread(m_pictureStore),
      m_server(terms, [this](const Request& request,
                             const HttpServer::Reply& reply) { Handle(request, reply); }),
      m_events(m_thread)
{
    connect(&m_count, &QTimer::timeout, this, [this] { CountSoFar(); });
    m_count.start(CountInterval);
}

void Console::CountSoFar()
{
    m_thread.Do([](ConsoleStore& store) {
        Skip("count", [&] { store.Metrics().Look(store.Database()); });
    });
}

void Console::Refuse(const Answer& refusal, const HttpServer::Reply& reply)
{
    if (refusal.Delay.count() == 0) {
        reply(refusal);
        return;
    }
    QTimer::singleShot(refusal.Delay, this, [this, refusal, reply] {
        m_gate.Sent(refusal);
        reply(refusal);
    });
}

bool Console::HandleHere(const Request& request, const HttpServer::Reply& reply)
{
    struct Local
    {
        const char* Method;
        const char* Path;
        std::function<Answer()> Handle;
    };
    if (auto file = PageFile(request.To.Path)) {
        reply(IsMethod(request.Method, "GET") ? *std::move(file) : WrongMethod("GET"));
        return true;
    }
    const Local locals[] = {
        {"POST", "login", [&] { return m_gate.LogIn(request); }},
        {"POST", "logout", [&] { return m_gate.LogOut(request); }},
        {"GET", "login", [&] { return m_gate.ShowLogin(request); }},
        {"GET", EventsPath, [&] { return ShowEvents(request); }},
    };
    QByteArray allowed;
    PathNumbers numbers;
    for (const Local& local : locals) {
        if (!IsOnPath(request.To.Path, QLatin1StringView(local.Path), numbers))
            continue;
        if (IsMethod(request.Method, local.Method)) {
            Refuse(local.Handle(), reply);
            return true;
        }
        allowed += (allowed.isEmpty() ? "" : ", ") + QByteArray(local.Method);
    }
    if (!allowed.isEmpty())
        reply(WrongMethod(allowed));
    return !allowed.isEmpty();
}

Answer Console::ShowEvents(const Request& request)
{
    if (auto refusal = m_gate.Refuses(request, Need::Token))
        return *std::move(refusal);
    // HEAD wants no body that never ends.
    if (request.Method == "HEAD")
        return EmptyAnswer(200);
    return m_events.Open([this, request] { return m_gate.LetsIn(request); });
}

void Console::Handle(const Request& request, const HttpServer::Reply& reply)
{
    if (HandleHere(request, reply))
        return;
    QByteArray allowed;
    PathNumbers numbers;
    for (const Route& route : Routes()) {
        if (!IsOnPath(request.To.Path, QLatin1StringView(route.Path), numbers))
            continue;
        if (!IsMethod(request.Method, route.Method)) {
            allowed += (allowed.isEmpty() ? "" : ", ") + QByteArray(route.Method);
            continue;
        }
        if (const auto refusal = m_gate.Refuses(request, route.Need)) {
            Refuse(*refusal, reply);
            return;
        }
        StoreThread& thread = route.Thread == Thread::Pictures ? m_pictureThread : m_thread;
        thread.Ask([handle = route.Handle, request,
                    numbers](ConsoleStore& store) { return handle(store, request, numbers); },
                   reply);
        return;
    }
    reply(allowed.isEmpty() ? NotFound() : WrongMethod(allowed));
}

} // namespace vantrel::console
