#include "station/batch/RowSource.h"
#include "ports/PiecesOfBytes.h"
#include "support/FailureOf.h"
#include <gtest/gtest.h>

// The rows of a file, as the values of records.

namespace vantrel::test {

namespace {

/// What a source gives: values with "|" between, or why a row is refused.
QStringList RowsOf(const QByteArray& bytes, const RowFormat& format)
{
    RowSource source(PiecesOf(bytes, 3), format);
    QStringList rows;
    for (;;) {
        try {
            BatchRow row;
            if (!source.Next(row))
                return rows;
            rows.append(QStringLiteral("%1@%2 %3")
                            .arg(row.Number)
                            .arg(row.Line)
                            .arg(row.Values.join(u'|')));
        } catch (const Failure& failure) {
            rows.append(failure.Text());
            if (!source.CanGoOn())
                return rows;
        }
    }
}

RowFormat Table(bool hasHeader = false, const char* columns = "")
{
    RowFormat format;
    format.HasHeader = hasHeader;
    if (*columns != '\0')
        format.Columns = ColumnNames(QString::fromUtf8(columns));
    return format;
}

} // namespace

TEST(RowSource, NumbersRowsAndTellsTheirLines)
{
    EXPECT_EQ(RowsOf("Ada,1\n\"Bea\nof B\",2\nCid,3\n", Table()),
              QStringList({QStringLiteral("1@1 Ada|1"), QStringLiteral("2@2 Bea\nof B|2"),
                           QStringLiteral("3@4 Cid|3")}));
}

TEST(RowSource, ALineOfNamesIsNoRow)
{
    RowSource source(PiecesOf("name,no\nAda,1\n", 100), Table(true));
    EXPECT_EQ(source.Names(), List({"name", "no"}));
    BatchRow row;
    ASSERT_TRUE(source.Next(row));
    EXPECT_EQ(row.Number, 1);
    EXPECT_EQ(row.Line, 2);
    EXPECT_FALSE(source.Next(row));
    EXPECT_FALSE(source.Next(row));
}

TEST(RowSource, ColumnsComeInTheOrderThatIsAskedFor)
{
    EXPECT_EQ(RowsOf("no,name,kind\n1,Ada,Gold\n", Table(true, "kind,no")),
              QStringList({QStringLiteral("1@2 Gold|1")}));
    RowSource source(PiecesOf("no,\"last, first\"\n", 100), Table(true, "\"last, first\",no"));
    EXPECT_EQ(source.Names(), List({"last, first", "no"}));
}

TEST(RowSource, AColumnThatIsMissingOrThereTwiceIsRefusedBeforeAnyRow)
{
    EXPECT_EQ(FailureTextOf([] { RowsOf("a,b\n1,2\n", Table(true, "c")); }),
              QStringLiteral("There is no column c in the first line: a, b."));
    EXPECT_EQ(FailureTextOf([] { RowsOf("a;b\n1;2\n", Table(true, "a")); }),
              QStringLiteral("There is no column a in the first line: a;b."));
    const QString many = FailureTextOf(
        [] { RowsOf(QByteArray("long,").repeated(60000) + "end\n", Table(true, "c")); });
    EXPECT_TRUE(many.endsWith(QStringLiteral(" ..."))) << many.toStdString();
    EXPECT_LT(many.size(), 300);
    EXPECT_EQ(FailureTextOf([] { RowsOf("a,a\n1,2\n", Table(true, "a")); }),
              QStringLiteral("The first line has the column a twice."));
}

TEST(RowSource, ARowWithMoreOrFewerValuesThanTheFirstIsRefusedAndTheOthersCome)
{
    EXPECT_EQ(RowsOf("1,2\n3\n\n4,5,6\n7,8\n", Table()),
              QStringList({QStringLiteral("1@1 1|2"),
                           QStringLiteral("Line 2: 1 value where the first line has 2."),
                           QStringLiteral("Line 3 is empty."),
                           QStringLiteral("Line 4: 3 values where the first line has 2."),
                           QStringLiteral("5@5 7|8")}));
}

TEST(RowSource, AnEmptyLineIsAnEmptyValueWhereRowsHaveOneValue)
{
    EXPECT_EQ(
        RowsOf("a\n\nb\n", Table()),
        QStringList({QStringLiteral("1@1 a"), QStringLiteral("2@2 "), QStringLiteral("3@3 b")}));
}

TEST(RowSource, AnEmptyFileHasNoRows)
{
    EXPECT_EQ(RowsOf("", Table()), QStringList());
    EXPECT_EQ(RowsOf("", Table(true)), QStringList());
    EXPECT_EQ(RowsOf("\n\n", Table()), QStringList());
}

TEST(RowSource, AQuoteInAWrongPlaceEndsTheReading)
{
    const QStringList rows = RowsOf("1,2\n\"x\"y,2\n3,4\n", Table());
    ASSERT_EQ(rows.size(), 2);
    EXPECT_TRUE(rows[1].startsWith(QStringLiteral("Line 2: "))) << qPrintable(rows[1]);
}

TEST(RowSource, RecordsOfHostsMayHaveAnyNumberOfValues)
{
    RecordFormat records;
    records.Delimiters = {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};
    RowFormat format;
    format.Written = records;
    EXPECT_EQ(RowsOf("<Ada+1>dropped<Bea><Cid+2+3>", format),
              QStringList({QStringLiteral("1@1 Ada|1"), QStringLiteral("2@2 Bea"),
                           QStringLiteral("3@3 Cid|2|3")}));
}

} // namespace vantrel::test
