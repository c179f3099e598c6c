#include "StoreTest.h"
#include <QDir>
#include <QFile>
#include <QSet>
#include <atomic>
#include <thread>
#include <vector>

namespace vantrel::test {

namespace {
struct TableCase
{
    const char* Name;
    const char* Columns;
};

constexpr TableCase Tables[] = {
    {"Controls",
     "LayoutName Page Control_Type C_Param_1 C_Param_2 C_Param_3 C_Value C_Alignment C_Top C_Left "
     "C_Width C_Height C_FontName C_FontSize C_FontBold C_FontItalic C_FontUnderline "
     "C_FontStrikethrough C_ForeColor C_BackColor C_Prefix C_Suffix C_UseMod10 C_UseCodaBar "
     "C_UseEBT C_ImagePath"},
    {"LayoutParams", "LayoutName PageIndex Encode PrinterDevice PrinterOrientation PrinterType "
                     "Track1 Track2 Track3 Filter PrinterCopies BackImg1 BackImg2 AutoSpool"},
    {"Serializer", "LayoutName ElementType ElementData"},
    {"Macros", "ID MacroName"},
    {"MacroElements", "MacroID LayoutName"},
    {"PrinterTypes", "DeviceType Name ColorCapable DualSided VisOrder"},
};

QByteArray Contents(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}
} // namespace

TEST_F(StoreTest, EveryTableTakesARowWithEveryColumn)
{
    EXPECT_EQ(std::size(Tables), 6U);
    EXPECT_EQ(LayoutTableNames().size(), 6);
    for (const TableCase& table : Tables) {
        SCOPED_TRACE(table.Name);
        Recordset rows(Store);
        rows.Open(QStringLiteral("SELECT * FROM [") + QLatin1StringView(table.Name) +
                      QStringLiteral("]"),
                  CursorLock::Optimistic);
        rows.AddNew();
        for (const QString& column : QString::fromLatin1(table.Columns).split(u' '))
            rows.SetValue(column, 1);
        EXPECT_NO_THROW(rows.Update());
    }
}

TEST_F(StoreTest, AFreshDatabaseHoldsPrinterTypesAndNothingElse)
{
    for (const QString& table : LayoutTableNames()) {
        Recordset rows(Store);
        rows.Open(QStringLiteral("SELECT * FROM [") + table + QStringLiteral("]"));
        EXPECT_EQ(rows.RecordCount(), table == QStringLiteral("PrinterTypes") ? 8 : 0);
        QSet<QString> names;
        for (; !rows.IsEof(); rows.MoveNext())
            names.insert(rows.Value(QStringLiteral("Name")).toString());
        EXPECT_FALSE(names.contains(QString()));
    }
    EXPECT_EQ(Column(Store, QStringLiteral("SELECT DISTINCT [Name] FROM [PrinterTypes]"),
                     QStringLiteral("Name"))
                  .size(),
              8);
}

TEST(Schema, LeavesNoFileButTheDatabase)
{
    const QTemporaryDir folder;
    CreateLayoutDatabase(folder.filePath(QStringLiteral("Vantrel.dat")));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList(QStringLiteral("Vantrel.dat")));
}

TEST(Schema, AnExistingFileIsNeverReplaced)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Vantrel.dat"));
    CreateLayoutDatabase(path);
    const QByteArray before = Contents(path);
    EXPECT_EQ(FailureOf([&] { CreateLayoutDatabase(path); }), FailureNumber::InvalidCall);
    EXPECT_EQ(Contents(path), before);

    const QString dangling = folder.filePath(QStringLiteral("Link.dat"));
    ASSERT_TRUE(QFile::link(folder.filePath(QStringLiteral("Nowhere")), dangling));
    EXPECT_EQ(FailureOf([&] { CreateLayoutDatabase(dangling); }), FailureNumber::InvalidCall);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System).size(), 2);
}

TEST(Schema, AMissingFolderFails)
{
    const QTemporaryDir folder;
    EXPECT_EQ(
        FailureOf([&] { CreateLayoutDatabase(folder.filePath(QStringLiteral("no/Vantrel.dat"))); }),
        FailureNumber::PathNotFound);
}

TEST(Schema, TheJournalOfADeletedDatabaseIsNotUsedForAFreshOne)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Vantrel.dat"));
    QByteArray journal;
    {
        CreateLayoutDatabase(path);
        Connection store;
        store.Open(path);
        Recordset rows(store);
        rows.Open(QStringLiteral("SELECT * FROM [Macros]"), CursorLock::Optimistic);
        rows.AddNew();
        rows.SetValue(QStringLiteral("MacroName"), QStringLiteral("Old"));
        rows.Update();
        journal = Contents(path + QStringLiteral("-wal"));
    }
    ASSERT_FALSE(journal.isEmpty());
    ASSERT_TRUE(QFile::remove(path));
    QFile left(path + QStringLiteral("-wal"));
    ASSERT_TRUE(left.open(QIODevice::WriteOnly));
    left.write(journal);
    left.close();

    CreateLayoutDatabase(path);
    Connection store;
    store.Open(path);
    Recordset rows(store);
    rows.Open(QStringLiteral("SELECT * FROM [Macros]"));
    EXPECT_TRUE(rows.IsEof());
}

TEST(Schema, OfSeveralProcessesAtOnceExactlyOneMakesTheDatabase)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Vantrel.dat"));
    std::atomic<int> made = 0;
    constexpr int Makers = 4;
    std::vector<std::thread> makers;
    makers.reserve(Makers);
    for (int i = 0; i < Makers; ++i)
        makers.emplace_back([&] {
            if (FailureOf([&] { CreateLayoutDatabase(path); }) == 0)
                ++made;
        });
    for (std::thread& maker : makers)
        maker.join();
    EXPECT_EQ(made, 1);
    Connection store;
    EXPECT_NO_THROW(store.Open(path));
}

} // namespace vantrel::test
