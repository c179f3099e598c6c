#include "store/ReadAhead.h"
#include "base/Skip.h"
#include "store/ConnectionPrivate.h"

namespace vantrel {

ReadAhead::ReadAhead(Connection& connection, const QStringList& statements)
    : m_connection(connection)
{
    if (connection.m_d->AheadDepth++ == 0 && !connection.m_d->MayAskForChanges())
        connection.m_d->Kept.ForgetAll();
    Skip("read ahead", [&] { connection.m_d->ReadAtOnce(statements); });
}

ReadAhead::~ReadAhead()
{
    if (--m_connection.m_d->AheadDepth == 0 && !m_connection.m_d->MayAskForChanges())
        m_connection.m_d->Kept.ForgetAll();
}

void Connection::Private::ReadAtOnce(const QStringList& statements)
{
    StoreDatabase& database = Opened();
    if (MayAskForChanges() || database.InTransaction())
        return;
    std::vector<std::pair<QString, std::shared_ptr<CursorShape>>> wanted;
    for (const QString& statement : statements) {
        Skip("statement to read ahead", [&] {
            auto shape = ShapeOf(statement);
            if (!Pending.Concerns(shape->Select()) && !Kept.Find(statement, {}))
                wanted.emplace_back(statement, std::move(shape));
        });
    }
    std::vector<const CursorShape*> shapes;
    for (const auto& [statement, shape] : wanted)
        shapes.push_back(shape.get());
    std::vector<CursorRows> results = database.ReadAll(shapes);
    for (std::size_t i = 0; i < wanted.size(); ++i)
        Kept.Keep(wanted[i].first,
                  {wanted[i].second, std::make_shared<CursorRows>(std::move(results.at(i)))});
}

} // namespace vantrel
