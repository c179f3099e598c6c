#include "ports/RecordReader.h"
#include "PiecesOfBytes.h"
#include "base/Failure.h"
#include "support/Memory.h"
#include "support/Print.h"
#include <algorithm>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

RecordFormat Usual()
{
    RecordFormat format;
    format.Delimiters = {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};
    return format;
}

QStringList Told(RecordReader& reader)
{
    QStringList told;
    for (;;) {
        QStringList values;
        try {
            if (!reader.Next([&](const QString& value) { values.append(value); }))
                return told;
            told.append(QString::number(reader.Number()) + QLatin1Char(':') +
                        values.join(QLatin1Char('|')));
        } catch (const Failure& failure) {
            told.append(failure.Text());
        }
    }
}

QStringList RecordsOf(const QByteArray& bytes, const RecordFormat& format = Usual())
{
    RecordReader whole(PiecesOf(bytes, bytes.size() + 1), format);
    QStringList told = Told(whole);
    for (const qsizetype piece : {1, 2, 5}) {
        RecordReader inPieces(PiecesOf(bytes, piece), format);
        EXPECT_EQ(Told(inPieces), told);
    }
    return told;
}

} // namespace

TEST(RecordReaderTest, RecordsAreCutAsTheStationCutsThem)
{
    EXPECT_EQ(RecordsOf("<Anna+7>\nnoise <Bert+8>\r\n<>\n<a\nb+c>"),
              List({"1:Anna|7", "2:Bert|8", "3:", "4:a\nb|c"}));
    EXPECT_EQ(RecordsOf(""), QStringList());
    EXPECT_EQ(RecordsOf("no record\n"), QStringList());
}

TEST(RecordReaderTest, DelimitersMayBeCodesAndMissing)
{
    RecordFormat lines;
    lines.Delimiters = {QString(), QStringLiteral(";"), QStringLiteral("[A]")};
    EXPECT_EQ(RecordsOf("a;b\nc;d\n", lines), List({"1:a|b", "2:c|d"}));
}

TEST(RecordReaderTest, FiltersApply)
{
    RecordFormat format = Usual();
    format.Filters.Tab = true;
    EXPECT_EQ(RecordsOf("<a\tb+ c >", format), List({"1:a b|c"}));
}

TEST(RecordReaderTest, BothEncodingsAreRead)
{
    RecordFormat format = Usual();
    EXPECT_EQ(RecordsOf("<\xE4>", format), List({"1:ä"}));
    format.Encoding = InputEncoding::Utf8;
    EXPECT_EQ(RecordsOf("<\xC3\xA4+\xE4>", format), List({"1:ä|\xEF\xBF\xBD"}));
}

TEST(RecordReaderTest, ARecordThatIsCutOffIsToldWithItsNumber)
{
    EXPECT_EQ(RecordsOf("<a>\n<b+c"), List({"1:a", "Record 2: it has no end"}));
}

TEST(RecordReaderTest, ARecordThatIsTooLongEndsTheReading)
{
    RecordFormat tight = Usual();
    tight.MostCharacters = 6;
    EXPECT_EQ(RecordsOf("<1234><1>", tight), List({"1:1234", "2:1"}));
    RecordReader whole(PiecesOf("<a><12345><b>", 100), tight);
    EXPECT_EQ(Told(whole),
              List({"1:a", "Record 2: it is longer than 6 characters, or has no end"}));
}

TEST(RecordReaderTest, AHundredMegabytesWithoutAnEndTakeLittleMemory)
{
    qint64 left = 100 * MiB;
    RecordReader reader(
        [&](char* to, qsizetype most) -> qsizetype {
            const qsizetype count = std::min<qint64>(most, left);
            std::fill_n(to, count, '<');
            left -= count;
            return count;
        },
        Usual());
    const PeakMemory peak;
    EXPECT_EQ(Told(reader),
              List({"Record 1: it is longer than 16777216 characters, or has no end"}));
    EXPECT_GT(left, 50 * MiB);
    EXPECT_LT(peak.Grown(), 128 * MiB);
}

} // namespace vantrel::test
