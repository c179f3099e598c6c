#include "LedgerTest.h"
#include "ledger/RecordLedger.h"

namespace vantrel::test {

namespace {

/// Entries as a station writes them, looked for as a person does.
class SearchText : public LedgerTest
{
protected:
    SearchText() { Writer.Open(Store, {.On = true, .HashKey = {}}); }

    qlonglong Write(const QStringList& values)
    {
        LedgerEntry entry;
        entry.Source = QStringLiteral("COM1");
        entry.Layout = QStringLiteral("Badge");
        const RecordRunPtr run = Writer.Begin(entry);
        Writer.SetValues(
            *run, static_cast<int>(values.size()),
            [&](int position) { return values.at(position - 1); }, QStringLiteral("{}"));
        LedgerCard card = CardIn(LedgerState::Printing, {QStringLiteral("A-1001")});
        card.Layout = QStringLiteral("Pass");
        Writer.EndCard(*run, Writer.BeginCard(*run, card, {}), {});
        Writer.EndRoad(*run);
        Writer.Flush();
        return run->Entry.Id;
    }

    RecordLedger Writer;
};

TEST_F(SearchText, FindsSourceLayoutsNumbersAndValues)
{
    const auto id = Write({QStringLiteral("Ada"), QString::fromUtf8("Zo\u00CB")});
    for (const char* text : {"com1", "BADGE", "pass", "a-1001", "ada", "zo\u00EB"})
        EXPECT_EQ(FoundByText(text), Numbers({id})) << text;
}

TEST_F(SearchText, FindsWordsOfAnyScriptWhateverTheirCase)
{
    const auto id = Write({QStringLiteral("Łódź ΟΔΟΣ Straße محمد")});
    for (const char* text : {"łódź", "ŁÓDŹ", "οδος", "οδοσ", "ΟΔΟΣ", "STRAßE", "straße", "محمد"})
        EXPECT_EQ(FoundByText(text), Numbers({id})) << text;
}

TEST_F(SearchText, FindsWhatStandsBehindANullCharacter)
{
    const auto id = Write({QString(QStringLiteral("Ada") + QChar(u'\0') + QStringLiteral("Byron")),
                           QStringLiteral("Gold")});
    EXPECT_EQ(FoundByText("byron"), Numbers({id}));
    EXPECT_EQ(FoundByText("gold"), Numbers({id}));
    LedgerFilter filter;
    filter.Text = QString(QStringLiteral("a") + QChar(u'\0') + QStringLiteral("b"));
    EXPECT_EQ(Found(filter), Numbers({id}));
    filter.Text = QString(QStringLiteral("a") + QChar(u'\0') + QStringLiteral("x"));
    EXPECT_EQ(Found(filter), Numbers());
}

} // namespace

} // namespace vantrel::test
