#include "ports/InputBuffer.h"
#include "base/CodePage.h"
#include "base/Failure.h"
#include "ports/Framing.h"
#include "support/Print.h"
#include <gtest/gtest.h>
#include <optional>
#include <random>

using namespace vantrel;

namespace {

const QString start = QStringLiteral("<");
const QString end = QStringLiteral(">");

/// The answer of a buffer that is searched from its beginning each time.
bool PlainlyComplete(const QString& text, const QString& dataStart, const QString& dataEnd)
{
    return !text.isEmpty() && text.contains(dataStart) && text.contains(dataEnd);
}

/// The values of the first record that is completed by the text in these pieces: no value while it
/// is incomplete, "failed" where it cannot be framed.
std::optional<QString> FirstRecord(const QStringList& pieces, const Delimiters& delimiters)
{
    InputBuffer buffer;
    for (const QString& piece : pieces) {
        buffer.Append(piece);
        if (!buffer.IsComplete(delimiters.DataStart, delimiters.DataEnd))
            continue;
        QString text = buffer.Text();
        try {
            return ParseDataStream(text, delimiters, {}).join(QLatin1Char('|'));
        } catch (const Failure&) {
            return QStringLiteral("failed");
        }
    }
    return std::nullopt;
}

} // namespace

TEST(InputBuffer, IsCompleteWithBothDelimitersInWhateverOrder)
{
    struct Row
    {
        const char* Text;
        bool Complete;
    };
    for (const Row& row : {Row{"", false}, Row{"<", false}, Row{">", false}, Row{"A+B", false},
                           Row{"<A>", true}, Row{"><", true}, Row{">x<A+B", true}}) {
        InputBuffer buffer;
        buffer.Append(QString::fromLatin1(row.Text));
        EXPECT_EQ(buffer.IsComplete(start, end), row.Complete) << row.Text;
        EXPECT_EQ(buffer.IsComplete(start, end), row.Complete) << row.Text;
    }
}

TEST(InputBuffer, SearchesForTheDelimitersAsTheyWereSet)
{
    InputBuffer buffer;
    buffer.Append(QStringLiteral("<A\r"));
    EXPECT_FALSE(buffer.IsComplete(start, QStringLiteral("[D]")));
    buffer.Append(QStringLiteral("[D]"));
    EXPECT_TRUE(buffer.IsComplete(start, QStringLiteral("[D]")));
}

TEST(InputBuffer, EmptyDelimitersAreFoundInAnyText)
{
    InputBuffer buffer;
    EXPECT_FALSE(buffer.IsComplete(QString(), QString()));
    buffer.Append(QStringLiteral("x"));
    EXPECT_TRUE(buffer.IsComplete(QString(), QString()));
    EXPECT_FALSE(buffer.IsComplete(start, QString()));
    EXPECT_FALSE(buffer.IsComplete(QString(), end));
    buffer.Append(start);
    EXPECT_TRUE(buffer.IsComplete(start, QString()));
}

TEST(InputBuffer, ADelimiterCutByPiecesIsFound)
{
    const QString longEnd = QStringLiteral("ENDEND!");
    InputBuffer buffer;
    buffer.Append(QStringLiteral("<A ENDENDEND"));
    EXPECT_FALSE(buffer.IsComplete(start, longEnd));
    buffer.Append(QStringLiteral("!"));
    EXPECT_TRUE(buffer.IsComplete(start, longEnd));
}

TEST(InputBuffer, AChangedDelimiterIsSearchedFromTheBeginning)
{
    InputBuffer buffer;
    buffer.Append(QStringLiteral("#<A+B>"));
    EXPECT_TRUE(buffer.IsComplete(start, end));
    EXPECT_FALSE(buffer.IsComplete(QStringLiteral("*"), end));
    EXPECT_TRUE(buffer.IsComplete(QStringLiteral("#"), end));
    EXPECT_TRUE(buffer.IsComplete(QStringLiteral("#"), QStringLiteral("<")));
    EXPECT_FALSE(buffer.IsComplete(QStringLiteral("#"), QStringLiteral("!")));
}

TEST(InputBuffer, AnEmptiedOrReplacedBufferIsSearchedFromTheBeginning)
{
    InputBuffer buffer;
    buffer.Append(QStringLiteral("<A>"));
    EXPECT_TRUE(buffer.IsComplete(start, end));
    buffer.Clear();
    EXPECT_TRUE(buffer.Text().isEmpty());
    EXPECT_FALSE(buffer.IsComplete(start, end));
    buffer.Set(QStringLiteral("xxxxxxxx<"));
    EXPECT_FALSE(buffer.IsComplete(start, end));
    buffer.Set(QStringLiteral("<>"));
    EXPECT_TRUE(buffer.IsComplete(start, end));
    buffer.Set(QStringLiteral("A"));
    EXPECT_FALSE(buffer.IsComplete(start, end));
}

TEST(InputBuffer, ACopyIsNotTouchedByWhatComesLater)
{
    InputBuffer buffer;
    buffer.Append(QStringLiteral("<A"));
    const QString copy = buffer.Text();
    buffer.Append(QStringLiteral("+B>"));
    EXPECT_EQ(copy, QStringLiteral("<A"));
    EXPECT_EQ(buffer.Text(), QStringLiteral("<A+B>"));
}

TEST(InputBuffer, ARecordInTwoReadsIsOneRecord)
{
    const Delimiters usual{start, QStringLiteral("+"), end};
    EXPECT_EQ(FirstRecord({QStringLiteral("<A+B"), QStringLiteral("+C>")}, usual),
              QStringLiteral("A|B|C"));
}

TEST(InputBuffer, ARecordMayBeCutAtAnyPosition)
{
    const Delimiters delimiters{QStringLiteral("[2]<<"), QStringLiteral("+"),
                                QStringLiteral(">>>")};
    const Delimiters plain{QStringLiteral("<<"), QStringLiteral("+,"), QStringLiteral(">>>")};
    const QString record = QStringLiteral("noise<<A>>+,B\r\nB+\u20AC>>>");
    for (qsizetype first = 0; first <= record.size(); ++first) {
        for (qsizetype second = first; second <= record.size(); ++second) {
            const QStringList pieces{record.left(first), record.mid(first, second - first),
                                     record.mid(second)};
            ASSERT_EQ(FirstRecord(pieces, plain), QStringLiteral("A>>|B\r\nB|\u20AC"))
                << first << ' ' << second;
            ASSERT_EQ(FirstRecord(pieces, delimiters), std::nullopt) << first << ' ' << second;
        }
    }
}

TEST(InputBuffer, RandomPiecesAgreeWithASearchOfTheWhole)
{
    std::mt19937 random(77U);
    const QStringList wanted{QString(),
                             QStringLiteral("<"),
                             QStringLiteral(">"),
                             QStringLiteral("<<"),
                             QStringLiteral("<><"),
                             QStringLiteral("<>+<>>")};
    const QString letters = QStringLiteral("<>+");
    const auto below = [&random](qsizetype bound) {
        return static_cast<qsizetype>(random() % static_cast<std::uint32_t>(bound));
    };
    int complete = 0;
    for (int round = 0; round < 3000; ++round) {
        InputBuffer buffer;
        QString whole;
        QString dataStart = wanted[below(wanted.size())];
        const QString& dataEnd = wanted[below(wanted.size())];
        for (int piece = 0; piece < 12; ++piece) {
            QString characters;
            for (qsizetype i = below(4); i > 0; --i)
                characters += letters[below(letters.size())];
            buffer.Append(characters);
            whole += characters;
            if (below(20) == 0)
                dataStart = wanted[below(wanted.size())];
            if (below(25) == 0) {
                whole = characters;
                buffer.Set(whole);
            }
            const bool expected = PlainlyComplete(whole, dataStart, dataEnd);
            ASSERT_EQ(buffer.IsComplete(dataStart, dataEnd), expected)
                << whole.toStdString() << ' ' << dataStart.toStdString() << ' '
                << dataEnd.toStdString();
            complete += expected ? 1 : 0;
        }
        ASSERT_EQ(buffer.Text(), whole);
    }
    EXPECT_GT(complete, 1000);
}

TEST(InputBuffer, ALongRecordInManyPiecesIsWhole)
{
    InputBuffer buffer;
    QString lastRawData;
    const QString piece(1024, QLatin1Char('v'));
    buffer.Append(start);
    for (int i = 0; i < 4096; ++i) {
        lastRawData.clear();
        buffer.Append(piece);
        lastRawData = buffer.Text();
        ASSERT_FALSE(buffer.IsComplete(start, end));
    }
    buffer.Append(end);
    EXPECT_TRUE(buffer.IsComplete(start, end));
    QString text = buffer.Text();
    EXPECT_EQ(ParseDataStream(text, {start, QStringLiteral("+"), end}, {}).value(0).size(),
              4096 * 1024);
    EXPECT_EQ(lastRawData.size(), 4096 * 1024 + 1);
}
