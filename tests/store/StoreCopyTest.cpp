#include "store/StoreCopy.h"
#include "StoreTest.h"
#include "store/LayoutTables.h"
#include "store/StoreDatabase.h"
#include "store/StoreUpgrade.h"
#include "support/PrivatePostgres.h"

namespace vantrel::test {

namespace {

constexpr int Layouts = 10'000;

/// A file, a store on a server and another file.
class StoreCopy : public ::testing::Test
{
protected:
    StoreCopy()
    {
        for (const QString& path : {First, Back})
            CreateLayoutDatabase(path);
        BringUpToDate(*OpenStoreDatabase(Address), {});
    }
    ~StoreCopy() override { PrivatePostgres::Shared().DropSchema(Address); }

    static void Copy(const QString& from, const QString& to)
    {
        CopyStore(*OpenStoreDatabase(from), *OpenStoreDatabase(to), LayoutTables());
    }

    static void Fill(const QString& location, int layouts)
    {
        const auto store = OpenStoreDatabase(location);
        store->Begin();
        for (int i = 0; i < layouts; ++i) {
            const QString name = QStringLiteral("Layout %1").arg(i);
            store->InsertRow(QStringLiteral("Controls"),
                             {QStringLiteral("LayoutName"), QStringLiteral("Page"),
                              QStringLiteral("C_Value"), QStringLiteral("C_Top")},
                             {name, 1, QStringLiteral("Größe %1").arg(i), i / 7.0}, nullptr);
            store->InsertRow(QStringLiteral("LayoutParams"),
                             {QStringLiteral("LayoutName"), QStringLiteral("PageIndex")}, {name, 1},
                             nullptr);
        }
        // As other programs may have left it.
        store->InsertRow(QStringLiteral("Controls"),
                         {QStringLiteral("C_Alignment"), QStringLiteral("C_Value")},
                         {QStringLiteral("left"), QString::fromUtf8("a\0b", 3)}, nullptr);
        store->DeleteRow(QStringLiteral("Controls"), 2);
        store->Commit();
    }

    /// All rows of all tables, with their keys and the kinds of their values.
    static QStringList Contents(const QString& location)
    {
        const auto store = OpenStoreDatabase(location);
        QStringList lines;
        for (const QString& table : LayoutTableNames()) {
            SelectStatement all;
            all.Table = table;
            store->ReadRows(CursorShape(all, store->ColumnsOf(table)), [&](CursorRow&& row) {
                QStringList values{table, QString::number(row.Key)};
                for (const QVariant& value : row.Values)
                    values.append(QString::number(value.typeId()) + QLatin1Char(':') +
                                  value.toString());
                lines.append(values.join(QLatin1Char('|')));
            });
        }
        return lines;
    }

    QTemporaryDir Folder;
    QString First = Folder.filePath(QStringLiteral("First.dat"));
    QString Back = Folder.filePath(QStringLiteral("Back.dat"));
    QString Address = PrivatePostgres::Shared().NewSchema();
};

} // namespace

TEST_F(StoreCopy, TenThousandLayoutsComeBackAsTheyWere)
{
    Fill(First, Layouts);
    const QStringList before = Contents(First);
    Copy(First, Address);
    EXPECT_EQ(Contents(Address), before);
    Copy(Address, Back);
    EXPECT_EQ(Contents(Back), before);
    EXPECT_EQ(Contents(First), before);
}

TEST_F(StoreCopy, ARowThatIsAddedBehindACopyGetsAKeyOfItsOwn)
{
    Fill(First, 3);
    Copy(First, Address);
    const auto store = OpenStoreDatabase(Address);
    EXPECT_EQ(store->InsertRow(QStringLiteral("Controls"), {}, {}, nullptr), 5);
}

TEST_F(StoreCopy, ATargetWithLayoutsIsRefusedAndUnchanged)
{
    Fill(First, 2);
    Fill(Back, 1);
    const QStringList before = Contents(Back);
    EXPECT_EQ(FailureOf([&] { Copy(First, Back); }), FailureNumber::InvalidCall);
    EXPECT_EQ(Contents(Back), before);
    Fill(Address, 1);
    EXPECT_EQ(FailureOf([&] { Copy(First, Address); }), FailureNumber::InvalidCall);
}

TEST_F(StoreCopy, ACopyThatFailsLeavesNothingBehind)
{
    Fill(First, 600);
    const QStringList before = Contents(Address);
    PrivatePostgres::Run(Address, QStringLiteral("ALTER TABLE Controls ADD CHECK (RowKey < 550)"));
    EXPECT_EQ(FailureOf([&] { Copy(First, Address); }), FailureNumber::StatementInvalid);
    EXPECT_EQ(Contents(Address), before);
}

} // namespace vantrel::test
