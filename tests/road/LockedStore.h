#pragma once

#include "samples/FreshInstall.h"
#include <QSqlDatabase>
#include <QSqlQuery>
#include <gtest/gtest.h>

namespace vantrel::test {

/// Holds the lock of the layout database, as another session in the middle of a save does.
class LockedStore
{
public:
    explicit LockedStore(const QString& programFolder)
    {
        m_database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("lock"));
        m_database.setDatabaseName(LayoutDatabasePath(programFolder));
        EXPECT_TRUE(m_database.open());
        EXPECT_TRUE(QSqlQuery(m_database).exec(QStringLiteral("BEGIN IMMEDIATE")));
    }
    LockedStore(const LockedStore&) = delete;
    LockedStore& operator=(const LockedStore&) = delete;
    ~LockedStore()
    {
        QSqlQuery(m_database).exec(QStringLiteral("ROLLBACK"));
        m_database = {};
        QSqlDatabase::removeDatabase(QStringLiteral("lock"));
    }

private:
    QSqlDatabase m_database;
};

} // namespace vantrel::test
