#pragma once

#include "support/TestSession.h"
#include <QMap>
#include <QVariant>

namespace vantrel::test {

using StoredRow = QMap<QString, QVariant>;

/// What the store holds, read over a connection that is not the station's.
QList<StoredRow> StoredRows(const vantrel::Session& session, const QString& statement);
/// The stored objects of one page in the order of insertion, without their hidden key.
QList<StoredRow> StoredPage(const vantrel::Session& session, const QString& layoutName, int page);
/// Changes the store over a connection that is not the station's.
void Execute(const vantrel::Session& session, const QString& statement);

} // namespace vantrel::test
