#include "ledger/LedgerJson.h"
#include "LedgerTest.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace vantrel::test {

namespace {

QJsonObject Parsed(const QByteArray& json)
{
    QJsonParseError error;
    QJsonObject object = QJsonDocument::fromJson(json, &error).object();
    EXPECT_EQ(error.error, QJsonParseError::NoError) << json.constData();
    return object;
}

QByteArray ListOfEntries(const std::vector<LedgerEntry>& entries)
{
    QByteArray written;
    LedgerJsonList list("entries", [&](const QByteArray& bytes) { written += bytes; });
    for (const LedgerEntry& entry : entries)
        list.Add(LedgerEntryJson(entry));
    list.End();
    return written;
}

LedgerEntry Documented()
{
    LedgerEntry entry = PrintedEntry({QStringLiteral("Ada")}, {QStringLiteral("1001")});
    entry.Id = 7;
    entry.Length = 5;
    entry.ValueCount = 1;
    return entry;
}

TEST(LedgerJson, AnEntryHasTheKeysOfTheDocumentsInTheirOrder)
{
    EXPECT_EQ(
        LedgerEntryJson(Documented()).toStdString(),
        R"({"id": 7, "state": "printed", "received": "2026-11-21T14:03:07.120Z", "session": 1, )"
        R"("source": "192.168.7.10:51234", "values": ["Ada"], "reprint_of": null, )"
        R"("cards": [{"layout": "Badge", "page": 1, "copy": 1, "printer": "Vantrel PDF", )"
        R"("numbers": ["1001"], "job": null, "file": "card-000001.pdf", "state": "printed", )"
        R"("reason": "", "changed": "2026-11-21T14:03:08.120Z"}], )"
        R"("layout": "Badge", "reason": "", "length": 5, "value_count": 1, "hash": null})");
}

TEST(LedgerJson, ACountHasItsDayAndLayout)
{
    const LedgerCount count{QDate(2026, 3, 1),       QStringLiteral("Badge"), 1, 2, 3, 4, 5,
                            {QStringLiteral("1001")}};
    EXPECT_EQ(LedgerCountJson(count).toStdString(),
              R"({"day": "2026-03-01", "layout": "Badge", "issued": 1, "failed": 2, )"
              R"("doubtful": 3, "void": 4, "reprinted": 5, "void_numbers": ["1001"]})");
}

TEST(LedgerJson, AListIsOneObject)
{
    EXPECT_EQ(ListOfEntries({}).toStdString(), "{\"entries\": []}\n");
    LedgerEntry second = Documented();
    second.Id = 6;
    const QJsonObject object = Parsed(ListOfEntries({Documented(), second}));
    EXPECT_EQ(object.keys(), QStringList(QStringLiteral("entries")));
    const QJsonArray entries = object.value(u"entries").toArray();
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries.at(0)[u"id"].toInt(), 7);
    EXPECT_EQ(entries.at(1)[u"id"].toInt(), 6);
}

TEST(LedgerJson, EveryCharacterOfAValueComesBack)
{
    QString characters;
    for (char16_t c = 0; c < 0x180; ++c)
        characters += QChar(c);
    characters += QString::fromUtf8("\u2028 \u202E \U0001F600 \uFFFF");
    LedgerEntry entry = Documented();
    entry.Values = {characters, QString()};
    entry.Source = characters;
    const QJsonObject object = Parsed(LedgerEntryJson(entry));
    EXPECT_EQ(object.value(u"values")[0].toString(), characters);
    EXPECT_EQ(object.value(u"values")[1], QJsonValue(QString()));
    EXPECT_EQ(object.value(u"source").toString(), characters);
}

TEST(LedgerJson, AJobHasItsNumberAndNoFile)
{
    LedgerEntry entry = Documented();
    entry.Cards[0].Job = 12;
    entry.Cards[0].File.clear();
    const QJsonObject card = Parsed(LedgerEntryJson(entry)).value(u"cards")[0].toObject();
    EXPECT_EQ(card.value(u"job"), QJsonValue(12));
    EXPECT_TRUE(card.value(u"file").isNull());
}

TEST(LedgerJson, ValuesThatWereNotKeptAreNull)
{
    LedgerEntry entry = Documented();
    entry.HasValues = false;
    entry.Values.clear();
    entry.Hash = QStringLiteral("00ff");
    const QJsonObject object = Parsed(LedgerWholeEntryJson(entry));
    EXPECT_TRUE(object.value(u"values").isNull());
    EXPECT_TRUE(object.value(u"raw").isNull());
    EXPECT_EQ(object.value(u"hash"), QJsonValue(QStringLiteral("00ff")));
}

TEST(LedgerJson, AWholeEntryHasItsFramingAndBytes)
{
    LedgerEntry entry = Documented();
    entry.ReprintOf = 3;
    entry.Raw = QByteArray("<A\0\xEB>", 5);
    const QJsonObject object = Parsed(LedgerWholeEntryJson(entry));
    EXPECT_EQ(object.value(u"reprint_of"), QJsonValue(3));
    EXPECT_EQ(object.value(u"framing")[u"separator"].toString(), QStringLiteral("+"));
    EXPECT_EQ(QByteArray::fromBase64(object.value(u"raw").toString().toLatin1()), entry.Raw);
    entry.Framing.clear();
    EXPECT_TRUE(Parsed(LedgerWholeEntryJson(entry)).value(u"framing").isNull());
}

TEST(LedgerJson, FramingOfADamagedStoreSpoilsNoEntry)
{
    LedgerEntry entry = Documented();
    for (const char* framing : {"<+>", "{\"start\": ", "null}, {", "[1]"}) {
        entry.Framing = QString::fromLatin1(framing);
        const QJsonObject object = Parsed(LedgerWholeEntryJson(entry));
        EXPECT_TRUE(object.value(u"framing").isNull()) << framing;
        EXPECT_EQ(object.value(u"id"), QJsonValue(entry.Id)) << framing;
    }
}

} // namespace

} // namespace vantrel::test
