#include "StoreTest.h"
#include "store/ReadAhead.h"
#include "store/StoreDatabase.h"
#include "store/StoreTransaction.h"
#include "store/StoreUpgrade.h"
#include "support/PrivatePooler.h"
#include "support/PrivatePostgres.h"

// A server is asked whether rows were written since they were read, which costs less than reading
// them.

namespace vantrel::test {

namespace {

const QString Controls = QStringLiteral("Controls");
const QString Text = QStringLiteral("C_Value");
const QString Objects = QStringLiteral("SELECT * FROM [Controls] WHERE [LayoutName] = 'Badge'");
const QString ByText = Objects + QStringLiteral(" ORDER BY [C_Value] DESC");
const QString Pages =
    QStringLiteral("SELECT DISTINCT [Page] FROM [Controls] WHERE [LayoutName] = 'Badge'");
const QString None = QStringLiteral("SELECT * FROM [Controls] WHERE [LayoutName] = 'Pass'");

/// A reader that keeps what it has read.
struct Reader
{
    explicit Reader(const QString& address) : Store(OpenStoreDatabase(address))
    {
        for (const QString& statement : {Objects, ByText, Pages, None})
            Shapes.push_back(ShapeOf(*Store, statement));
        Rows.resize(Shapes.size());
        Look();
    }

    /// Reads what has changed. @return for which of the statements
    QList<bool> Look()
    {
        std::vector<StoreDatabase::KnownRows> known;
        for (std::size_t i = 0; i < Shapes.size(); ++i)
            known.push_back({&Shapes[i], Rows[i] ? &*Rows[i] : nullptr});
        std::vector<std::optional<CursorRows>> found = Store->ReadChanged(known);
        QList<bool> changed;
        for (std::size_t i = 0; i < found.size(); ++i) {
            changed.append(found[i].has_value());
            if (found[i])
                Rows[i] = std::move(found[i]);
        }
        return changed;
    }

    std::unique_ptr<StoreDatabase> Store;
    std::vector<CursorShape> Shapes;
    std::vector<std::optional<CursorRows>> Rows;
};

const QList<bool> Nothing{false, false, false, false};
const QList<bool> RowsOfLayout{true, true, false, false};
const QList<bool> RowsAndPages{true, true, true, false};
const QList<bool> All{true, true, true, true};

class ServerVersions : public ::testing::Test
{
protected:
    ServerVersions()
    {
        BringUpToDate(*Other, {});
        Key = Add(1, QStringLiteral("a"));
        Add(1, QStringLiteral("b"));
    }

    qlonglong Add(int page, const QString& text)
    {
        return Other
            ->InsertRow(Controls, {QStringLiteral("LayoutName"), QStringLiteral("Page"), Text},
                        {QStringLiteral("Badge"), page, text}, nullptr)
            .value();
    }
    void Set(const QString& column, const QVariant& value)
    {
        Other->UpdateRow(ShapeOf(*Other, Objects), Key, {column}, {value});
    }
    void SetText(const QString& text) { Set(Text, text); }

    PrivatePostgres& Server = PrivatePostgres::Shared();
    QString Address = Server.NewDatabase();
    std::unique_ptr<StoreDatabase> Other = OpenStoreDatabase(Address);
    qlonglong Key = 0;
};

} // namespace

TEST_F(ServerVersions, RowsThatNobodyHasWrittenAreTheKnownOnes)
{
    Reader reader(Address);
    EXPECT_EQ(reader.Rows[0]->size(), 2U);
    EXPECT_EQ(reader.Rows[2]->size(), 1U);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(reader.Look(), Nothing) << i;
}

TEST_F(ServerVersions, WhateverAnotherStationWritesIsReadAnew)
{
    Reader reader(Address);
    SetText(QStringLiteral("c"));
    EXPECT_EQ(reader.Look(), RowsOfLayout);
    EXPECT_EQ(reader.Look(), Nothing);
    // It may be the same value again.
    SetText(QStringLiteral("c"));
    EXPECT_EQ(reader.Look(), RowsOfLayout);
    const qlonglong added = Add(2, QStringLiteral("d"));
    EXPECT_EQ(reader.Look(), RowsAndPages);
    EXPECT_EQ(reader.Rows[0]->size(), 3U);
    Other->DeleteRow(Controls, added);
    EXPECT_EQ(reader.Look(), RowsAndPages);
    EXPECT_EQ(reader.Rows[0]->size(), 2U);
    Other->Change(QStringLiteral("UPDATE Controls SET LayoutName = 'Pass' WHERE RowKey = ?"),
                  {Key});
    EXPECT_EQ(reader.Look(), (QList<bool>{true, true, false, true}));
    EXPECT_EQ(reader.Rows[3]->size(), 1U);
    EXPECT_EQ(reader.Look(), Nothing);
}

TEST_F(ServerVersions, RowsThatWereRemovedAndAddedAgainAreReadAnew)
{
    Reader reader(Address);
    Other->Execute(
        QStringLiteral("BEGIN; CREATE TEMP TABLE kept ON COMMIT DROP AS SELECT * FROM controls; "
                       "TRUNCATE controls; INSERT INTO controls SELECT * FROM kept; COMMIT"));
    EXPECT_EQ(reader.Look(), RowsOfLayout);
    EXPECT_EQ(reader.Rows[0]->size(), 2U);
    Other->Execute(QStringLiteral("VACUUM FULL controls"));
    reader.Look();
    EXPECT_EQ(reader.Look(), Nothing);
}

TEST_F(ServerVersions, WhatWasRolledBackIsNoChange)
{
    Reader reader(Address);
    {
        const StoreTransaction transaction(*Other);
        SetText(QStringLiteral("c"));
        EXPECT_EQ(reader.Look(), Nothing);
    }
    EXPECT_EQ(reader.Look(), Nothing);
}

TEST_F(ServerVersions, AnOwnChangeIsKnownAsTheServerHasStoredIt)
{
    Reader reader(Address);
    const auto change = [&](const QString& text) {
        const auto stored = reader.Store->UpdateRow(reader.Shapes[0], Key, {Text}, {text});
        for (CursorRow& row : *reader.Rows[0])
            if (row.Key == Key)
                row = stored.value();
    };
    const QList<bool> otherOrder{false, true, false, false};
    change(QStringLiteral("c"));
    EXPECT_EQ(reader.Look(), otherOrder);
    {
        StoreTransaction transaction(*reader.Store);
        change(QStringLiteral("d"));
        change(QStringLiteral("e"));
        transaction.Commit();
    }
    EXPECT_EQ(reader.Look(), otherOrder);
    {
        const StoreTransaction transaction(*reader.Store);
        change(QStringLiteral("f"));
    }
    // It was rolled back.
    EXPECT_EQ(reader.Look(), (QList<bool>{true, false, false, false}));
    EXPECT_FALSE(
        reader.Store->UpdateRow(reader.Shapes[0], Key + 100, {Text}, {QStringLiteral("g")}));
}

TEST_F(ServerVersions, OnANewConnectionRowsAreReadAnew)
{
    Reader reader(Address);
    const int pid = reader.Store->Execute(QStringLiteral("SELECT pg_backend_pid()")).toInt();
    Other->Execute(QStringLiteral("SELECT pg_terminate_backend(%1, 5000)").arg(pid));
    EXPECT_EQ(reader.Look(), RowsAndPages);
    EXPECT_EQ(reader.Look(), Nothing);
}

TEST_F(ServerVersions, BehindAPoolerRowsAreAlwaysReadAnew)
{
    const PrivatePooler pooler(Server);
    Reader reader(pooler.Through(Address));
    EXPECT_EQ(reader.Look(), All);
    EXPECT_EQ(reader.Look(), All);
}

TEST_F(ServerVersions, ALookShowsTheLatestWhoeverHasWrittenIt)
{
    Connection store;
    store.Open(Address);
    const auto look = [&] {
        const ReadAhead ahead(store, {Objects, Pages});
        return Column(store, Objects, Text);
    };
    const auto write = [&](const QVariant& text) {
        Recordset rows(store);
        rows.Open(Objects, CursorLock::Optimistic);
        rows.SetValue(Text, text);
        rows.Update();
    };
    const QString b = QStringLiteral("b");
    EXPECT_EQ(look(), QStringList({QStringLiteral("a"), b}));
    for (const char* text : {"1", "2", "3"}) {
        write(QString::fromLatin1(text));
        EXPECT_EQ(look(), QStringList({QString::fromLatin1(text), b}));
    }
    SetText(QStringLiteral("c"));
    EXPECT_EQ(look(), QStringList({QStringLiteral("c"), b}));
    store.BeginTrans();
    write(QStringLiteral("d"));
    store.RollbackTrans();
    EXPECT_EQ(look(), QStringList({QStringLiteral("c"), b}));
    store.BeginTransWithNext(StoreLock::OfOwnRows());
    write(QStringLiteral("e"));
    store.CommitTrans();
    EXPECT_EQ(look(), QStringList({QStringLiteral("e"), b}));
}

TEST_F(ServerVersions, AnOwnChangeHidesNoneThatAnotherStationMadeBeforeItInTheSameRow)
{
    const QString top = QStringLiteral("C_Top");
    Connection store;
    store.Open(Address);
    const auto look = [&] {
        const ReadAhead ahead(store, {Objects});
        return QStringList{Column(store, Objects, Text).first(),
                           Column(store, Objects, top).first()};
    };
    Set(top, 10);
    EXPECT_EQ(look(), QStringList({QStringLiteral("a"), QStringLiteral("10")}));
    // Before the number is taken.
    Set(top, 20);
    store.BeginTransWithNext(StoreLock::OfOwnRows());
    {
        Recordset rows(store);
        rows.Open(Objects, CursorLock::Optimistic);
        rows.SetValue(Text, QStringLiteral("6"));
        rows.Update();
    }
    store.CommitTrans();
    EXPECT_EQ(look(), QStringList({QStringLiteral("6"), QStringLiteral("20")}));
    // Between the reading and the writing of a cursor.
    {
        Recordset rows(store);
        rows.Open(Objects, CursorLock::Optimistic);
        Set(top, 30);
        rows.SetValue(Text, QStringLiteral("7"));
        rows.Update();
    }
    EXPECT_EQ(look(), QStringList({QStringLiteral("7"), QStringLiteral("30")}));
}

TEST_F(ServerVersions, AnOwnValueThatDoesNotFitItsColumnIsShownAsItIsStored)
{
    Connection store;
    store.Open(Address);
    const QString top = QStringLiteral("C_Top");
    const auto look = [&] {
        const ReadAhead ahead(store, {Objects});
        return Column(store, Objects, top).first();
    };
    look();
    for (const QVariant& value :
         {QVariant(QStringLiteral("high")), QVariant(12.5), QVariant(QStringLiteral("7"))}) {
        Recordset rows(store);
        rows.Open(Objects, CursorLock::Optimistic);
        rows.SetValue(top, value);
        rows.Update();
        Connection fresh;
        fresh.Open(Address);
        EXPECT_EQ(look(), Column(fresh, Objects, top).first());
        EXPECT_EQ(look(), value.toString());
    }
}

} // namespace vantrel::test
