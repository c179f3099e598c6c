#include "ports/RecordCutter.h"
#include "base/Failure.h"
#include "ports/Framing.h"
#include "ports/InputBuffer.h"
#include "support/Memory.h"
#include "support/Print.h"
#include <gtest/gtest.h>
#include <random>

using namespace vantrel;

namespace {

const Delimiters standard{QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};

/// The records that come out of a text which arrives in these pieces.
QStringList Cut(const Delimiters& delimiters, const QStringList& pieces)
{
    RecordCutter cutter;
    cutter.SetDelimiters(delimiters.DataStart, delimiters.DataEnd);
    QStringList records;
    for (const QString& piece : pieces) {
        cutter.Append(piece);
        while (cutter.HasRecord())
            records.append(cutter.TakeRecord());
    }
    return records;
}

QStringList Cut(const Delimiters& delimiters, const QString& text)
{
    return Cut(delimiters, QStringList{text});
}

/// Cuts the text at random places.
QStringList Pieces(const QString& text, std::mt19937& random)
{
    QStringList pieces;
    for (qsizetype from = 0; from < text.size();) {
        const auto length = static_cast<qsizetype>(random() % 5 + 1);
        pieces.append(text.mid(from, length));
        from += length;
    }
    return pieces;
}

/// What the shared input makes of a text that comes alone.
QString OutcomeAlone(const Delimiters& delimiters, const QString& text)
{
    InputBuffer buffer;
    buffer.Append(text);
    if (!buffer.IsComplete(delimiters.DataStart, delimiters.DataEnd))
        return QStringLiteral("waits");
    QString framed = text;
    try {
        return ParseDataStream(framed, delimiters, {}).join(QLatin1Char('|'));
    } catch (const Failure&) {
        return QStringLiteral("no values");
    }
}

} // namespace

TEST(RecordCutter, EveryRecordInOnePieceComesOutInItsOrder)
{
    EXPECT_EQ(
        Cut(standard, QStringLiteral("<A+B><C+D>\r\n<E>")),
        (QStringList{QStringLiteral("<A+B>"), QStringLiteral("<C+D>"), QStringLiteral("<E>")}));
}

TEST(RecordCutter, TextBeforeAStartIsDroppedAndAnEndInItEndsNothing)
{
    EXPECT_EQ(Cut(standard, QStringLiteral(">x<A>y>z<B>")),
              (QStringList{QStringLiteral("<A>"), QStringLiteral("<B>")}));
    EXPECT_EQ(Cut(standard, QStringLiteral("<A<B>")), QStringList{QStringLiteral("<A<B>")});
    EXPECT_EQ(Cut(standard, QStringLiteral("<>")), QStringList{QStringLiteral("<>")});
}

TEST(RecordCutter, RecordInPiecesWaitsForItsEnd)
{
    RecordCutter cutter;
    cutter.SetDelimiters(standard.DataStart, standard.DataEnd);
    EXPECT_FALSE(cutter.HasRecord());
    cutter.Append(QStringLiteral("xx<A"));
    EXPECT_FALSE(cutter.HasRecord());
    EXPECT_EQ(cutter.Text(), QStringLiteral("<A"));
    cutter.Append(QStringLiteral("+B"));
    EXPECT_FALSE(cutter.HasRecord());
    cutter.Append(QStringLiteral("><C"));
    ASSERT_TRUE(cutter.HasRecord());
    EXPECT_EQ(cutter.TakeRecord(), QStringLiteral("<A+B>"));
    EXPECT_FALSE(cutter.HasRecord());
    EXPECT_EQ(cutter.Text(), QStringLiteral("<C"));
}

TEST(RecordCutter, DelimitersMayHaveAnyLengthAndBeSplit)
{
    const Delimiters rows[] = {
        {QStringLiteral("BEGIN"), {}, QStringLiteral("END")},
        {QStringLiteral("|"), {}, QStringLiteral("|")},
        {QStringLiteral("<<"), {}, QStringLiteral(">>")},
        {QStringLiteral("[2]"), {}, QStringLiteral("[3]")},
        {QStringLiteral("<"), {}, QStringLiteral("[D][A]")},
    };
    const char* const decoded[][2] = {
        {"BEGIN", "END"}, {"|", "|"}, {"<<", ">>"}, {"\x02", "\x03"}, {"<", "\r\n"}};
    std::mt19937 random(3);
    for (std::size_t row = 0; row < std::size(rows); ++row) {
        const QString start = QString::fromLatin1(decoded[row][0]);
        const QString end = QString::fromLatin1(decoded[row][1]);
        const QStringList wanted{start + QStringLiteral("A+B") + end, start + end,
                                 start + QStringLiteral("C") + end};
        const QString text = QStringLiteral("junk") + wanted[0] + wanted[1] +
                             QStringLiteral("BEGI") + wanted[2] + start + QStringLiteral("half");
        for (int round = 0; round < 50; ++round)
            ASSERT_EQ(Cut(rows[row], Pieces(text, random)), wanted) << row;
    }
}

TEST(RecordCutter, EachRecordHasTheOutcomeItHasAlone)
{
    const Delimiters rows[] = {
        standard,
        {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral("<")},
        {QStringLiteral("<<"), QStringLiteral("+"), QStringLiteral("<")},
        {QStringLiteral("<+"), QStringLiteral("+"), QStringLiteral("+>")},
        {QString(), QStringLiteral("+"), QStringLiteral(">")},
        {QStringLiteral("<"), QStringLiteral("+"), QString()},
        {QStringLiteral("<+"), QStringLiteral("+"), QString()},
    };
    std::mt19937 random(4);
    for (const Delimiters& delimiters : rows) {
        int records = 0;
        for (int round = 0; round < 3000; ++round) {
            QString text;
            for (unsigned long length = random() % 14; length > 0; --length)
                text += QStringLiteral("<+>A")[static_cast<qsizetype>(random() % 4)];
            const QStringList cut = Cut(delimiters, text);
            ASSERT_EQ(Cut(delimiters, Pieces(text, random)), cut) << text.toStdString();
            QString rest = text;
            for (const QString& record : cut) {
                // The first record of a text is what the shared input makes of the whole text.
                const QString alone = OutcomeAlone(delimiters, record);
                ASSERT_NE(alone, QStringLiteral("waits"))
                    << text.toStdString() << " " << record.toStdString();
                ASSERT_EQ(alone, OutcomeAlone(delimiters,
                                              rest.first(rest.indexOf(record) + record.size())))
                    << text.toStdString() << " " << record.toStdString();
                rest = rest.mid(rest.indexOf(record) + record.size());
                ++records;
            }
        }
        EXPECT_GT(records, 100) << delimiters.DataStart.toStdString() << " "
                                << delimiters.DataEnd.toStdString();
    }
}

TEST(RecordCutter, ControlCharactersSetAsCodesEndARecord)
{
    const Delimiters framed{QStringLiteral("[2]"), QStringLiteral("+"), QStringLiteral("[3]")};
    const QString record = QStringLiteral("\u0002A+B\u0003");
    ASSERT_EQ(Cut(framed, record + record), (QStringList{record, record}));
    // The shared input waits for the codes as they are written.
    EXPECT_EQ(OutcomeAlone(framed, record), QStringLiteral("waits"));
    EXPECT_EQ(Cut(framed, QStringLiteral("[2]A+B[3]")), QStringList());
}

TEST(RecordCutter, ChangedDelimitersApplyToWhatWaits)
{
    RecordCutter cutter;
    cutter.SetDelimiters(standard.DataStart, standard.DataEnd);
    cutter.Append(QStringLiteral("<A{B}C><D{E}"));
    ASSERT_TRUE(cutter.HasRecord());
    cutter.SetDelimiters(QStringLiteral("{"), QStringLiteral("}"));
    ASSERT_TRUE(cutter.HasRecord());
    EXPECT_EQ(cutter.TakeRecord(), QStringLiteral("{B}"));
    ASSERT_TRUE(cutter.HasRecord());
    EXPECT_EQ(cutter.TakeRecord(), QStringLiteral("{E}"));
}

TEST(RecordCutter, WhatIsIncompleteCanBeDroppedAlone)
{
    RecordCutter cutter;
    cutter.SetDelimiters(standard.DataStart, standard.DataEnd);
    cutter.Append(QStringLiteral("<A> <B><half"));
    EXPECT_EQ(cutter.DropIncomplete(), 5);
    cutter.Append(QStringLiteral("+C><D>"));
    QStringList records;
    while (cutter.HasRecord())
        records.append(cutter.TakeRecord());
    EXPECT_EQ(records,
              (QStringList{QStringLiteral("<A>"), QStringLiteral("<B>"), QStringLiteral("<D>")}));
    EXPECT_EQ(cutter.DropIncomplete(), 0);
}

TEST(RecordCutter, ManyMegabytesLeaveNoMemoryBehind)
{
    RecordCutter cutter;
    cutter.SetDelimiters(standard.DataStart, standard.DataEnd);
    const qint64 before = test::UsedMemory();
    const QString piece(1 << 16, QLatin1Char('x'));
    // One record of 64 MB, with something before it and the beginning of another behind it.
    cutter.Append(piece + QLatin1Char('<'));
    for (int count = 0; count < 1024; ++count) {
        cutter.Append(piece);
        ASSERT_FALSE(cutter.HasRecord());
    }
    cutter.Append(QStringLiteral("><"));
    ASSERT_TRUE(cutter.HasRecord());
    EXPECT_EQ(cutter.TakeRecord().size(), 1024 * piece.size() + 2);
    EXPECT_FALSE(cutter.HasRecord());
    EXPECT_LT(test::UsedMemory(), before + test::MiB + test::SanitizerRoom);
    // Text without a start is not kept at all.
    cutter.DropIncomplete();
    for (int count = 0; count < 1024; ++count) {
        cutter.Append(piece);
        ASSERT_FALSE(cutter.HasRecord());
    }
    EXPECT_LT(test::UsedMemory(), before + test::MiB + test::SanitizerRoom);
}

TEST(RecordCutter, AMillionRecordsInOneTextAreCutInTheirOrder)
{
    RecordCutter cutter;
    cutter.SetDelimiters(standard.DataStart, standard.DataEnd);
    QString text;
    constexpr int count = 1000000;
    for (int number = 0; number < count; ++number)
        text += QStringLiteral("<%1>").arg(number);
    cutter.Append(text);
    for (int number = 0; number < count; ++number) {
        ASSERT_TRUE(cutter.HasRecord());
        ASSERT_EQ(cutter.TakeRecord(), QStringLiteral("<%1>").arg(number));
    }
    EXPECT_FALSE(cutter.HasRecord());
    EXPECT_EQ(cutter.Text(), QString());
}
