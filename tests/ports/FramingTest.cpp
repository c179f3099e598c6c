#include "ports/Framing.h"
#include "base/CodePage.h"
#include "base/Failure.h"
#include "support/Print.h"
#include <gtest/gtest.h>

using namespace vantrel;

namespace {

const Delimiters usual{QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};

Delimiters Of(const char* start, const char* separator, const char* end)
{
    return {QString::fromLatin1(start), QString::fromLatin1(separator), QString::fromLatin1(end)};
}

/// The values joined by "|", or "failed".
QString Framed(const QString& input, const Delimiters& delimiters = usual,
               const Filters& filters = {})
{
    QString buffer = input;
    try {
        return ParseDataStream(buffer, delimiters, filters).join(QLatin1Char('|'));
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::InvalidCall);
        EXPECT_EQ(buffer, input);
        return QStringLiteral("failed");
    }
}

struct Case
{
    const char* Sentence;
    Delimiters Framing;
    QByteArray Bytes;
    const char* Verdict;
};

const Case cases[] = {
    {"a record yields its values", usual, "<A+B>", "A|B"},
    {"what stands around a record is lost", usual, "abc<A+B>def", "A|B"},
    {"an empty value takes no position", usual, "<A++B>", "A|B"},
    {"separators at the ends make no value", usual, "<+A+B+>", "A|B"},
    {"a second record is lost", usual, "<A+B><C+D>", "A|B"},
    {"a stale end is passed over", usual, ">x<A+B>", "A|B"},
    {"an end before the start alone fails", usual, ">x<A+B", "failed"},
    {"no delimiter at all fails", usual, "A+B", "failed"},
    {"nothing at all fails", usual, "", "failed"},
    {"nothing between the delimiters is no value", usual, "<>", ""},
    {"only separators are no value", usual, "<+++>", ""},
    {"a value of blanks keeps its position, empty", usual, "<A+  +B>", "A||B"},
    {"each separator character separates", Of("<", "+,", ">"), "<A+B,C>", "A|B|C"},
    {"a separator written as a code is decoded", Of("<", "[9]", ">"), "<A\tB+C>", "A|B+C"},
    {"a bar in the separator setting is one more character", Of("<", "+|", ">"), "<A|B+C>",
     "A|B|C"},
    {"an empty separator leaves one value", Of("<", "", ">"), "<A+B C>", "A+B C"},
    {"the start's text is lost inside the data", usual, "<A<B>", "AB"},
    {"delimiters may be longer texts", Of("BEGIN", "+", "END"), "xBEGINA+BENDy", "A|B"},
    {"case counts in delimiters", Of("begin", "+", "end"), "BEGIN begin A END end", "A END"},
    {"the end is looked for right behind the start's first character", Of("<<", "+", "<"), "<<A<",
     ""},
    {"equal delimiters frame", Of("#", "+", "#"), "#A+B#", "A|B"},
    {"an empty start begins at the first character", Of("", "+", ">"), "A+B>C", "A|B"},
    {"an empty start fails on nothing", Of("", "+", ">"), "", "failed"},
    {"an empty end leaves the start's own character", Of("<", "+", ""), "x<A+B", ""},
    {"an empty end behind the last character fails", Of("<", "+", ""), "x<", "failed"},
    {"both empty take the first character", Of("", "+", ""), "AB", "A"},
    {"a start written as a code leads the first value", Of("[2]", "+", ">"),
     "[2]\x02"
     "A+B>",
     "\x02"
     "A|B"},
    {"a start written as a code needs its character", Of("[2]", "+", ">"), "[2]A+B>", "failed"},
    {"an end written as a code ends at its character", Of("<", "+", "[D]"), "<A+B\rC", "A|B"},
    {"line ends are data", usual, "<A\r\n+\r\nB>", "A\r\n|\r\nB"},
};

} // namespace

TEST(Framing, EachTextHasItsVerdict)
{
    int walked = 0;
    for (const Case& each : cases) {
        EXPECT_EQ(Framed(FromCodePage(each.Bytes), each.Framing), QString::fromLatin1(each.Verdict))
            << each.Sentence;
        ++walked;
    }
    EXPECT_EQ(walked, 30);
}

TEST(Framing, TheBufferKeepsTheTextBetweenTheDelimiters)
{
    QString buffer = QStringLiteral("abc<A<+B>def");
    EXPECT_EQ(ParseDataStream(buffer, usual, {}).size(), 2);
    EXPECT_EQ(buffer, QStringLiteral("A+B"));
}

TEST(Framing, EveryByteOfAValuePassesThrough)
{
    QByteArray all;
    for (int code = 0; code < 256; ++code)
        all.append(static_cast<char>(code));
    // Framed by texts that do not occur in it, and ended by what no trimming touches.
    const Delimiters framing = Of("<<", "", ">>");
    const QString value = QLatin1Char('x') + FromCodePage(all) + QLatin1Char('x');
    EXPECT_EQ(ToCodePage(Framed(QStringLiteral("<<") + value + QStringLiteral(">>"), framing)),
              'x' + all + 'x');
}

TEST(Framing, EveryByteSeparatesWhenItIsSetByItsCode)
{
    for (int code = 1; code < 256; ++code) {
        const QChar separator = CharacterOfCode(static_cast<unsigned char>(code));
        const Delimiters framing{QStringLiteral("((("),
                                 QStringLiteral("[%1]").arg(QString::number(code, 16).toUpper()),
                                 QStringLiteral(")))")};
        const QString first = QStringLiteral("yy");
        const QString second = QStringLiteral("zz");
        QString buffer = framing.DataStart + first + separator + second + framing.DataEnd;
        const QStringList values = ParseDataStream(buffer, framing, {});
        if (separator == QLatin1Char('y') || separator == QLatin1Char('z'))
            EXPECT_EQ(values.size(), 1) << code;
        else
            EXPECT_EQ(values, (QStringList{first, second})) << code;
    }
}

TEST(Framing, WithoutCutTheSurroundingsBelongToTheValues)
{
    QString text = QStringLiteral("x<A+B>y");
    EXPECT_EQ(ParseWithoutCut(text, usual, {}),
              (QStringList{QStringLiteral("xA"), QStringLiteral("By")}));
    EXPECT_EQ(text, QStringLiteral("xA+By"));
}

TEST(SplitOnChars, CutsAtItsOwnCharactersByDefault)
{
    EXPECT_EQ(SplitOnChars(QStringLiteral("a b,c/d!e|f+g")),
              QStringLiteral("a b c d e f+g").split(QLatin1Char(' ')));
}

TEST(SplitOnChars, HasNoEmptyTokens)
{
    EXPECT_EQ(SplitOnChars(QStringLiteral(",,a,,b,,"), QStringLiteral(",")),
              (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_TRUE(SplitOnChars(QStringLiteral(",,,"), QStringLiteral(",")).isEmpty());
    EXPECT_TRUE(SplitOnChars(QString(), QStringLiteral(",")).isEmpty());
}

TEST(SplitOnChars, WithoutDelimitersTheTextIsOneToken)
{
    EXPECT_EQ(SplitOnChars(QStringLiteral("a b"), QString()), QStringList{QStringLiteral("a b")});
}

TEST(SplitOnChars, KnowsCharactersBeyondOneByte)
{
    EXPECT_EQ(SplitOnChars(QStringLiteral("1\u20AC2\uFFFF3"), QStringLiteral("\u20AC\uFFFF")),
              QStringLiteral("1,2,3").split(QLatin1Char(',')));
}
