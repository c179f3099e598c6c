#include "ports/RecordParts.h"
#include "base/Failure.h"
#include <gtest/gtest.h>
#include <random>

using namespace vantrel;

namespace {

const Delimiters Usual{QStringLiteral("<"), QStringLiteral("+|"), QStringLiteral(">")};

Filters AllFilters()
{
    Filters filters;
    filters.Cr = filters.Lf = filters.Tab = filters.Space = filters.Esc = filters.NewPage = true;
    return filters;
}

constexpr qsizetype All = 100000;

/// One letter for each byte: S start, s separator, E end, f filtered, x dropped, or the number of
/// the value that it stands in.
QByteArray Marks(const QByteArray& raw, const Delimiters& delimiters, const Filters& filters = {},
                 RecordCut cut = RecordCut::Framed,
                 InputEncoding encoding = InputEncoding::CodePage1252)
{
    QByteArray marks;
    const auto pieces = PiecesOfRecord(raw, encoding, delimiters, filters, cut, All);
    if (!pieces)
        return "no record";
    QByteArray bytes;
    for (const RecordPiece& piece : *pieces) {
        constexpr char letters[] = {'v', 'S', 's', 'E', 'f', 'x'};
        const char letter = piece.Part == RecordPart::Value
                                ? QByteArray::number(piece.Value % 10)[0]
                                : letters[static_cast<int>(piece.Part)];
        marks += QByteArray(piece.Bytes.size(), letter);
        bytes += piece.Bytes;
    }
    EXPECT_EQ(bytes, raw);
    return marks;
}

/// The values as the pieces tell them.
QStringList ValuesOf(const std::vector<RecordPiece>& pieces, const Filters& filters, int count)
{
    QStringList values(count);
    for (const RecordPiece& piece : pieces) {
        if (piece.Value > 0 && piece.Value <= count)
            values[piece.Value - 1] += piece.Text;
    }
    if (filters.Tab)
        values.replaceInStrings(QStringLiteral("\t"), QStringLiteral(" "));
    return values;
}

} // namespace

TEST(RecordParts, EachByteHasItsPart)
{
    EXPECT_EQ(Marks("<Ada+7>", Usual), "S111s2E");
    EXPECT_EQ(Marks("xy<Ada++7>\r\n", Usual), "xxS111ss2Exx");
}

TEST(RecordParts, WhatAFilterRemovesIsTold)
{
    EXPECT_EQ(Marks("<A\r\nB+\x1B"
                    "C\f>",
                    Usual, AllFilters()),
              "S1ff1sf2fE");
    // Without filters only the blanks at the ends of a value go.
    EXPECT_EQ(Marks("< A  B +C>", Usual), "Sf1111fs2E");
    // Of two blanks one stays, of three two.
    EXPECT_EQ(Marks("<A  B+C   D>", Usual, AllFilters()), "S11f1s22f22E");
}

TEST(RecordParts, ATabThatBecomesABlankStaysInItsValue)
{
    EXPECT_EQ(Marks("<A\tB>", Usual, AllFilters()), "S111E");
    EXPECT_EQ(Marks("<A\t>", Usual, AllFilters()), "S1fE");
}

TEST(RecordParts, ADelimiterSetAsACodeStaysInTheFirstValue)
{
    const Delimiters coded{QStringLiteral("[2]"), QStringLiteral("[9]"), QStringLiteral("[3]")};
    const auto pieces =
        PiecesOfRecord("\x02"
                       "A\tB\x03",
                       InputEncoding::CodePage1252, coded, {}, RecordCut::Framed, All);
    ASSERT_TRUE(pieces);
    ASSERT_EQ(pieces->size(), 5U);
    EXPECT_EQ(pieces->at(0).Part, RecordPart::Start);
    EXPECT_EQ(pieces->at(0).Value, 1);
    EXPECT_EQ(pieces->at(1).Part, RecordPart::Value);
    EXPECT_EQ(pieces->at(4).Part, RecordPart::End);
}

TEST(RecordParts, ADelimiterWithinTheRecordIsRemovedAsOne)
{
    EXPECT_EQ(Marks("<A<B>", Usual), "S1S1E");
}

TEST(RecordParts, ARecordTakenAsAWholeHasNoEnds)
{
    EXPECT_EQ(Marks("a<Ada+7>b", Usual, {}, RecordCut::Whole), "1S111s2E2");
    EXPECT_EQ(Marks("Ada", Usual), "no record");
    EXPECT_EQ(Marks("Ada<", Usual), "no record");
    EXPECT_EQ(Marks("", Usual, {}, RecordCut::Whole), "");
}

TEST(RecordParts, BytesOfOneCharacterStayTogether)
{
    EXPECT_EQ(
        Marks("<Zo\xC3\xAB+\xF0\x9F\x98\x80>", Usual, {}, RecordCut::Framed, InputEncoding::Utf8),
        "S1111s2222E");
    // A byte that is no character is one of its own.
    EXPECT_EQ(Marks("<A\xFF+B>", Usual, {}, RecordCut::Framed, InputEncoding::Utf8), "S11s2E");
}

TEST(RecordParts, OnlyTheBeginningOfALongRecordIsTold)
{
    const QByteArray raw = '<' + QByteArray(5000, 'a') + '>';
    const auto pieces =
        PiecesOfRecord(raw, InputEncoding::CodePage1252, Usual, {}, RecordCut::Framed, 1000);
    ASSERT_TRUE(pieces);
    qsizetype bytes = 0;
    for (const RecordPiece& piece : *pieces)
        bytes += piece.Bytes.size();
    EXPECT_EQ(bytes, 1000);
}

TEST(RecordParts, TellTheSameValuesAsFraming)
{
    constexpr const char* alphabets[] = {"<>+ a", "<>+|ab\r\n\t\x1B\f  ", "[]0235ab+", "<<>>+\t "};
    const Delimiters settings[] = {
        Usual,
        {QStringLiteral("<<"), QStringLiteral("+"), QStringLiteral(">>")},
        {QStringLiteral("ab"), QStringLiteral("+"), QStringLiteral("b")},
        {QStringLiteral("[2B]"), QStringLiteral("[20]"), QStringLiteral("[D]")},
        {QString(), QStringLiteral("+"), QStringLiteral(">")},
        {QStringLiteral("<"), QString(), QStringLiteral("<")},
        {QStringLiteral("<"), QStringLiteral("+"), QString()},
    };
    std::mt19937 random(7);
    int records = 0;
    for (int round = 0; round < 20000; ++round) {
        const QByteArrayView alphabet(alphabets[random() % std::size(alphabets)]);
        QByteArray raw;
        for (auto length = random() % 24; length > 0; --length)
            raw +=
                alphabet[static_cast<qsizetype>(random() % static_cast<unsigned>(alphabet.size()))];
        const Delimiters& delimiters = settings[random() % std::size(settings)];
        Filters filters;
        for (bool Filters::*flag : {&Filters::Cr, &Filters::Lf, &Filters::Tab, &Filters::Space,
                                    &Filters::Esc, &Filters::NewPage})
            filters.*flag = random() % 2 == 0;
        const bool framed = random() % 2 == 0;
        InputDecoder decoder;
        QString text = decoder.Decode(raw);
        std::optional<QStringList> values;
        if (!framed) {
            values = ParseWithoutCut(text, delimiters, filters);
        } else {
            try {
                values = ParseDataStream(text, delimiters, filters);
            } catch (const Failure&) {
                values.reset();
            }
        }
        const auto pieces = PiecesOfRecord(raw, InputEncoding::CodePage1252, delimiters, filters,
                                           framed ? RecordCut::Framed : RecordCut::Whole, All);
        ASSERT_EQ(pieces.has_value(), values.has_value()) << raw.toStdString();
        if (!pieces)
            continue;
        ++records;
        ASSERT_EQ(ValuesOf(*pieces, filters, static_cast<int>(values->size())), *values)
            << raw.toStdString() << " between " << delimiters.DataStart.toStdString() << " and "
            << delimiters.DataEnd.toStdString();
        QByteArray bytes;
        for (const RecordPiece& piece : *pieces) {
            EXPECT_LE(piece.Value, values->size());
            bytes += piece.Bytes;
        }
        ASSERT_EQ(bytes, raw);
    }
    EXPECT_GT(records, 5000);
}
