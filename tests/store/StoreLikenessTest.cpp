#include "StoreTest.h"
#include "store/StoreDatabase.h"
#include "store/StoreUpgrade.h"
#include "support/PrivatePostgres.h"
#include <limits>

// A store on a server gives back what one in a file does.

namespace vantrel::test {

namespace {

const QString AllControls = QStringLiteral("SELECT * FROM [Controls]");

/// A store in a file and one on a server, side by side.
class StoreLikeness : public ::testing::Test
{
protected:
    StoreLikeness()
    {
        const QString path = Folder.filePath(QStringLiteral("Vantrel.dat"));
        CreateLayoutDatabase(path);
        File = OpenStoreDatabase(path);
        BringUpToDate(*OpenStoreDatabase(Address), {});
        Server = OpenStoreDatabase(Address);
    }
    ~StoreLikeness() override { PrivatePostgres::Shared().DropSchema(Address); }

    void Add(const QStringList& columns, const QVariantList& values)
    {
        const QString controls = QStringLiteral("Controls");
        const auto inFile = File->InsertRow(controls, columns, values, nullptr);
        EXPECT_EQ(Server->InsertRow(controls, columns, values, nullptr), inFile);
    }

    static std::vector<QVariantList> Rows(StoreDatabase& store, const QString& statement)
    {
        std::vector<QVariantList> rows;
        store.ReadRows(ShapeOf(store, statement), [&](CursorRow&& row) {
            row.Values.prepend(row.Key);
            rows.push_back(std::move(row.Values));
        });
        return rows;
    }

    /// @return how many rows both find
    std::size_t ExpectTheSame(const QString& statement)
    {
        SCOPED_TRACE(statement.toStdString());
        const auto inFile = Rows(*File, statement);
        const auto onServer = Rows(*Server, statement);
        EXPECT_EQ(onServer.size(), inFile.size());
        for (std::size_t row = 0; row < std::min(inFile.size(), onServer.size()); ++row) {
            EXPECT_EQ(onServer[row].size(), inFile[row].size());
            for (qsizetype i = 0; i < inFile[row].size(); ++i) {
                EXPECT_EQ(onServer[row][i].typeId(), inFile[row][i].typeId()) << row << ' ' << i;
                EXPECT_EQ(onServer[row][i], inFile[row][i]) << row << ' ' << i;
            }
        }
        return inFile.size();
    }

    QTemporaryDir Folder;
    QString Address = PrivatePostgres::Shared().NewSchema();
    std::unique_ptr<StoreDatabase> File;
    std::unique_ptr<StoreDatabase> Server;
};

QVariantList OddAndPlainValues()
{
    constexpr double most = std::numeric_limits<double>::max();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    return {QVariant(),
            QStringLiteral(""),
            QStringLiteral("text"),
            QStringLiteral("  padded  "),
            QStringLiteral("Größe € 漢字 😀"),
            QStringLiteral("'\"\\%_$1?[]"),
            QStringLiteral("two\r\nlines\t"),
            QString::fromUtf8("a\0b", 3),
            QStringLiteral("255"),
            QStringLiteral(" 7 "),
            QStringLiteral("-1.50"),
            QStringLiteral("1e3"),
            QStringLiteral("0x10"),
            QStringLiteral("text:x"),
            0,
            1,
            -1,
            std::numeric_limits<qlonglong>::max(),
            std::numeric_limits<qlonglong>::min(),
            0.5,
            2.0,
            -1e300,
            0.1,
            1.0 / 3.0,
            most,
            infinity,
            -infinity,
            std::numeric_limits<double>::quiet_NaN(),
            QByteArray("\x00\xFF\x80", 3)};
}

} // namespace

TEST_F(StoreLikeness, EveryValueComesBackTheSameFromEveryKindOfColumn)
{
    const QStringList columns{QStringLiteral("C_Value"), QStringLiteral("C_ForeColor"),
                              QStringLiteral("C_Top")};
    const QVariantList values = OddAndPlainValues();
    for (const QVariant& value : values)
        Add(columns, {value, value, value});
    EXPECT_EQ(ExpectTheSame(AllControls), static_cast<std::size_t>(values.size()));
}

TEST_F(StoreLikeness, AValueThatReplacesAnOddOneIsPlainAgainAndTheOtherWayRound)
{
    const QStringList columns{QStringLiteral("C_Alignment"), QStringLiteral("C_Value")};
    Add(columns, {QStringLiteral("left"), QStringLiteral("a")});
    const auto change = [&](const QStringList& names, const QVariantList& values) {
        for (StoreDatabase* store : {File.get(), Server.get()})
            EXPECT_TRUE(store->UpdateRow(ShapeOf(*store, AllControls), 1, names, values));
        ExpectTheSame(AllControls);
    };
    change({QStringLiteral("C_Value")}, {QStringLiteral("b")});
    change({QStringLiteral("C_Alignment")}, {2});
    change(columns, {QStringLiteral("right"), QString::fromUtf8("\0", 1)});
    change({QStringLiteral("C_Value")}, {QStringLiteral("c")});
    change(columns, {QVariant(), QVariant()});
}

TEST_F(StoreLikeness, ConditionsAndOrderAreTheSame)
{
    const QStringList columns{QStringLiteral("LayoutName"), QStringLiteral("Page"),
                              QStringLiteral("C_FontSize")};
    for (const auto& name : {QStringLiteral("b"), QStringLiteral("B"), QStringLiteral("a"),
                             QStringLiteral("ä"), QStringLiteral("Z"), QStringLiteral(""),
                             QStringLiteral("10"), QStringLiteral("9"), QStringLiteral("_")})
        for (const QVariant& page : {QVariant(1), QVariant(2), QVariant(10), QVariant()})
            Add(columns, {name, page, page});
    for (const char* rest :
         {"", " WHERE [LayoutName] = 'b'", " WHERE [LayoutName] = 'B'", " WHERE [LayoutName] = ''",
          " WHERE [LayoutName] = 10", " WHERE [LayoutName] = 010", " WHERE [LayoutName] > 'a'",
          " WHERE [Page] = 1", " WHERE [Page] > 1", " WHERE [Page] = '2'", " WHERE [Page] = 'b'",
          " WHERE [Page] > -1 AND [LayoutName] = 'Z'", " WHERE [C_FontSize] > 1",
          " WHERE [Page] = 99999999999999999999", " ORDER BY [LayoutName]",
          " ORDER BY [LayoutName] DESC, [Page]", " ORDER BY [Page] DESC"})
        ExpectTheSame(AllControls + QLatin1StringView(rest));
    for (const char* statement :
         {"SELECT DISTINCT [LayoutName] FROM [Controls]", "SELECT DISTINCT [Page] FROM [Controls]",
          "SELECT DISTINCT [Page] FROM [Controls] WHERE [LayoutName] = 'a'",
          "SELECT DISTINCT [Page], [LayoutName] FROM [Controls]",
          "select [c_value], Page from Controls", "SELECT [ID], [Filter] FROM [LayoutParams]"})
        ExpectTheSame(QLatin1StringView(statement));
}

TEST_F(StoreLikeness, TablesHaveTheSameColumns)
{
    for (const QString& table : LayoutTableNames()) {
        const auto inFile = File->ColumnsOf(table);
        const auto onServer = Server->ColumnsOf(table);
        ASSERT_EQ(onServer.size(), inFile.size());
        for (std::size_t i = 0; i < inFile.size(); ++i) {
            EXPECT_EQ(onServer[i].Name, inFile[i].Name);
            EXPECT_EQ(onServer[i].Type, inFile[i].Type);
            EXPECT_EQ(onServer[i].IsKey, inFile[i].IsKey);
        }
    }
}

} // namespace vantrel::test
