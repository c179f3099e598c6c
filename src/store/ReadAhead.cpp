#include "store/ReadAhead.h"
#include "base/Skip.h"
#include "store/ConnectionPrivate.h"

namespace vantrel {

ReadAhead::ReadAhead(Connection& connection, const QStringList& statements)
    : m_connection(connection)
{
    if (connection.m_d->AheadDepth++ == 0)
        connection.m_d->Looked.clear();
    Skip("read ahead", [&] { connection.m_d->ReadAtOnce(statements); });
}

ReadAhead::~ReadAhead()
{
    --m_connection.m_d->AheadDepth;
}

void Connection::Private::ReadAtOnce(const QStringList& statements)
{
    StoreDatabase& database = Opened();
    if (MayAskForChanges() || database.InTransaction())
        return;
    std::vector<std::pair<QString, CursorResult>> wanted;
    for (const QString& statement : statements) {
        Skip("statement to read ahead", [&] {
            const auto kept = Kept.Find(statement, {});
            if (kept && Looked.contains(statement))
                return;
            const CursorResult known = kept ? *kept : CursorResult{ShapeOf(statement), nullptr};
            if (!Pending.Concerns(known.Shape->Select()))
                wanted.emplace_back(statement, known);
        });
    }
    std::vector<StoreDatabase::KnownRows> known;
    known.reserve(wanted.size());
    for (const auto& [statement, result] : wanted)
        known.push_back({result.Shape.get(), result.Rows.get()});
    std::vector<std::optional<CursorRows>> changed = database.ReadChanged(known);
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        auto& [statement, result] = wanted[i];
        if (changed[i]) {
            result.Rows = std::make_shared<CursorRows>(std::move(*changed[i]));
            Kept.Keep(statement, result);
        }
        Looked.insert(statement);
    }
}

} // namespace vantrel
