#include "station/session/StationOptions.h"
#include "base/Profile.h"
#include "station/session/Settings.h"
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace vantrel;

namespace {

class StationOptionsFile : public testing::Test
{
protected:
    void Write(const char* key, const char* value)
    {
        ASSERT_TRUE(WriteProfileValue(SettingsPath(m_folder.path()), QStringLiteral("Station"),
                                      QLatin1StringView(key), QLatin1StringView(value)));
    }
    void WriteStore(const char* key, const char* value)
    {
        ASSERT_TRUE(WriteProfileValue(SettingsPath(m_folder.path()), QStringLiteral("Store"),
                                      QLatin1StringView(key), QLatin1StringView(value)));
    }
    StationOptions Read() { return ReadStationOptions(m_folder.path(), m_mistakes); }

    QTemporaryDir m_folder;
    QStringList m_mistakes;
};

} // namespace

TEST_F(StationOptionsFile, WithoutAFileEverythingIsOff)
{
    const StationOptions options = Read();
    EXPECT_FALSE(options.Ledger);
    EXPECT_EQ(options.Pool.Name, QString());
    EXPECT_FALSE(options.Pool.Takes());
    EXPECT_FALSE(options.Pool.Prints());
    EXPECT_FALSE(options.Pool.TakesNothing());
    EXPECT_EQ(options.LedgerKeepDays, 90);
    EXPECT_FALSE(options.LedgerMust);
    EXPECT_TRUE(options.LedgerValues);
    EXPECT_FALSE(options.KeepEveryRecord);
    EXPECT_FALSE(options.AnswerHost);
    EXPECT_FALSE(options.UniqueNumbers);
    EXPECT_FALSE(options.DesignTools);
    EXPECT_EQ(options.ImagesFrom, QString());
    EXPECT_EQ(options.Encoding, InputEncoding::CodePage1252);
    EXPECT_EQ(options.Unit, LengthUnit::Millimetres);
    EXPECT_TRUE(m_mistakes.isEmpty());
}

TEST_F(StationOptionsFile, EachKeySetsItsOption)
{
    Write("Ledger", "True");
    Write("LedgerKeepDays", "0");
    Write("LedgerMust", "true");
    Write("LedgerValues", "False");
    Write("KeepEveryRecord", "1");
    Write("AnswerHost", "TRUE");
    Write("UniqueNumbers", "True");
    Write("DesignTools", "True");
    Write("Encoding", "UTF-8");
    Write("ImagesFrom", "/srv/Photos of 2026");
    Write("LengthUnit", "Inch");
    const StationOptions options = Read();
    EXPECT_TRUE(options.Ledger);
    EXPECT_EQ(options.LedgerKeepDays, 0);
    EXPECT_TRUE(options.LedgerMust);
    EXPECT_FALSE(options.LedgerValues);
    EXPECT_TRUE(options.KeepEveryRecord);
    EXPECT_TRUE(options.AnswerHost);
    EXPECT_TRUE(options.UniqueNumbers);
    EXPECT_TRUE(options.DesignTools);
    EXPECT_EQ(options.Encoding, InputEncoding::Utf8);
    EXPECT_EQ(options.Unit, LengthUnit::Inches);
    EXPECT_EQ(options.ImagesFrom, QStringLiteral("/srv/Photos of 2026"));
    EXPECT_TRUE(m_mistakes.isEmpty());
}

TEST_F(StationOptionsFile, ABadValueCountsAsMissingAndIsTold)
{
    Write("Ledger", "perhaps");
    Write("LedgerKeepDays", "-1");
    Write("Encoding", "latin1");
    Write("LengthUnit", "ell");
    Write("AnswerHost", "True");
    const StationOptions options = Read();
    EXPECT_FALSE(options.Ledger);
    EXPECT_EQ(options.LedgerKeepDays, 90);
    EXPECT_EQ(options.Encoding, InputEncoding::CodePage1252);
    EXPECT_TRUE(options.AnswerHost);
    EXPECT_EQ(options.Unit, LengthUnit::Millimetres);
    ASSERT_EQ(m_mistakes.size(), 4);
    EXPECT_TRUE(m_mistakes.at(0).contains(QStringLiteral("Ledger")));
    EXPECT_TRUE(m_mistakes.at(0).contains(QStringLiteral("perhaps")));
}

TEST_F(StationOptionsFile, TheTextOfAnOptionIsReadAsTheSameOption)
{
    StationOptions options;
    options.Ledger = options.LedgerMust = options.KeepEveryRecord = true;
    options.AnswerHost = options.UniqueNumbers = options.DesignTools = true;
    options.LedgerValues = false;
    options.LedgerKeepDays = 7;
    options.ImagesFrom = QStringLiteral("/srv/photos");
    options.Encoding = InputEncoding::Utf8;
    options.Unit = LengthUnit::Twips;
    for (const StationOptionRow& row : StationOptionRows()) {
        StationOptions other;
        row.Read(other, row.Text(options));
        EXPECT_EQ(row.Text(other), row.Text(options)) << row.Key;
        EXPECT_EQ(row.Text(StationOptions()), QLatin1StringView(row.Default)) << row.Key;
    }
}

TEST_F(StationOptionsFile, WritesTheChangedKeysAndNoOthers)
{
    Write("BindAddress", "127.0.0.1");
    StationOptions after;
    after.AnswerHost = true;
    after.LedgerKeepDays = 7;
    const auto changed = ChangedOptions({}, after);
    ASSERT_EQ(changed.size(), 2U);
    EXPECT_STREQ(changed[0]->Key, "LedgerKeepDays");
    EXPECT_STREQ(changed[1]->Key, "AnswerHost");
    ASSERT_TRUE(WriteStationOptions(m_folder.path(), {}, after));
    QFile file(SettingsPath(m_folder.path()));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(),
              "[Station]\r\nBindAddress=127.0.0.1\r\nLedgerKeepDays=7\r\nAnswerHost=True\r\n");
}

TEST_F(StationOptionsFile, EachExplanationSaysWhatChangesAndWhatStays)
{
    for (const StationOptionRow& row : StationOptionRows()) {
        const QString told = OptionExplanation(row);
        EXPECT_TRUE(told.endsWith(u'.')) << row.Key;
        EXPECT_FALSE(told.contains(u'`') || told.contains(QStringLiteral(".."))) << row.Key;
        EXPECT_TRUE(told.contains(QString(QLatin1StringView(row.Otherwise)).mid(1))) << row.Key;
    }
}

TEST_F(StationOptionsFile, AnOptionThatIsOnAtFirstIsExplainedFromItsOtherValue)
{
    for (const StationOptionRow& row : StationOptionRows()) {
        if (row.Key == std::string_view("LedgerValues")) {
            EXPECT_EQ(
                OptionExplanation(row),
                QStringLiteral("Unticked: keeps no value of a record, only its length, the "
                               "number of its values and a keyed hash; such an entry cannot "
                               "be printed again.\nTicked: the values of each record are kept "
                               "with its entry."));
        }
        if (row.Key == std::string_view("Ledger")) {
            EXPECT_EQ(
                OptionExplanation(row),
                QStringLiteral("Writes each record durably before its card begins, and the "
                               "outcome of each card behind it.\nUnticked: nothing is kept of "
                               "a record once its card is printed."));
        }
    }
}

TEST_F(StationOptionsFile, APoolKeepsALedgerAndNeedsIt)
{
    WriteStore("Pool", "cards");
    WriteStore("Work", "Take");
    StationOptions options = Read();
    EXPECT_EQ(options.Pool.Name, QStringLiteral("cards"));
    EXPECT_EQ(options.Pool.Work, PoolWork::Take);
    EXPECT_TRUE(options.Ledger);
    EXPECT_TRUE(options.NeedsLedger());
    WriteStore("Work", "print");
    options = Read();
    EXPECT_TRUE(options.Pool.TakesNothing());
    EXPECT_FALSE(options.NeedsLedger());
    EXPECT_TRUE(m_mistakes.isEmpty());
}

TEST_F(StationOptionsFile, AStationOfAPoolTakesAndPrintsUnlessItIsSaid)
{
    WriteStore("Pool", "cards");
    WriteStore("Work", "sort");
    EXPECT_EQ(Read().Pool.Work, PoolWork::Both);
    ASSERT_EQ(m_mistakes.size(), 1);
    EXPECT_TRUE(m_mistakes.at(0).contains(QStringLiteral("Work"))) << qPrintable(m_mistakes.at(0));
}

TEST_F(StationOptionsFile, WorkWithoutAPoolIsNothing)
{
    WriteStore("Work", "print");
    const StationOptions options = Read();
    EXPECT_FALSE(options.Pool.TakesNothing());
    EXPECT_FALSE(options.Pool.Prints());
    EXPECT_FALSE(options.Ledger);
}

TEST_F(StationOptionsFile, WhereValuesAreNotKeptThereIsNoPool)
{
    WriteStore("Pool", "cards");
    Write("LedgerValues", "False");
    EXPECT_EQ(Read().Pool.Name, QString());
    ASSERT_EQ(m_mistakes.size(), 1);
    EXPECT_TRUE(m_mistakes.at(0).contains(QStringLiteral("Pool"))) << qPrintable(m_mistakes.at(0));
}
