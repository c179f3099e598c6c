#include "ports/TableReader.h"
#include "PiecesOfBytes.h"
#include "base/Failure.h"
#include "support/Memory.h"
#include "support/Print.h"
#include <algorithm>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

/// All rows with their lines, such as "1:a|b", and the failure that a row had in its place.
QStringList Told(TableReader& reader)
{
    QStringList told;
    QStringList values;
    for (;;) {
        try {
            if (!reader.Next(values))
                return told;
            told.append(
                QString::number(reader.Line()) + QLatin1Char(':') +
                (values.isEmpty() ? QStringLiteral("nothing") : values.join(QLatin1Char('|'))));
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), FailureNumber::InvalidCall);
            EXPECT_TRUE(values.isEmpty());
            told.append(failure.Text());
        }
    }
}

QStringList RowsOf(const QByteArray& bytes, const TableFormat& format = {})
{
    TableReader whole(PiecesOf(bytes, bytes.size() + 1), format);
    QStringList rows = Told(whole);
    // However the bytes come, the rows are the same.
    for (const qsizetype piece : {1, 2, 3}) {
        TableReader inPieces(PiecesOf(bytes, piece), format);
        EXPECT_EQ(Told(inPieces), rows);
    }
    return rows;
}

} // namespace

TEST(TableReaderTest, ValuesStandBetweenSeparatorsAndRowsOnLines)
{
    EXPECT_EQ(RowsOf("aaa,bbb,ccc\r\nzzz,yyy,xxx\r\n"), List({"1:aaa|bbb|ccc", "2:zzz|yyy|xxx"}));
}

TEST(TableReaderTest, TheLastRowMayLackItsLineEnd)
{
    EXPECT_EQ(RowsOf("aaa,bbb\r\nzzz,yyy"), List({"1:aaa|bbb", "2:zzz|yyy"}));
    EXPECT_EQ(RowsOf("a\nb,"), List({"1:a", "2:b|"}));
    EXPECT_EQ(RowsOf("a\n\"b\""), List({"1:a", "2:b"}));
}

TEST(TableReaderTest, ValuesMayStandInQuotes)
{
    EXPECT_EQ(RowsOf("\"aaa\",\"bbb\",\"ccc\"\r\nzzz,\"yyy\",xxx\r\n"),
              List({"1:aaa|bbb|ccc", "2:zzz|yyy|xxx"}));
}

TEST(TableReaderTest, LineEndsAndSeparatorsInQuotesBelongToTheValue)
{
    EXPECT_EQ(RowsOf("\"aaa\",\"b\r\nbb\",\"c,c\"\r\nzzz,yyy,xxx"),
              List({"1:aaa|b\r\nbb|c,c", "3:zzz|yyy|xxx"}));
    EXPECT_EQ(RowsOf("\"a\rb\nc\"\rd"), List({"1:a\rb\nc", "4:d"}));
    EXPECT_EQ(RowsOf("\"a\r\",\"\nb\"\nc"), List({"1:a\r|\nb", "4:c"}));
}

TEST(TableReaderTest, ADoubledQuoteInQuotesIsOne)
{
    EXPECT_EQ(RowsOf("\"aaa\",\"b\"\"bb\",\"ccc\"\r\n"), List({"1:aaa|b\"bb|ccc"}));
    EXPECT_EQ(RowsOf("\"\"\"\",\"\"\"a\"\"\",\"\"\n"), List({"1:\"|\"a\"|"}));
}

TEST(TableReaderTest, BlanksBelongToTheValue)
{
    EXPECT_EQ(RowsOf(" a , b\n"), List({"1: a | b"}));
}

TEST(TableReaderTest, EveryKindOfLineEndEndsALine)
{
    EXPECT_EQ(RowsOf("a\nb\rc\r\nd"), List({"1:a", "2:b", "3:c", "4:d"}));
}

TEST(TableReaderTest, EmptyValuesAreValues)
{
    EXPECT_EQ(RowsOf(",\n\"\"\na,,b\n"), List({"1:|", "2:", "3:a||b"}));
}

TEST(TableReaderTest, AnEmptyLineIsARowWithoutValuesExceptAtTheEnd)
{
    EXPECT_EQ(RowsOf("a\n\n\nb\n\n\n"), List({"1:a", "2:nothing", "3:nothing", "4:b"}));
    EXPECT_EQ(RowsOf("\r\n\r\na"), List({"1:nothing", "2:nothing", "3:a"}));
    EXPECT_EQ(RowsOf("\n\r\r\n"), QStringList());
    EXPECT_EQ(RowsOf(""), QStringList());
}

TEST(TableReaderTest, RowsMayBeLongerOrShorterThanTheFirst)
{
    EXPECT_EQ(RowsOf("a,b\nc\nd,e,f\n"), List({"1:a|b", "2:c", "3:d|e|f"}));
}

TEST(TableReaderTest, AByteOrderMarkIsNoPartOfTheFirstValue)
{
    EXPECT_EQ(RowsOf("\xEF\xBB\xBFname,x\n"), List({"1:name|x"}));
    EXPECT_EQ(RowsOf("\xEF\xBB\xBF\"na,me\"\n"), List({"1:na,me"}));
    EXPECT_EQ(RowsOf("\xEF\xBB\xBF"), QStringList());
    EXPECT_EQ(RowsOf("a\n\xEF\xBB\xBFz"), List({"1:a", "2:\xEF\xBB\xBFz"}));
}

TEST(TableReaderTest, ATabSeparatesWhereThatIsSet)
{
    const TableFormat tabs{.Separator = '\t'};
    EXPECT_EQ(RowsOf("a,b\tc\n\"d\te\"\tf\n", tabs), List({"1:a,b|c", "2:d\te|f"}));
}

TEST(TableReaderTest, BothEncodingsAreRead)
{
    EXPECT_EQ(RowsOf("\xC3\xA4,\xE2\x82\xAC,\xF0\x9F\x99\x82\n"), List({"1:ä|€|🙂"}));
    const TableFormat codePage{.Encoding = InputEncoding::CodePage1252};
    EXPECT_EQ(RowsOf("\xE4,\x80\n", codePage), List({"1:ä|€"}));
}

TEST(TableReaderTest, BytesThatAreNoUtf8AreRefusedWithTheirLineAndTheNextRowIsRead)
{
    EXPECT_EQ(RowsOf("a\nb,\xE4\nc\n"), List({"1:a", "Line 2: bytes that are no UTF-8", "3:c"}));
    EXPECT_EQ(RowsOf("\"a\nb\",\"c\r\nd\n\xFF\"\nz"),
              List({"Line 4: bytes that are no UTF-8", "5:z"}));
    // Cut off, overlong, half a pair.
    for (const char* bytes : {"\xE2\x82", "\xC0\x80", "\xED\xA0\x80"})
        EXPECT_EQ(RowsOf(bytes), List({"Line 1: bytes that are no UTF-8"}));
}

TEST(TableReaderTest, AQuoteWithinAPlainValueEndsTheReading)
{
    EXPECT_EQ(RowsOf("a\nb,c \"d\"\ne\n"),
              List({"1:a", "Line 2: a quote stands within a value that does not begin with one"}));
}

TEST(TableReaderTest, TextBehindAClosingQuoteEndsTheReading)
{
    EXPECT_EQ(RowsOf("\"a\nb\"c,d\ne\n"),
              List({"Line 2: text stands behind the quote that ends a value"}));
}

TEST(TableReaderTest, AQuoteWithoutItsEndIsToldWithTheLineWhereItBegins)
{
    EXPECT_EQ(RowsOf("a\nb,\"c\nd\ne,f\n"),
              List({"1:a", "Line 2: the quote that begins a value here has no end"}));
    EXPECT_EQ(RowsOf("\""), List({"Line 1: the quote that begins a value here has no end"}));
}

TEST(TableReaderTest, EmptyLinesBeforeAFaultAreStillRows)
{
    EXPECT_EQ(RowsOf("\n\n\""), List({"1:nothing", "2:nothing",
                                      "Line 3: the quote that begins a value here has no end"}));
}

TEST(TableReaderTest, WhetherTheReadingCanGoOnIsKnown)
{
    QStringList values;
    TableReader reader(PiecesOf("\xFF\na\nb\"\nc\n", 100), {});
    EXPECT_THROW(reader.Next(values), Failure);
    EXPECT_TRUE(reader.CanGoOn());
    EXPECT_TRUE(reader.Next(values));
    EXPECT_THROW(reader.Next(values), Failure);
    EXPECT_FALSE(reader.CanGoOn());
    EXPECT_FALSE(reader.Next(values));
}

TEST(TableReaderTest, ARowThatIsTooLongIsRefusedAndTheNextOneIsRead)
{
    const TableFormat tight{.MostBytes = 8, .MostValues = 3};
    EXPECT_EQ(RowsOf("12345678\n123,456,78\n", tight), List({"1:12345678", "2:123|456|78"}));
    EXPECT_EQ(RowsOf("a\n\"12\n3456\n\n7\"\nb\n", tight),
              List({"1:a", "Line 2: the row is longer than 8 bytes", "6:b"}));
    EXPECT_EQ(RowsOf("a,b,c\na,b,c,d\ne", tight),
              List({"1:a|b|c", "Line 2: the row has more than 3 values", "3:e"}));
}

TEST(TableReaderTest, AHundredMegabytesInOneValueAreRefusedWithLittleMemory)
{
    for (const bool isClosed : {true, false}) {
        qint64 left = 100 * MiB;
        QByteArray begin = "a\nb,\"";
        QByteArray end = isClosed ? "\"\nlast\n" : "";
        // A value of many lines, which comes in pieces.
        TableReader reader(
            [&](char* to, qsizetype most) -> qsizetype {
                QByteArray& text = begin.isEmpty() ? end : begin;
                if (begin.isEmpty() && left > 0) {
                    const qsizetype count = std::min<qint64>(most, left);
                    std::fill_n(to, count, 'x');
                    to[0] = '\n';
                    left -= count;
                    return count;
                }
                const qsizetype count = std::min(most, text.size());
                std::copy_n(text.constData(), count, to);
                text.remove(0, count);
                return count;
            },
            {});
        const PeakMemory peak;
        QStringList expected = List({"1:a", "Line 2: the row is longer than 16777216 bytes"});
        const QStringList told = Told(reader);
        EXPECT_EQ(told.first(2), expected);
        EXPECT_EQ(told.size(), isClosed ? 3 : 2);
        EXPECT_LT(peak.Grown(), 48 * MiB);
    }
}

TEST(TableReaderTest, AReadThatFailsFailsTheRow)
{
    TableReader reader(
        [times = 0](char* to, qsizetype) mutable -> qsizetype {
            if (++times > 3)
                throw Failure(FailureNumber::InvalidCall, QStringLiteral("gone"));
            *to = 'a';
            return 1;
        },
        {});
    QStringList values;
    EXPECT_THROW(reader.Next(values), Failure);
}

} // namespace vantrel::test
