#include "StoreTest.h"

namespace vantrel::test {

namespace {
using Cursor = StoreTest;

const QString AllControls = QStringLiteral("SELECT * FROM [Controls]");
const QString TextColumn = QStringLiteral("C_Value");

/// Every statement that the station uses, with a name or number joined in.
constexpr const char* Statements[] = {
    "SELECT * FROM [Controls] WHERE [LayoutName] = 'A card' AND [Page] = 1",
    "SELECT * FROM [Controls] WHERE [LayoutName] = 'A card'",
    "SELECT * FROM [Controls] WHERE [Page] = 2",
    "SELECT * FROM [Controls] WHERE [Page] > 2",
    "SELECT DISTINCT [Page] FROM [Controls] WHERE [LayoutName] = 'A card'",
    "SELECT Distinct [LayoutName] FROM [Controls]",
    "SELECT * FROM [LayoutParams] WHERE [LayoutName] = 'A card' AND [PageIndex] = 1",
    "SELECT * FROM [LayoutParams] WHERE [LayoutName] = 'A card'",
    "SELECT [ID], [Filter] FROM [LayoutParams] WHERE [LayoutName] = 'A card'",
    "SELECT * FROM [Serializer] WHERE [LayoutName] = 'A card'",
    "SELECT [ID] FROM [Macros] WHERE [MacroName] = 'A macro'",
    "SELECT [ID], [MacroName] FROM [Macros]",
    "SELECT * FROM [MacroElements] WHERE [MacroID] = 7",
    "SELECT [LayoutName] FROM [MacroElements] WHERE [MacroID] = 7",
};
} // namespace

TEST_F(Cursor, AcceptsEveryStatementThatTheStationUses)
{
    EXPECT_EQ(std::size(Statements), 14U);
    for (const char* statement : Statements) {
        SCOPED_TRACE(statement);
        Recordset rows(Store);
        rows.Open(QString::fromLatin1(statement), CursorLock::Optimistic);
        EXPECT_TRUE(rows.IsEof());
        EXPECT_TRUE(rows.IsBof());
        EXPECT_EQ(rows.RecordCount(), 0);
    }
}

TEST_F(Cursor, PrinterTypesComeInTheirOwnOrderOrSorted)
{
    const QString code = QStringLiteral("DeviceType");
    EXPECT_EQ(Column(Store, QStringLiteral("SELECT [DeviceType], [Name] FROM [PrinterTypes]"), code)
                  .join(u' '),
              QStringLiteral("1 2 3 4 5 9 10 11"));
    EXPECT_EQ(
        Column(Store, QStringLiteral("SELECT * FROM [PrinterTypes] ORDER BY [VisOrder] ASC"), code)
            .join(u' '),
        QStringLiteral("9 10 1 2 11 4 5 3"));
    EXPECT_EQ(
        Column(Store, QStringLiteral("SELECT * FROM [PrinterTypes] ORDER BY [VisOrder] DESC"), code)
            .join(u' '),
        QStringLiteral("3 5 4 11 2 1 10 9"));
}

TEST_F(Cursor, SelectsByNameAndPage)
{
    AddControl(Store, QStringLiteral("A card"), 1, QStringLiteral("one"));
    AddControl(Store, QStringLiteral("A card"), 2, QStringLiteral("two"));
    AddControl(Store, QStringLiteral("Other"), 1, QStringLiteral("three"));
    const auto texts = [this](const char* where) {
        return Column(Store, AllControls + QLatin1StringView(where), TextColumn).join(u' ');
    };
    EXPECT_EQ(texts(" WHERE [LayoutName] = 'A card' AND [Page] = 2"), QStringLiteral("two"));
    EXPECT_EQ(texts(" WHERE [LayoutName] = 'A card'"), QStringLiteral("one two"));
    EXPECT_EQ(texts(" WHERE [Page] = 1"), QStringLiteral("one three"));
    EXPECT_EQ(texts(" WHERE [Page] > 1"), QStringLiteral("two"));
}

TEST_F(Cursor, DistinctComesInValueOrder)
{
    for (const auto& name : {QStringLiteral("Visitor"), QStringLiteral("Card"),
                             QStringLiteral("Member"), QStringLiteral("Card")})
        AddControl(Store, name, 10, QString());
    AddControl(Store, QStringLiteral("Card"), 2, QString());
    EXPECT_EQ(Column(Store, QStringLiteral("SELECT Distinct [LayoutName] FROM [Controls]"),
                     QStringLiteral("LayoutName"))
                  .join(u' '),
              QStringLiteral("Card Member Visitor"));
    EXPECT_EQ(
        Column(Store,
               QStringLiteral("SELECT DISTINCT [Page] FROM [Controls] WHERE [LayoutName] = 'Card'"),
               QStringLiteral("Page"))
            .join(u' '),
        QStringLiteral("2 10"));
}

TEST_F(Cursor, ThousandsOfRowsKeepTheOrderOfInsertion)
{
    constexpr int Count = 5000;
    QStringList expected;
    Recordset rows(Store);
    Store.BeginTrans();
    rows.Open(AllControls, CursorLock::Optimistic);
    for (int i = 0; i < Count; ++i) {
        const QString text = QString::number((i * 7919) % Count);
        expected.append(text);
        rows.AddNew();
        rows.SetValue(QStringLiteral("LayoutName"), QStringLiteral("Big"));
        rows.SetValue(QStringLiteral("Page"), 1);
        rows.SetValue(TextColumn, text);
        rows.Update();
    }
    Store.CommitTrans();
    EXPECT_EQ(rows.RecordCount(), Count);
    EXPECT_EQ(Texts(), expected);
    EXPECT_EQ(
        Column(Store,
               QStringLiteral("SELECT * FROM [Controls] WHERE [LayoutName] = 'Big' AND [Page] = 1"),
               TextColumn),
        expected);
}

TEST_F(Cursor, TheKeyIsNoColumn)
{
    AddControl(Store, QStringLiteral("A"), 1, QStringLiteral("text"));
    Recordset rows(Store);
    rows.Open(AllControls);
    EXPECT_EQ(FailureOf([&] { rows.Value(QStringLiteral("RowKey")); }),
              FailureNumber::ItemNotFound);
}

TEST_F(Cursor, NamesWithAnApostropheMakeAnInvalidStatement)
{
    for (const char* name :
         {"O'Brien", "'", "Members'", "x' OR '1'='1'; DELETE FROM [Controls] --"}) {
        SCOPED_TRACE(name);
        Recordset rows(Store);
        EXPECT_EQ(FailureOf([&] {
                      rows.Open(AllControls + QStringLiteral(" WHERE [LayoutName] = '") +
                                QLatin1StringView(name) + QStringLiteral("' AND [Page] = 1"));
                  }),
                  FailureNumber::StatementInvalid);
        EXPECT_FALSE(rows.IsOpen());
    }
}

TEST_F(Cursor, NamesWithOddCharactersAreFound)
{
    for (const char* text :
         {"a;b", "a--b", "Who?", "10:30 :name", "50%", "[x]", "\"q\"", "Größe €", "a/*b"}) {
        SCOPED_TRACE(text);
        const QString name = QString::fromUtf8(text);
        AddControl(Store, name, 1, name);
        EXPECT_EQ(Column(Store,
                         AllControls + QStringLiteral(" WHERE [LayoutName] = '") + name +
                             QLatin1Char('\''),
                         TextColumn),
                  QStringList(name));
    }
}

TEST_F(Cursor, ColumnNamesAreCaseBlindAndBracketsOptional)
{
    AddControl(Store, QStringLiteral("A"), 1, QStringLiteral("text"));
    Recordset rows(Store);
    rows.Open(QStringLiteral("select [c_value], Page from Controls"), CursorLock::Optimistic);
    EXPECT_EQ(rows.Value(QStringLiteral("C_VALUE")).toString(), QStringLiteral("text"));
    EXPECT_EQ(rows.Value(QStringLiteral("[C_Value]")).toString(), QStringLiteral("text"));
    EXPECT_EQ(rows.Value(QStringLiteral("page")).toInt(), 1);
    EXPECT_EQ(FailureOf([&] { rows.Value(QStringLiteral("LayoutName")); }),
              FailureNumber::ItemNotFound);
    EXPECT_EQ(FailureOf([&] { rows.SetValue(QStringLiteral("Nonsense"), 1); }),
              FailureNumber::ItemNotFound);
}

TEST_F(Cursor, ValuesComeBackInTheFormOfTheirColumn)
{
    Recordset rows(Store);
    rows.Open(AllControls, CursorLock::Optimistic);
    rows.AddNew();
    rows.SetValue(QStringLiteral("C_Param_3"), 3);
    rows.SetValue(QStringLiteral("C_Prefix"), QString());
    rows.SetValue(QStringLiteral("C_FontBold"), true);
    rows.SetValue(QStringLiteral("C_FontItalic"), false);
    rows.SetValue(QStringLiteral("C_Top"), 1200.5F);
    rows.SetValue(QStringLiteral("C_Left"), 200);
    rows.SetValue(QStringLiteral("C_FontSize"), 8.2512);
    rows.SetValue(QStringLiteral("C_ForeColor"), 0xFFFFFF);
    rows.SetValue(QStringLiteral("C_Suffix"), QVariant());
    rows.Update();
    const auto check = [&rows] {
        EXPECT_EQ(rows.Value(QStringLiteral("C_Param_3")), QVariant(QStringLiteral("3")));
        EXPECT_EQ(rows.Value(QStringLiteral("C_Prefix")), QVariant(QStringLiteral("")));
        EXPECT_FALSE(rows.Value(QStringLiteral("C_Prefix")).isNull());
        EXPECT_EQ(rows.Value(QStringLiteral("C_FontBold")), QVariant(1LL));
        EXPECT_EQ(rows.Value(QStringLiteral("C_FontItalic")), QVariant(0LL));
        EXPECT_EQ(rows.Value(QStringLiteral("C_Top")), QVariant(1200.5));
        EXPECT_EQ(rows.Value(QStringLiteral("C_Left")).toInt(), 200);
        EXPECT_EQ(rows.Value(QStringLiteral("C_FontSize")), QVariant(8.2512));
        EXPECT_EQ(rows.Value(QStringLiteral("C_ForeColor")), QVariant(0xFFFFFFLL));
        EXPECT_TRUE(rows.Value(QStringLiteral("C_Suffix")).isNull());
        EXPECT_TRUE(rows.Value(QStringLiteral("C_UseMod10")).isNull());
    };
    check();
    rows.Open(AllControls);
    check();
}

TEST_F(Cursor, LongTextsAreKeptWhole)
{
    const QString text = QStringLiteral("Zeile eins\r\nÄ€ ").repeated(10000);
    AddControl(Store, QStringLiteral("A"), 1, text);
    EXPECT_EQ(Texts(), QStringList(text));
}

TEST_F(Cursor, ACursorThatIsNotOpenFails)
{
    Recordset rows(Store);
    EXPECT_FALSE(rows.IsOpen());
    EXPECT_EQ(FailureOf([&] { rows.IsEof(); }), FailureNumber::ObjectClosed);
    EXPECT_EQ(FailureOf([&] { rows.IsBof(); }), FailureNumber::ObjectClosed);
    EXPECT_EQ(FailureOf([&] { rows.RecordCount(); }), FailureNumber::ObjectClosed);
    EXPECT_EQ(FailureOf([&] { rows.MoveNext(); }), FailureNumber::ObjectClosed);
    EXPECT_EQ(FailureOf([&] { rows.Value(TextColumn); }), FailureNumber::ObjectClosed);
    EXPECT_EQ(FailureOf([&] { rows.SetValue(TextColumn, 1); }), FailureNumber::ObjectClosed);
    EXPECT_EQ(FailureOf([&] { rows.AddNew(); }), FailureNumber::ObjectClosed);
    EXPECT_EQ(FailureOf([&] { rows.Update(); }), FailureNumber::ObjectClosed);
    EXPECT_EQ(FailureOf([&] { rows.Delete(); }), FailureNumber::ObjectClosed);
    EXPECT_EQ(FailureOf([&] { rows.Close(); }), FailureNumber::ObjectClosed);
}

TEST_F(Cursor, OnAnEmptyResultThereIsNoCurrentRecord)
{
    Recordset rows(Store);
    rows.Open(AllControls, CursorLock::Optimistic);
    EXPECT_EQ(FailureOf([&] { rows.Value(TextColumn); }), FailureNumber::NoCurrentRecord);
    EXPECT_EQ(FailureOf([&] { rows.SetValue(TextColumn, 1); }), FailureNumber::NoCurrentRecord);
    EXPECT_EQ(FailureOf([&] { rows.Update(); }), FailureNumber::NoCurrentRecord);
    EXPECT_EQ(FailureOf([&] { rows.Delete(); }), FailureNumber::NoCurrentRecord);
    EXPECT_EQ(FailureOf([&] { rows.MoveNext(); }), FailureNumber::NoCurrentRecord);
}

TEST_F(Cursor, CanBeOpenedAgainWithAnotherStatement)
{
    Recordset rows(Store);
    rows.Open(QStringLiteral("SELECT * FROM [PrinterTypes]"));
    EXPECT_EQ(rows.RecordCount(), 8);
    rows.Close();
    rows.Open(QStringLiteral("SELECT * FROM [Macros]"));
    EXPECT_TRUE(rows.IsEof());
    EXPECT_EQ(FailureOf([&] { rows.Open(QStringLiteral("SELECT * FROM [Nothing]")); }),
              FailureNumber::StatementInvalid);
    EXPECT_FALSE(rows.IsOpen());
}

TEST_F(Cursor, AClosedConnectionFailsItsCursors)
{
    AddControl(Store, QStringLiteral("A"), 1, QStringLiteral("text"));
    Recordset rows(Store);
    rows.Open(AllControls, CursorLock::Optimistic);
    Store.Close();
    rows.SetValue(TextColumn, QStringLiteral("new"));
    EXPECT_EQ(FailureOf([&] { rows.Update(); }), FailureNumber::ObjectClosed);
    EXPECT_EQ(FailureOf([&] { rows.Open(AllControls); }), FailureNumber::ObjectClosed);
}

TEST_F(Cursor, MoreStatementsThanAreKeptAllWork)
{
    AddControl(Store, QStringLiteral("A"), 1, QStringLiteral("text"));
    for (int round = 0; round < 2; ++round)
        for (int page = 1; page <= 150; ++page)
            EXPECT_EQ(
                Column(Store,
                       AllControls + QStringLiteral(" WHERE [Page] = ") + QString::number(page),
                       TextColumn)
                    .size(),
                page == 1 ? 1 : 0);
}

} // namespace vantrel::test
