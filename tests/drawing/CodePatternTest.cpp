#include "drawing/CodePattern.h"
#include "support/CodeSamples.h"
#include "support/Print.h"
#include <algorithm>
#include <gtest/gtest.h>

// Texts as bar codes, before they are drawn. That readers read them is tested on printed cards.

namespace vantrel::test {
namespace {

QString TroubleOf(CodeKind kind, const QString& text)
{
    const auto pattern = CodePatternOf(kind, text, 1);
    EXPECT_EQ(pattern->Runs.empty(), !pattern->Trouble.isEmpty());
    EXPECT_EQ(pattern->Width == 0, !pattern->Trouble.isEmpty());
    return pattern->Trouble;
}

bool IsSame(const CodePattern& one, const CodePattern& other)
{
    return one.Width == other.Width && one.Height == other.Height &&
           std::equal(one.Runs.begin(), one.Runs.end(), other.Runs.begin(), other.Runs.end(),
                      [](const ModuleRun& a, const ModuleRun& b) {
                          return a.X == b.X && a.Y == b.Y && a.Width == b.Width &&
                                 a.Height == b.Height;
                      });
}

TEST(CodePattern, AKindIsFoundByExactlyItsName)
{
    const QStringList names{
        QStringLiteral("QR Code"),  QStringLiteral("Data Matrix"),
        QStringLiteral("PDF417"),   QStringLiteral("Aztec Code"),
        QStringLiteral("Code 128"), QStringLiteral("Code 39"),
        QStringLiteral("EAN-13"),   QStringLiteral("EAN-8"),
        QStringLiteral("UPC-A"),    QStringLiteral("Interleaved 2 of 5"),
        QStringLiteral("Codabar"),
    };
    ASSERT_EQ(names.size(), CodeKindCount);
    for (int i = 0; i < CodeKindCount; ++i) {
        const auto kind = CodeKindNamed(names[i]);
        ASSERT_EQ(kind, static_cast<CodeKind>(i)) << names[i].toStdString();
        EXPECT_EQ(RowOf(*kind).Kind, *kind);
        EXPECT_EQ(QString(RowOf(*kind).Name), names[i]);
        EXPECT_FALSE(CodeKindNamed(names[i].toLower()));
        EXPECT_FALSE(CodeKindNamed(QString(names[i] + QLatin1Char(' '))));
    }
    EXPECT_FALSE(CodeKindNamed(QString()));
    EXPECT_FALSE(CodeKindNamed(QStringLiteral("MaxiCode")));
}

TEST(CodePattern, RunsLieInsideAndNeverTouchInOneRow)
{
    for (int i = 0; i < CodeKindCount; ++i) {
        const auto kind = static_cast<CodeKind>(i);
        const auto pattern = CodePatternOf(kind, SampleTextOf(kind), 1.5);
        ASSERT_TRUE(pattern->Trouble.isEmpty()) << pattern->Trouble.toStdString();
        const ModuleRun* before = nullptr;
        for (const ModuleRun& run : pattern->Runs) {
            EXPECT_GE(run.X, 0);
            EXPECT_GT(run.Width, 0);
            EXPECT_LE(run.X + run.Width, pattern->Width);
            EXPECT_LE(run.Y + run.Height, pattern->Height);
            if (before != nullptr && before->Y == run.Y) {
                EXPECT_GT(run.X, before->X + before->Width);
            }
            before = &run;
        }
    }
}

TEST(CodePattern, TheCheckDigitOfANumberMayBeGivenOrLeftOut)
{
    const struct
    {
        CodeKind Kind;
        QString Number;
        QString CheckDigit;
        QString Wanted;
    } numbers[] = {
        {CodeKind::Ean13, QStringLiteral("400638133393"), QStringLiteral("1"),
         QStringLiteral("EAN-13: 12 or 13 digits are wanted")},
        {CodeKind::Ean8, QStringLiteral("9638507"), QStringLiteral("4"),
         QStringLiteral("EAN-8: 7 or 8 digits are wanted")},
        {CodeKind::UpcA, QStringLiteral("03600029145"), QStringLiteral("2"),
         QStringLiteral("UPC-A: 11 or 12 digits are wanted")},
    };
    for (const auto& [kind, number, digit, wanted] : numbers) {
        EXPECT_EQ(TroubleOf(kind, number), QString());
        EXPECT_EQ(TroubleOf(kind, number + digit), QString());
        EXPECT_TRUE(
            IsSame(*CodePatternOf(kind, number, 1), *CodePatternOf(kind, number + digit, 1)));
        EXPECT_EQ(TroubleOf(kind, number + QLatin1Char('9')),
                  QString(RowOf(kind).Name) + QStringLiteral(": the check digit is wrong"));
        EXPECT_EQ(TroubleOf(kind, number.chopped(1)), wanted);
        EXPECT_EQ(TroubleOf(kind, number + digit + QLatin1Char('0')), wanted);
        EXPECT_EQ(TroubleOf(kind, number.chopped(1) + QLatin1Char('x')), wanted);
        // Digits of other scripts are no digits of a bar code.
        EXPECT_EQ(TroubleOf(kind, number.chopped(1) + QChar(0x0664)), wanted);
    }
}

TEST(CodePattern, WhatAKindCannotHoldIsRefusedAndNotAltered)
{
    EXPECT_EQ(
        TroubleOf(CodeKind::Code39, QStringLiteral("Card 7")),
        QStringLiteral("Code 39: capital letters, digits, blanks and - . $ / + % are wanted"));
    EXPECT_EQ(TroubleOf(CodeKind::Code39, QStringLiteral("CARD-7")), QString());
    EXPECT_EQ(TroubleOf(CodeKind::Code128, QString::fromUtf8("Zoë")),
              QStringLiteral("Code 128: letters, digits and signs without accents are wanted"));
    EXPECT_EQ(TroubleOf(CodeKind::Interleaved2Of5, QStringLiteral("12a4")),
              QStringLiteral("Interleaved 2 of 5: digits are wanted"));
    const QString codabar =
        QStringLiteral("Codabar: digits and - $ : / . + are wanted, between A, B, C or D");
    for (const char* wrong : {"47x1", "a4711b", "A4711", "4711B", "A47B11C", "A"})
        EXPECT_EQ(TroubleOf(CodeKind::Codabar, QLatin1StringView(wrong)), codabar) << wrong;
    EXPECT_TRUE(IsSame(*CodePatternOf(CodeKind::Codabar, QStringLiteral("4711"), 1),
                       *CodePatternOf(CodeKind::Codabar, QStringLiteral("A4711A"), 1)));
}

TEST(CodePattern, LettersOfAnyScriptGoIntoTheCodesThatCanHoldThem)
{
    const QString text = QString::fromUtf8("Zoë Łukasz 東京 😀");
    for (const CodeKind kind :
         {CodeKind::QrCode, CodeKind::DataMatrix, CodeKind::Pdf417, CodeKind::AztecCode})
        EXPECT_EQ(TroubleOf(kind, text), QString()) << RowOf(kind).Name.data();
}

TEST(CodePattern, TextsThatAreTooLongAreRefused)
{
    for (int i = 0; i < CodeKindCount; ++i) {
        const auto kind = static_cast<CodeKind>(i);
        for (const qsizetype length : {qsizetype{5000}, qsizetype{10'000'000}}) {
            const QString text(length, QLatin1Char('7'));
            const QString trouble = TroubleOf(kind, text);
            const bool fits = kind == CodeKind::QrCode && length == 5000;
            EXPECT_EQ(trouble.isEmpty(), fits) << RowOf(kind).Name.data() << length;
        }
    }
}

TEST(CodePattern, Pdf417ChoosesItsColumnsByThePlace)
{
    const QString text = QStringLiteral("Ada Lovelace, 10 December 1815, London");
    const auto wide = CodePatternOf(CodeKind::Pdf417, text, 6);
    const auto narrow = CodePatternOf(CodeKind::Pdf417, text, 1);
    EXPECT_GT(wide->Width, narrow->Width);
    EXPECT_LT(wide->Height, narrow->Height);
}

TEST(CodePattern, ATextIsEncodedOnce)
{
    const QString text = QStringLiteral("kept");
    EXPECT_EQ(CodePatternOf(CodeKind::QrCode, text, 1), CodePatternOf(CodeKind::QrCode, text, 2));
    EXPECT_NE(CodePatternOf(CodeKind::QrCode, text, 1),
              CodePatternOf(CodeKind::AztecCode, text, 1));
}

} // namespace
} // namespace vantrel::test
