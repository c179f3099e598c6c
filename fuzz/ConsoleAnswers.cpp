#include "FuzzInput.h"
#include "base/Failure.h"
#include "console/ConsoleStore.h"
#include "console/Query.h"
#include "console/Routes.h"
#include "ledger/LedgerTables.h"
#include "samples/DemoInstall.h"
#include "samples/FreshInstall.h"
#include <QJsonDocument>
#include <QTemporaryDir>
#include <algorithm>
#include <memory>

// Whatever a client that was let in asks of the store: each answer of JSON is JSON, and what is
// refused is refused with a reason, by the one who asks or by the ledger.

namespace {

using namespace vantrel;
using namespace vantrel::console;

/// Records that are added make every list longer.
constexpr int RequestsOfAFolder = 2000;

/// A program folder with sample layouts and some records.
struct Folder
{
    Folder()
    {
        const QString path = Top.filePath(QStringLiteral("Vantrel"));
        MakeDemoFolder(path);
        Connection store;
        store.Open(LayoutDatabasePath(path));
        MakeLedgerTables(store.Database());
        Store = std::make_unique<ConsoleStore>(path);
    }

    QTemporaryDir Top;
    std::unique_ptr<ConsoleStore> Store;
};

void CheckAnswer(const Answer& answer)
{
    fuzz::Require(answer.Status >= 200 && answer.Status < 600, "an answer has a status");
    if (!answer.Type.startsWith("application/json"))
        return;
    QJsonParseError error;
    QJsonDocument::fromJson(answer.Body, &error);
    fuzz::Require(error.error == QJsonParseError::NoError, "an answer of JSON is JSON");
}

void Ask(ConsoleStore& store, const Route& route, const Request& request,
         const PathNumbers& numbers)
{
    try {
        store.BeginAnswer();
        CheckAnswer(route.Handle(store, request, numbers));
    } catch (const NotTaken& refusal) {
        fuzz::Require(refusal.Status >= 400 && refusal.Status < 500 && !refusal.Reason.isEmpty(),
                      "a refusal has a reason");
    } catch (const Failure& failure) {
        fuzz::Require(!failure.Text().isEmpty(), "a failure has a reason");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static std::unique_ptr<Folder> folder;
    static int requests = 0;
    if (requests++ % RequestsOfAFolder == 0) {
        folder.reset();
        folder = std::make_unique<Folder>();
    }
    fuzz::Input input(data, size);
    const auto target = ReadTarget(input.Bytes());
    if (!target)
        return 0;
    Request request;
    request.To = *target;
    request.ContentType = "application/json";
    request.Body = input.Rest().first(std::min(input.Rest().size(), LongestBody));
    PathNumbers numbers;
    for (const Route& route : Routes()) {
        request.Method = route.Method;
        if (IsOnPath(request.To.Path, QLatin1StringView(route.Path), numbers))
            Ask(*folder->Store, route, request, numbers);
    }
    return 0;
}
