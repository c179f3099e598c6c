#pragma once

#include "store/Connection.h"
#include "store/Recordset.h"
#include "store/Schema.h"
#include "store/StoreDatabase.h"
#include "support/FailureOf.h"
#include "support/Print.h"
#include "support/TestStore.h"
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vantrel::test {

inline CursorShape ShapeOf(StoreDatabase& store, const QString& statement)
{
    SelectStatement select = ParseSelect(statement);
    const std::vector<StoreColumn> columns = store.ColumnsOf(select.Table);
    return CursorShape(std::move(select), columns);
}

/// The values of a column in the rows of a statement, as texts.
inline QStringList Column(Connection& store, const QString& statement, const QString& column)
{
    QStringList values;
    Recordset rows(store);
    for (rows.Open(statement); !rows.IsEof(); rows.MoveNext())
        values.append(rows.Value(column).toString());
    return values;
}

/// A fresh layout database, open.
class StoreTest : public ::testing::Test
{
protected:
    StoreTest() { Store.Open(Path); }

    /// Adds a row with a text to `Controls`.
    static void AddControl(Connection& store, const QString& layout, int page, const QString& text)
    {
        Recordset rows(store);
        rows.Open(QStringLiteral("SELECT * FROM [Controls] WHERE [Page] = -1"),
                  CursorLock::Optimistic);
        rows.AddNew();
        rows.SetValue(QStringLiteral("LayoutName"), layout);
        rows.SetValue(QStringLiteral("Page"), page);
        rows.SetValue(QStringLiteral("C_Value"), text);
        rows.Update();
    }

    /// The values of one column of all rows, in the cursor's order.
    QStringList Texts()
    {
        return Column(Store, QStringLiteral("SELECT * FROM [Controls]"), QStringLiteral("C_Value"));
    }

    QTemporaryDir Folder;
    TestStore Made{Folder.filePath(QLatin1StringView(LayoutDatabaseName))};
    /// What connections to the store are opened with.
    QString Path = Made.Location();
    Connection Store;
};

} // namespace vantrel::test
