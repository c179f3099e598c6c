#include "station/macro/MacroTable.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include "store/Schema.h"
#include "support/FailureOf.h"
#include "support/Print.h"
#include "support/TestStore.h"
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {
class MacroTable : public ::testing::Test
{
protected:
    MacroTable() { Store.Open(Made.Location()); }

    void AddElement(int macro, const QString& layout)
    {
        Recordset rows(Store);
        rows.Open(QStringLiteral("SELECT * FROM [MacroElements]"), CursorLock::Optimistic);
        rows.AddNew();
        rows.SetValue(QStringLiteral("MacroID"), macro);
        rows.SetValue(QStringLiteral("LayoutName"), layout);
        rows.Update();
    }

    QStringList Column(const QString& table, const QString& column)
    {
        QStringList values;
        Recordset rows(Store);
        for (rows.Open(QStringLiteral("SELECT * FROM [") + table + QLatin1Char(']')); !rows.IsEof();
             rows.MoveNext())
            values.append(rows.Value(column).toString());
        return values;
    }

    QTemporaryDir Folder;
    TestStore Made{Folder.filePath(QLatin1StringView(LayoutDatabaseName))};
    Connection Store;
};

const QString A = QStringLiteral("Card and carrier");
const QString B = QStringLiteral("Badges");
const QString C = QStringLiteral("Größe €");
} // namespace

TEST_F(MacroTable, NamesComeInTheOrderTheyWereAddedWithKeysFromOne)
{
    EXPECT_TRUE(MacroNames(Store).isEmpty());
    for (const QString& name : {A, B, C})
        AddMacro(Store, name);
    EXPECT_EQ(MacroNames(Store), QStringList({A, B, C}));
    EXPECT_EQ(Column(QStringLiteral("Macros"), QStringLiteral("ID")).join(u' '),
              QStringLiteral("1 2 3"));
}

TEST_F(MacroTable, AKeyIsOneAboveTheHighest)
{
    for (const QString& name : {A, B})
        AddMacro(Store, name);
    RemoveMacro(Store, A);
    AddMacro(Store, C);
    EXPECT_EQ(Column(QStringLiteral("Macros"), QStringLiteral("ID")).join(u' '),
              QStringLiteral("2 3"));
}

TEST_F(MacroTable, ANameCanBeGivenOnlyOnce)
{
    AddMacro(Store, A);
    AddMacro(Store, B);
    EXPECT_EQ(FailureOf([&] { AddMacro(Store, A); }), FailureNumber::InvalidCall);
    EXPECT_EQ(FailureOf([&] { RenameMacro(Store, B, A); }), FailureNumber::InvalidCall);
    EXPECT_EQ(MacroNames(Store), QStringList({A, B}));
    EXPECT_EQ(Store.TransactionDepth(), 0);
}

TEST_F(MacroTable, NamesThatTheStationCannotLookUpAreRefused)
{
    AddMacro(Store, A);
    const QStringList refused = {QString(),
                                 QStringLiteral(" "),
                                 QStringLiteral("O'Brien"),
                                 QStringLiteral(" A"),
                                 QStringLiteral("A "),
                                 QStringLiteral("\"A\""),
                                 QStringLiteral("A\nB"),
                                 QStringLiteral("Карта"),
                                 QString(256, u'x')};
    for (const QString& name : refused) {
        EXPECT_EQ(FailureOf([&] { AddMacro(Store, name); }), FailureNumber::InvalidCall)
            << name.toStdString();
        EXPECT_EQ(FailureOf([&] { RenameMacro(Store, A, name); }), FailureNumber::InvalidCall)
            << name.toStdString();
    }
    AddMacro(Store, QString(255, u'x'));
    EXPECT_EQ(MacroNames(Store), QStringList({A, QString(255, u'x')}));
}

TEST_F(MacroTable, ARenamedMacroKeepsItsKeyAndChain)
{
    AddMacro(Store, A);
    AddElement(1, QStringLiteral("Card"));
    RenameMacro(Store, A, B);
    RenameMacro(Store, B, B);
    EXPECT_EQ(MacroNames(Store), QStringList(B));
    EXPECT_EQ(Column(QStringLiteral("Macros"), QStringLiteral("ID")).join(u' '),
              QStringLiteral("1"));
    EXPECT_EQ(Column(QStringLiteral("MacroElements"), QStringLiteral("LayoutName")),
              QStringList(QStringLiteral("Card")));
}

TEST_F(MacroTable, ARemovedMacroTakesItsChainAndNoOther)
{
    AddMacro(Store, A);
    AddMacro(Store, B);
    for (const int macro : {1, 2, 1})
        AddElement(macro, QString::number(macro));
    RemoveMacro(Store, A);
    EXPECT_EQ(MacroNames(Store), QStringList(B));
    EXPECT_EQ(Column(QStringLiteral("MacroElements"), QStringLiteral("LayoutName")),
              QStringList(QStringLiteral("2")));
}

TEST_F(MacroTable, AMissingMacroFails)
{
    EXPECT_EQ(FailureOf([&] { RenameMacro(Store, A, B); }), FailureNumber::ItemNotFound);
    EXPECT_EQ(FailureOf([&] { RemoveMacro(Store, A); }), FailureNumber::ItemNotFound);
    EXPECT_EQ(Store.TransactionDepth(), 0);
}

} // namespace vantrel::test
