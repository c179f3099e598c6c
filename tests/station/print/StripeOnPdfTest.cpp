#include "station/print/PrintCard.h"
#include "station/print/RealStation.h"
#include "support/PdfReading.h"
#include <gtest/gtest.h>

// The stripe as real text on the page, as a driver finds it, read back from the PDF.

namespace vantrel::test {
namespace {

class StripeOnPdf : public ::testing::Test
{
protected:
    /// Prints a card with a formula on every track and a text further down. @return its words
    std::vector<PdfWord> Printed(std::int32_t printerType)
    {
        SetRecord(Session, {QStringLiteral("1234"), QStringLiteral("5678")});
        LayoutParamsRecord& params = Session.CurrentParams;
        params.PrinterType = printerType;
        params.Track1 = params.Track2 = params.Track3 = QStringLiteral("DAT1~SEP~DAT2");
        AddText(Session, QStringLiteral("Anna"), {.Top = 3000});
        SavePage(Session);
        PrintCard(Session);
        return WordsOfPdf(m_station.CardPath(1));
    }

    /// In points; the side bearing of a glyph is smaller.
    static constexpr double Slack = 2.0;
    static constexpr double FontSize = 8.75;

    /// The lines stand at the left of the page, one below the other, the first below a blank line.
    static void ExpectLines(const std::vector<PdfWord>& words, const QStringList& lines)
    {
        ASSERT_EQ(static_cast<qsizetype>(words.size()), lines.size() + 1);
        double above = FontSize;
        for (qsizetype i = 0; i < lines.size(); ++i) {
            const PdfWord& word = words[static_cast<std::size_t>(i)];
            EXPECT_EQ(word.Text, lines[i]);
            EXPECT_NEAR(word.XMin, 0, Slack);
            EXPECT_GT(word.YMin, above - Slack);
            above = word.YMin + FontSize;
        }
        EXPECT_EQ(words.back().Text, QStringLiteral("Anna"));
        EXPECT_GT(words.back().YMin, 150 - Slack);
    }

private:
    RealStation m_station{QStringLiteral("Vantrel PDF")};

protected:
    vantrel::Session& Session = m_station.Session;
};

} // namespace

TEST_F(StripeOnPdf, CommandTextIsRealTextBelowTheBlankLineAtTheLeft)
{
    ExpectLines(Printed(1), {QStringLiteral("~1%1234^5678?"), QStringLiteral("~2;1234=5678?"),
                             QStringLiteral("~3;1234=5678?")});
}

TEST_F(StripeOnPdf, EachTokenOfAMagneticFontIsALineOfItsOwn)
{
    const QString first = QStringLiteral("1234");
    const QString second = QStringLiteral("5678");
    const QString equals = QStringLiteral("=");
    ExpectLines(Printed(4),
                {first, QStringLiteral("^"), second, first, equals, second, first, equals, second});
}

TEST_F(StripeOnPdf, APlainCardHasNoStripeText)
{
    ExpectLines(Printed(9), {});
}

} // namespace vantrel::test
