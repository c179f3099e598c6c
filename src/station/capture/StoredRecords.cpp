#include "station/capture/StoredRecords.h"
#include "base/InputText.h"
#include "base/Skip.h"
#include "ledger/LedgerPool.h"
#include "ledger/LedgerReading.h"
#include "ledger/LedgerTending.h"
#include "printers/Printer.h"
#include "station/capture/Pipeline.h"
#include "station/layout/RecordPage.h"
#include "station/ledger/RecordRoad.h"
#include "station/ledger/StationLedger.h"
#include "station/print/Reprint.h"
#include "station/session/Session.h"
#include "store/StoreDatabase.h"
#include <QDateTime>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <memory>

namespace vantrel {

namespace {

constexpr int LookMilliseconds = 500;
/// An idle station asks a server less than once a second.
constexpr int LookAtServerMilliseconds = 1500;
/// A member of a pool to which records have come a moment ago.
constexpr int AgainMilliseconds = 100;
constexpr qint64 SoonMilliseconds = 5000;
/// How often a member of a pool looks for those that have ended.
constexpr int ReleaseMilliseconds = 10'000;
constexpr int TidyMilliseconds = 60'000;
/// While there is more to remove.
constexpr int TidyAgainMilliseconds = 1000;
/// Old entries that are removed at a time, so that no record waits for it.
constexpr qlonglong FewEntries = 200;

/// The next entry for this station as a member of its pool; nothing if there is none.
std::optional<LedgerEntry> ClaimFromPool(Session& session)
{
    std::vector<qlonglong> underWay;
    for (const RecordRunPtr& run : session.Ledger.Runs())
        underWay.push_back(run->Entry.Id);
    StoreDatabase& database = session.LayoutDb.Database();
    const auto claimed = ClaimEntry(database,
                                    {.Pool = session.Options.Pool.Name,
                                     .Session = session.SessionNumber,
                                     .Printers = session.Printers.DeviceNames()},
                                    underWay);
    return claimed ? FindEntry(database, *claimed) : std::nullopt;
}

/// The first entry of this session that nobody is printing; nothing if there is none.
std::optional<LedgerEntry> NextStoredEntry(Session& session)
{
    if (session.Options.Pool.Prints())
        return ClaimFromPool(session);
    StoreDatabase& database = session.LayoutDb.Database();
    std::optional<qlonglong> next;
    const auto& runs = session.Ledger.Runs();
    const auto isOnRoad = [&](qlonglong id) {
        return std::any_of(runs.begin(), runs.end(),
                           [&](const RecordRunPtr& run) { return run->Entry.Id == id; });
    };
    database.Select(QStringLiteral("SELECT ID FROM LedgerEntries WHERE State = ? AND "
                                   "SessionNumber = ? ORDER BY ID LIMIT 100"),
                    {NameOf(LedgerState::Received), static_cast<int>(session.SessionNumber)},
                    [&](const StoreRow& row) {
                        const qlonglong id = row.Value(0).toLongLong();
                        if (!next && !isOnRoad(id))
                            next = id;
                    });
    return next ? FindEntry(database, *next) : std::nullopt;
}

/// The entry whose cards are printed again: the first one, or the first of its reprints of which a
/// card was drawn; nothing if none was yet.
std::optional<LedgerEntry> DrawnBefore(Session& session, const LedgerEntry& entry)
{
    std::optional<LedgerEntry> drawn;
    if (!entry.ReprintOf)
        return drawn;
    StoreDatabase& database = session.LayoutDb.Database();
    Skip("entry drawn before", [&] {
        QVariant id;
        database.Select(QStringLiteral("SELECT MIN(EntryID) FROM LedgerCards WHERE PageHash <> '' "
                                       "AND EntryID IN (SELECT ? UNION ALL SELECT ID FROM "
                                       "LedgerEntries WHERE ReprintOf = ? AND ID < ?)"),
                        {*entry.ReprintOf, *entry.ReprintOf, entry.Id},
                        [&](const StoreRow& row) { id = row.Value(0); });
        if (!id.isNull())
            drawn = FindEntry(database, id.toLongLong());
    });
    return drawn;
}

/// @return false if it waits until its cards can be written into the ledger
bool TakeStoredRecord(Session& session, const LedgerEntry& entry)
{
    const RoadHold hold(session.Road);
    const RecordRoad road(session, {.Source = entry.Source, .Stored = entry});
    if (!entry.HasValues) {
        NoteWhyNoCard(session, QStringLiteral("The values of the record were not kept."));
        return true;
    }
    if (const auto drawn = DrawnBefore(session, entry)) {
        ReprintCards(session, *drawn);
        return !road.IsPostponed();
    }
    // On the layout that was open when the record came, here or at another station.
    const RecordPage record(session, session.Options.Pool.Prints()
                                         ? PageKey{entry.Layout, 1}
                                         : PageToPrint(session, entry.Layout));
    InputDecoder decoder(session.Options.Encoding);
    TakeValues(session, decoder.Decode(entry.Raw), entry.Values, record);
    return !road.IsPostponed();
}

/// Whether an entry may be begun now.
bool MayCarryOut(const Session& session)
{
    // What is in doubt is no entry to be carried out.
    const RecordLedger& ledger = session.Ledger;
    return session.Options.Ledger && !session.Road.IsBusy() && !ledger.HasDoubts() &&
           !ledger.IsRefused();
}

/// Carries out the next entry that is received, if there is one. @return false if there is none, or
/// if it must wait
bool TakeOneStoredRecord(Session& session)
{
    std::optional<LedgerEntry> entry;
    return MayCarryOut(session) &&
           Skip("stored record", [&] { entry = NextStoredEntry(session); }) && entry &&
           TakeStoredRecord(session, *entry);
}

int IdleMilliseconds(Session& session)
{
    Connection& store = session.LayoutDb;
    return store.IsOpen() && !store.Database().MayKeepRows() ? LookAtServerMilliseconds
                                                             : LookMilliseconds;
}

/// Carries out one entry, so that hosts are heard between two.
/// @param lastTaken  started with each entry that is carried out
/// @return after how many milliseconds to come again
int TakeFromPool(Session& session, QElapsedTimer& lastTaken)
{
    if (TakeOneStoredRecord(session)) {
        lastTaken.start();
        return 0;
    }
    const bool wasBusy = lastTaken.isValid() && !lastTaken.hasExpired(SoonMilliseconds);
    return wasBusy ? AgainMilliseconds : IdleMilliseconds(session);
}

/// A store that could only be read when it was opened stays so until it is opened again.
void OpenReadOnlyStoreAgain(Session& session)
{
    Connection& store = session.LayoutDb;
    if (session.Road.IsBusy() || !store.IsOpen() || !store.Database().IsReadOnly())
        return;
    const QString path = store.Database().Location();
    if (!QFileInfo(path).isWritable())
        return;
    Skip("open store again", [&] { store.Open(path); });
    OpenLedger(session);
}

/// Does what has become possible since records came last.
void CatchUp(Session& session)
{
    OpenReadOnlyStoreAgain(session);
    // Also while a question is open that holds up the next card.
    if (session.Ledger.HasChanges())
        WriteLedger(session);
    if (session.OfferAgain && !session.Road.IsBusy())
        std::exchange(session.OfferAgain, nullptr)();
}

/// @return after how many milliseconds to come again
int Look(Session& session)
{
    CatchUp(session);
    TakeStoredRecords(session);
    return IdleMilliseconds(session);
}

/// @return after how many milliseconds to come again
int Release(Session& session)
{
    if (MayCarryOut(session))
        Skip("abandoned entries", [&] {
            ReleaseAbandoned(session.LayoutDb.Database(), session.Options.Pool.Name,
                             QDateTime::currentMSecsSinceEpoch());
        });
    return ReleaseMilliseconds;
}

/// @return after how many milliseconds to come again
int Tidy(Session& session)
{
    qlonglong removed = 0;
    Skip("old entries", [&] {
        removed = RemoveOldEntries(session.LayoutDb.Database(), session.Options.LedgerKeepDays,
                                   FewEntries);
    });
    return removed < FewEntries ? TidyMilliseconds : TidyAgainMilliseconds;
}

/// Calls `act` after so many milliseconds, and each time after as many as it asks for.
void Repeat(Session& session, int milliseconds, std::function<int(Session&)> act)
{
    auto* timer = new QTimer(&session.Face);
    QObject::connect(timer, &QTimer::timeout, timer,
                     [&session, timer, act = std::move(act)] { timer->setInterval(act(session)); });
    timer->start(milliseconds);
}

void TendPool(Session& session)
{
    const auto lastTaken = std::make_shared<QElapsedTimer>();
    Repeat(session, 0, [lastTaken](Session& member) {
        CatchUp(member);
        return TakeFromPool(member, *lastTaken);
    });
    Repeat(session, ReleaseMilliseconds, Release);
}

} // namespace

void FindDoubtfulCards(Session& session)
{
    if (!session.Options.Ledger || session.Ledger.IsRefused())
        return;
    Skip("doubtful cards",
         [&] { MakeDoubtful(session.LayoutDb.Database(), session.SessionNumber); });
}

void TakeStoredRecords(Session& session)
{
    while (TakeOneStoredRecord(session))
        continue;
}

void TendLedger(Session& session)
{
    if (!session.Options.Ledger)
        return;
    FollowJobs(session);
    if (session.Options.Pool.Prints()) {
        TendPool(session);
    } else {
        TakeStoredRecords(session);
        Repeat(session, LookMilliseconds, Look);
    }
    Repeat(session, Tidy(session), Tidy);
}

} // namespace vantrel
