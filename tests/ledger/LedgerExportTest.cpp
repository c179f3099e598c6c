#include "ledger/LedgerExport.h"
#include "LedgerTest.h"

namespace vantrel::test {

namespace {

class LedgerExported : public LedgerTest
{
protected:
    QByteArrayList Lines(const LedgerFilter& filter = {})
    {
        QByteArrayList lines;
        ExportEntries(Database(), filter, [&](const QByteArray& line) {
            EXPECT_TRUE(line.endsWith("\r\n"));
            lines.append(line.chopped(2));
        });
        return lines;
    }
};

constexpr const char* Names = "id,state,received,session,source,layout,reprint_of,reason,length,"
                              "card_layout,page,copy,printer,"
                              "numbers,job,file,card_state,card_reason,changed";

TEST_F(LedgerExported, AnEmptyLedgerGivesTheNamesOnly)
{
    EXPECT_EQ(Lines(), QByteArrayList({Names}));
}

TEST_F(LedgerExported, EachCardHasALineAndSoHasAnEntryWithoutCards)
{
    LedgerEntry two = PrintedEntry({QStringLiteral("Ada"), QStringLiteral("b")},
                                   {QStringLiteral("1001"), QStringLiteral("55")});
    LedgerCard job = CardIn(LedgerState::Failed);
    job.Page = 2;
    job.Job = 12;
    job.File.clear();
    job.Reason = QStringLiteral("canceled");
    two.Cards.push_back(job);
    Add(two);
    AddInState(LedgerState::Received);
    const QByteArray entry = "2026-11-21T14:03:07.120Z,1,192.168.7.10:51234,Badge,,,";
    const QByteArray changed = "2026-11-21T14:03:08.120Z,";
    EXPECT_EQ(Lines(), QByteArrayList({
                           QByteArray(Names) + ",value_1,value_2",
                           "2,received," + entry + "5,,,,,,,,,,,Ada,",
                           "1,printed," + entry +
                               "7,Badge,1,1,Vantrel PDF,1001 55,,card-000001.pdf,printed,," +
                               changed + "Ada,b",
                           "1,printed," + entry + "7,Badge,2,1,Vantrel PDF,,12,,failed,canceled," +
                               changed + "Ada,b",
                       }));
}

TEST_F(LedgerExported, QuotesCommasAndLineEndsAreQuoted)
{
    Add(PrintedEntry({QStringLiteral("a,b"), QStringLiteral("say \"hi\""),
                      QStringLiteral("two\r\nlines"), QStringLiteral("=1+1"),
                      QString::fromUtf8("Zo\u00EB")}));
    EXPECT_TRUE(
        Lines().at(1).endsWith(",\"a,b\",\"say \"\"hi\"\"\",\"two\r\nlines\",=1+1,Zo\xC3\xAB"))
        << Lines().at(1).constData();
}

TEST_F(LedgerExported, ValuesWithoutAColumnOfTheirOwnStandInTheLastOne)
{
    QStringList values;
    for (int i = 1; i <= ExportedValues + 2; ++i)
        values.append(QString::number(i));
    AddPrinted("Ada");
    Add(PrintedEntry(values));
    const QByteArrayList lines = Lines();
    EXPECT_TRUE(lines.at(0).endsWith(",value_200,further_values"));
    EXPECT_TRUE(lines.at(1).endsWith(",199,200,\"[\"\"201\"\",\"\"202\"\"]\""));
    EXPECT_TRUE(lines.at(2).endsWith(",,,"));
    for (const QByteArray& line : {lines.at(0), lines.at(2)})
        EXPECT_EQ(line.count(','), 19 + 200);
}

TEST_F(LedgerExported, AFilterChoosesTheEntries)
{
    AddPrinted("Ada");
    AddPrinted("Grace");
    LedgerFilter filter;
    filter.Text = QStringLiteral("ada");
    const QByteArrayList lines = Lines(filter);
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines.at(1).startsWith("1,"));
}

} // namespace

} // namespace vantrel::test
