#include "console/RecordChanges.h"
#include "console/ConsoleStore.h"
#include "console/Query.h"
#include "console/Stations.h"
#include "ledger/LedgerReading.h"
#include "ledger/LedgerTending.h"
#include "ledger/RecordLedger.h"
#include "station/layout/Navigation.h"
#include "station/print/Reprint.h"
#include "station/session/StationOptions.h"
#include <QDateTime>
#include <QJsonArray>
#include <algorithm>
#include <limits>

namespace vantrel::console {

namespace {

/// What the ledger names as the source of a record that was entered here.
const QString Source = QStringLiteral("console");

/// A record as it was entered.
struct Entered
{
    QString Layout;
    QStringList Values;
    std::optional<int> Session;
};

QJsonObject ObjectOf(const Request& request)
{
    if (!request.HasJson())
        throw NotTaken{415, QStringLiteral("The request wants the type application/json.")};
    auto object = ReadObject(request.Body);
    if (!object)
        throw NotTaken{400, QStringLiteral("The request is no object of JSON.")};
    return *std::move(object);
}

Entered ReadEntered(const QJsonObject& object)
{
    Entered entered;
    const QJsonValue layout = object.value(u"layout");
    const QJsonValue values = object.value(u"values");
    if (!layout.isString() || layout.toString().isEmpty())
        throw NotTaken{400, QStringLiteral("\"layout\" wants the name of a layout.")};
    entered.Layout = layout.toString();
    const QJsonArray array = values.toArray();
    if (!values.isArray() ||
        !std::all_of(array.begin(), array.end(), [](const auto& one) { return one.isString(); }))
        throw NotTaken{400, QStringLiteral("\"values\" wants a list of texts.")};
    for (const auto& value : array)
        entered.Values += value.toString();
    if (const QJsonValue session = object.value(u"session"); !session.isUndefined()) {
        const int number = session.toInt(-1);
        if (number < 0 || number > std::numeric_limits<std::uint8_t>::max())
            throw NotTaken{400, QStringLiteral("\"session\" wants a number from 0 to 255.")};
        entered.Session = number;
    }
    return entered;
}

/// The first session that runs, else the first that should, else session 1.
int UsualSession(ConsoleStore& store)
{
    std::optional<int> alive;
    std::optional<int> wanted;
    const auto take = [](std::optional<int>& first, int session) {
        first = std::min(first.value_or(session), session);
    };
    for (const StationSeen& seen : StationsNow(store)) {
        if (seen.State == StationState::Alive)
            take(alive, seen.Station.Session);
        if (seen.IsWanted)
            take(wanted, seen.Station.Session);
    }
    return alive ? *alive : wanted.value_or(1);
}

void RefuseUnprintable(ConsoleStore& store, const Entered& entered)
{
    QStringList mistakes;
    if (!ReadStationOptions(store.ProgramFolder(), mistakes).LedgerValues)
        throw NotTaken{409, QStringLiteral("The station keeps no values of records, so it cannot "
                                           "print one from here.")};
    if (!LayoutNames(store.Store()).contains(entered.Layout))
        throw NotTaken{400, QStringLiteral("There is no layout %1.").arg(entered.Layout)};
}

qlonglong Add(ConsoleStore& store, const Entered& entered, int session)
{
    LedgerEntry entry;
    entry.Received = QDateTime::currentMSecsSinceEpoch();
    entry.Session = session;
    entry.Source = Source;
    entry.Layout = entered.Layout;
    RecordLedger ledger;
    ledger.Open(store.Store(), {.On = true, .KeepValues = true, .HashKey = {}});
    const RecordRunPtr run = ledger.Begin(std::move(entry));
    ledger.SetValues(
        *run, static_cast<int>(entered.Values.size()),
        [&](int position) { return entered.Values.at(position - 1); }, QString());
    ledger.Flush();
    store.NoteOwnChange();
    return run->Entry.Id;
}

void RefuseUnknown(ConsoleStore& store, qlonglong id)
{
    if (!FindEntry(store.Database(), id, LedgerBytes::Without))
        throw NotTaken{404, QStringLiteral("The ledger has no entry %1.").arg(id)};
}

Answer PrintedBefore(StoreDatabase& database, qlonglong id, qlonglong reprint)
{
    // A program can see that asking with "again" would do.
    Answer refusal =
        JsonAnswer("{\"error\": " + JsonText(PrintedAgainAlready(database, id, reprint)) +
                   ", \"reprinted_as\": " + QByteArray::number(reprint) + "}\n");
    refusal.Status = 409;
    return refusal;
}

} // namespace

Answer AddRecord(ConsoleStore& store, const Request& request, const PathNumbers& /*numbers*/)
{
    const Entered entered = ReadEntered(ObjectOf(request));
    RefuseUnprintable(store, entered);
    const int session = entered.Session ? *entered.Session : UsualSession(store);
    const qlonglong id = Add(store, entered, session);
    Answer answer = JsonAnswer("{\"id\": " + QByteArray::number(id) +
                               ", \"session\": " + QByteArray::number(session) + "}\n");
    answer.Status = 201;
    answer.Headers.emplace_back("Location", "/api/v1/records/" + QByteArray::number(id));
    return answer;
}

Answer ReprintRecord(ConsoleStore& store, const Request& request, const PathNumbers& numbers)
{
    const qlonglong id = numbers.at(0);
    const bool again = !request.Body.isEmpty() && ObjectOf(request).value(u"again").toBool();
    RefuseUnknown(store, id);
    StoreDatabase& database = store.Database();
    if (const auto reprint = FindReprint(database, id); reprint && !again)
        return PrintedBefore(database, id, *reprint);
    const qlonglong added =
        AskReprint(database, id, again ? ReprintMode::Again : ReprintMode::Once);
    store.NoteOwnChange();
    const bool wasChanged =
        WasChangedSince(store.Store(), EntryNumbered(database, id, LedgerBytes::Without));
    Answer answer = JsonAnswer("{\"id\": " + QByteArray::number(added) +
                               ", \"layout_changed\": " + (wasChanged ? "true" : "false") + "}\n");
    answer.Status = 201;
    answer.Headers.emplace_back("Location", "/api/v1/records/" + QByteArray::number(added));
    return answer;
}

Answer VoidRecord(ConsoleStore& store, const Request& /*request*/, const PathNumbers& numbers)
{
    const qlonglong id = numbers.at(0);
    RefuseUnknown(store, id);
    VoidEntry(store.Database(), id);
    store.NoteOwnChange();
    return JsonAnswer("{\"id\": " + QByteArray::number(id) + ", \"state\": \"void\"}\n");
}

} // namespace vantrel::console
