#include "station/ledger/HistoryReader.h"
#include "StationWithLedger.h"
#include "station/ledger/FramingText.h"
#include "support/Events.h"
#include "support/LedgerFill.h"
#include <QFile>

namespace vantrel::test {
namespace {

using Ids = std::vector<qlonglong>;

/// A window's reader on a station's ledger.
class HistoryOfStation : public StationWithLedger
{
protected:
    HistoryOfStation()
    {
        QObject::connect(&Reader, &HistoryReader::Found, [this](const Ids& ids) {
            Found.insert(Found.end(), ids.begin(), ids.end());
        });
        QObject::connect(&Reader, &HistoryReader::SearchEnded, [this] { ++Ended; });
        QObject::connect(&Reader, &HistoryReader::Arrived, [this](const Ids& ids) {
            Arrived.insert(Arrived.end(), ids.begin(), ids.end());
        });
        QObject::connect(&Reader, &HistoryReader::Changed, [this] { ++Changes; });
        QObject::connect(&Reader, &HistoryReader::EntryRead,
                         [this](const auto& entry) { Read = entry; });
        QObject::connect(&Reader, &HistoryReader::Failed,
                         [this](const QString& problem) { Problems.append(problem); });
    }
    Ids Search(const LedgerFilter& filter)
    {
        Found.clear();
        Ended = 0;
        Reader.Search(filter);
        EXPECT_TRUE(EventsUntil([&] { return Ended == 1; }));
        return Found;
    }
    HistoryEntry ReadOne(qlonglong id)
    {
        Read.reset();
        Reader.ReadEntry(id);
        EXPECT_TRUE(EventsUntil([&] { return Read && Read->Entry.Id == id; }));
        return Read.value_or(HistoryEntry());
    }

    HistoryReader Reader{StoreAt(Session.PathInFolder(QLatin1StringView(LayoutDatabaseName))),
                         InputEncoding::CodePage1252};
    Ids Found;
    Ids Arrived;
    int Ended = 0;
    int Changes = 0;
    std::optional<HistoryEntry> Read;
    QStringList Problems;
};

TEST_F(HistoryOfStation, FindsWhatTheStationHasPrinted)
{
    Arrive("<Ada>");
    Arrive("<Grace>");
    EXPECT_EQ(Search({}), Ids({2, 1}));
    LedgerFilter filter;
    filter.Text = QStringLiteral("ada");
    EXPECT_EQ(Search(filter), Ids({1}));
}

TEST_F(HistoryOfStation, TellsWhatArrivesWhileItLooks)
{
    Arrive("<Ada>");
    Search({});
    Reader.Look();
    ASSERT_TRUE(EventsUntil([&] { return Changes == 1; }));
    Arrived.clear();
    Arrive("<Grace>");
    Reader.Look();
    ASSERT_TRUE(EventsUntil([&] { return Changes == 2; }));
    EXPECT_EQ(Arrived, Ids({2, 1}));
    // Nothing has changed since.
    Reader.Look();
    ReadOne(1);
    EXPECT_EQ(Changes, 2);
}

TEST_F(HistoryOfStation, ShowsTheRecordWithItsParts)
{
    Arrive("<Ada +7>x");
    const HistoryEntry entry = ReadOne(1);
    EXPECT_EQ(entry.Entry.Values, QStringList({QStringLiteral("Ada"), QStringLiteral("7")}));
    QStringList parts;
    for (const RecordPiece& piece : entry.Pieces)
        parts.append(NameOf(piece.Part) + u' ' + piece.Text);
    EXPECT_EQ(parts, QStringList({QStringLiteral("start <"), QStringLiteral("value Ada"),
                                  QStringLiteral("filtered away  "), QStringLiteral("separator +"),
                                  QStringLiteral("value 7"), QStringLiteral("end >"),
                                  QStringLiteral("dropped x")}));
    ASSERT_EQ(entry.Cards.size(), 1U);
    EXPECT_FALSE(entry.Cards[0].Page.isEmpty());
}

TEST_F(HistoryOfStation, ARecordThatWasTakenAsAWholeIsShownAsOne)
{
    LedgerEntry entry = PrintedEntry({QStringLiteral("xAda"), QStringLiteral("7y")});
    entry.Raw = "x<Ada+7>y";
    const HistoryEntry whole = ReadOne(AddLedgerEntry(Store(), entry));
    EXPECT_EQ(whole.Pieces.front().Part, RecordPart::Value);
    entry.Values = {QStringLiteral("Ada"), QStringLiteral("7")};
    const HistoryEntry framed = ReadOne(AddLedgerEntry(Store(), entry));
    EXPECT_EQ(framed.Pieces.front().Part, RecordPart::Dropped);
    // Of values that neither way gives, such as those of another encoding, the delimiters tell.
    entry.Values = {QStringLiteral("Zo\u00eb")};
    const HistoryEntry other = ReadOne(AddLedgerEntry(Store(), entry));
    EXPECT_EQ(other.Pieces.front().Part, RecordPart::Dropped);
    entry.Raw = "Ada";
    const HistoryEntry unframed = ReadOne(AddLedgerEntry(Store(), entry));
    EXPECT_EQ(unframed.Pieces.front().Part, RecordPart::Value);
}

TEST_F(HistoryOfStation, OfAHugeRecordOnlyTheBeginningIsRead)
{
    QByteArray record = "<";
    for (int value = 0; value < 100000; ++value)
        record += "abcdefghi+";
    record += '>';
    Arrive(record.constData());
    const HistoryEntry entry = ReadOne(1);
    EXPECT_EQ(entry.Entry.Values.size(), MostValuesTold);
    EXPECT_EQ(entry.BytesTold, MostCharactersTold);
    EXPECT_EQ(entry.Entry.Length, record.size());
    EXPECT_TRUE(entry.Entry.Raw.isEmpty());
}

TEST_F(HistoryOfStation, AnotherSearchGivesUpTheOneBefore)
{
    Store().Execute(QStringLiteral("BEGIN"));
    for (int number = 0; number < 3000; ++number)
        AddLedgerEntry(
            Store(), PrintedEntry({number == 7 ? QStringLiteral("Grace") : QStringLiteral("Ada")}));
    Store().Execute(QStringLiteral("COMMIT"));
    LedgerFilter filter;
    filter.Text = QStringLiteral("grace");
    Reader.Search({});
    EXPECT_EQ(Search(filter), Ids({8}));
}

TEST_F(HistoryOfStation, AFolderWithoutALedgerIsTold)
{
    Store().Execute(QStringLiteral("DROP TABLE LedgerCards"));
    Search({});
    EXPECT_EQ(Problems, QStringList(QStringLiteral("No ledger is kept here yet.")));
}

TEST_F(HistoryOfStation, SavesWhatIsFoundAsAFile)
{
    Arrive("<Ada>");
    Arrive("<Grace>");
    LedgerFilter filter;
    filter.Text = QStringLiteral("grace");
    QStringList told;
    QObject::connect(&Reader, &HistoryReader::Exported,
                     [&](const QString& path, const QString& problem) {
                         told = {path, problem};
                     });
    const QString path = Session.PathInFolder(QStringLiteral("history.csv"));
    Reader.Export(filter, path);
    ASSERT_TRUE(EventsUntil([&] { return !told.isEmpty(); }));
    EXPECT_EQ(told, QStringList({path, QString()}));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_TRUE(text.contains("Grace"));
    EXPECT_FALSE(text.contains("Ada"));

    told.clear();
    Reader.Export(filter, Session.PathInFolder(QStringLiteral("missing/history.csv")));
    ASSERT_TRUE(EventsUntil([&] { return !told.isEmpty(); }));
    EXPECT_FALSE(told.at(1).isEmpty());
}

TEST(FramingTextTest, IsReadAsItWasWritten)
{
    Filters filters;
    filters.Lf = filters.Esc = true;
    const KeptFraming kept = ReadFraming(
        FramingText({QStringLiteral("[02]"), QStringLiteral("+\""), QStringLiteral(">")}, filters));
    EXPECT_EQ(kept.Delimiters.DataStart, QStringLiteral("[02]"));
    EXPECT_EQ(kept.Delimiters.DataSeperator, QStringLiteral("+\""));
    EXPECT_EQ(kept.Delimiters.DataEnd, QStringLiteral(">"));
    EXPECT_TRUE(kept.Filters.Lf && kept.Filters.Esc);
    EXPECT_FALSE(kept.Filters.Cr || kept.Filters.Tab || kept.Filters.Space || kept.Filters.NewPage);
    EXPECT_EQ(ReadFraming(QStringLiteral("nonsense")).Delimiters.DataStart, QString());
}

} // namespace
} // namespace vantrel::test
