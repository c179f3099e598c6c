#include "app/Session.h"
#include "platform/PdfPrinter.h"
#include "platform/Schema.h"
#include "print/PrintCard.h"
#include "support/Layouts.h"
#include "support/PdfReading.h"
#include <gtest/gtest.h>

// What a driver finds on a page: the stripe as real text, read back from the PDF.

namespace vantrel::test {
namespace {

/// A machine whose one printer is the built-in one.
class OnePdfPrinter : public Printers
{
public:
    explicit OnePdfPrinter(const QString& folder) : m_printer(folder) {}

    QStringList DeviceNames() override { return {m_printer.DeviceName()}; }
    void MakeCurrent(const QString& /*deviceName*/) override {}
    Printer& Current() override { return m_printer; }

private:
    PdfPrinter m_printer;
};

class StripeOnPdf : public ::testing::Test
{
protected:
    StripeOnPdf()
    {
        const QString database = Session.PathInFolder(QLatin1StringView(LayoutDatabaseName));
        CreateLayoutDatabase(database);
        Session.LayoutDb.Open(database);
        SetRecord(Session, {QStringLiteral("1234"), QStringLiteral("5678")});
    }

    /// Prints a card with a formula on every track and a text further down. @return its words
    std::vector<PdfWord> Printed(std::int32_t printerType)
    {
        BeginLayout(Session, QStringLiteral("Card"), printerType);
        LayoutParamsRecord& params = Session.CurrentParams;
        params.Track1 = params.Track2 = params.Track3 = QStringLiteral("DAT1~SEP~DAT2");
        AddText(Session, QStringLiteral("Anna"), {.Top = 3000});
        SavePage(Session);
        PrintCard(Session);
        return WordsOfPdf(Folder.filePath(QStringLiteral("Printed/card-000001.pdf")));
    }

    /// Points; a glyph's own bearing is less.
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

    QTemporaryDir Folder;
    TestOperator Operator;
    OnePdfPrinter Printers{Folder.filePath(QStringLiteral("Printed"))};
    vantrel::Session Session{Folder.path(), Operator, Printers};
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
