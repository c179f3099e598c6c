#include "drawing/CodeLayout.h"
#include "drawing/CodePattern.h"
#include "station/print/PrintCard.h"
#include "station/print/RealStation.h"
#include "support/CodeReading.h"
#include "support/CodeSamples.h"
#include "support/PdfReading.h"
#include "support/WarningGuard.h"
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

// Bar codes on cards of the built-in printer, rendered at 300 dots to the inch and read back by
// programs that know nothing of the station.

namespace vantrel::test {
namespace {

constexpr int DotsPerInch = 300;
/// In twips.
constexpr double Dot = 4.8;
/// A card, in twips, upright.
constexpr int CardWidth = 3060;
constexpr int CardHeight = 4860;
/// Dots around a code that is cut out of its card.
constexpr int Margin = 12;

int DotsOf(double twips)
{
    return static_cast<int>(std::lround(twips * DotsPerInch / 1440));
}

QString FontOf(CodeKind kind)
{
    return QStringLiteral("Barcode ") + RowOf(kind).Name;
}

/// The smallest box that a kind's code fits into wherever it stands, in twips: it may begin and end
/// within a dot.
TextAt SmallestBox(CodeKind kind, const QString& text)
{
    const CodeKindRow& row = RowOf(kind);
    const auto pattern = CodePatternOf(kind, text, 1.5);
    const double module = SmallestModule;
    const int columns = row.QuietLeft + pattern->Width + row.QuietRight;
    const int rows = pattern->Height + 2 * row.QuietAboveAndBelow;
    const double height = row.IsLinear ? LowestBars : rows * module;
    return {.Top = 0,
            .Left = 0,
            .Height = static_cast<int>(std::ceil(height + 2 * Dot)),
            .Width = static_cast<int>(std::ceil(columns * module + 2 * Dot))};
}

bool IsAscii(const QString& text)
{
    return std::ranges::all_of(text, [](QChar character) { return character.unicode() < 0x80; });
}

/// What a reader tells of a text in this kind of code.
void ExpectRead(CodeKind kind, const QString& text, const QImage& picture)
{
    const QStringList zxing = CodesByZxing(picture);
    // Whether it tells the start and stop letters depends on its version.
    const bool leavesLettersOut =
        kind == CodeKind::Codabar && zxing == QStringList(text.mid(1).chopped(1));
    EXPECT_TRUE(zxing == QStringList(text) || leavesLettersOut)
        << RowOf(kind).Name.data() << ": " << qPrintable(zxing.join(QLatin1Char('|')));
    const QString zbar = kind == CodeKind::UpcA ? QStringLiteral("0") + text : text;
    if (kind == CodeKind::QrCode || RowOf(kind).IsLinear) {
        EXPECT_EQ(CodesByZbar(picture), QStringList(zbar)) << RowOf(kind).Name.data();
    } else if (kind == CodeKind::DataMatrix) {
        EXPECT_EQ(CodesByDmtx(picture), QStringList(text));
    } else if (kind == CodeKind::Pdf417 || IsAscii(text)) {
        EXPECT_EQ(CodesByScript(picture), QStringList(text)) << RowOf(kind).Name.data();
    }
}

class CodesOnPdf : public ::testing::Test
{
protected:
    /// Adds a static text that is a code.
    CardObject& AddCode(CodeKind kind, const QString& text, const TextAt& at)
    {
        CardObject& code = AddText(Session, text, at);
        code.SetFont({FontOf(kind), 10});
        return code;
    }

    /// Saves the page and prints it. @return the path of the card, which holds no picture
    QString Printed()
    {
        SavePage(Session);
        PrintCard(Session);
        QString path = Station.CardPath(++m_cards);
        EXPECT_TRUE(PictureObjectsOfPdf(path).isEmpty());
        return path;
    }

    /// The dots of a box and a little of what is around it, white beyond the card.
    static QImage Cut(const QImage& card, const TextAt& at)
    {
        const QRect box(DotsOf(at.Left) - Margin, DotsOf(at.Top) - Margin,
                        DotsOf(at.Width) + 2 * Margin, DotsOf(at.Height) + 2 * Margin);
        QImage cut = card.copy(box).convertToFormat(QImage::Format_RGB32);
        for (int y = 0; y < cut.height(); ++y) {
            for (int x = 0; x < cut.width(); ++x) {
                if (!card.rect().contains(x + box.x(), y + box.y()))
                    cut.setPixel(x, y, qRgb(255, 255, 255));
            }
        }
        return cut;
    }

    RealStation Station{QStringLiteral("Vantrel PDF")};
    vantrel::Session& Session = Station.Session;

private:
    int m_cards = 0;
};

class EachCodeOnPdf : public CodesOnPdf, public ::testing::WithParamInterface<int>
{
protected:
    CodeKind Kind = static_cast<CodeKind>(GetParam());
    QString Text = SampleTextOf(Kind);
};

INSTANTIATE_TEST_SUITE_P(CodesOnPdf, EachCodeOnPdf, ::testing::Range(0, CodeKindCount));

TEST_P(EachCodeOnPdf, IsReadInTheMiddleOfACard)
{
    const TextAt at{.Top = 600, .Left = 130, .Height = 1500, .Width = 2800};
    AddCode(Kind, Text, at);
    const QString card = Printed();
    ExpectValidPdf(card);
    ExpectRead(Kind, Text, Cut(DotsOfPdf(card, DotsPerInch), at));
}

TEST_P(EachCodeOnPdf, IsReadAtItsSmallestSizeInEachCornerOfTheCard)
{
    const TextAt smallest = SmallestBox(Kind, Text);
    ASSERT_LE(smallest.Width, CardWidth);
    for (const int left : {0, CardWidth - smallest.Width}) {
        for (const int top : {0, CardHeight - smallest.Height}) {
            TextAt at = smallest;
            at.Left = left;
            at.Top = top;
            AddCode(Kind, Text, at);
            const QImage card = DotsOfPdf(Printed(), DotsPerInch);
            ExpectRead(Kind, Text, Cut(card, at));
            Session.Document.RemoveContent();
        }
    }
}

TEST_P(EachCodeOnPdf, ASlightlySmallerBoxSaysSoInstead)
{
    TextAt at = SmallestBox(Kind, Text);
    at.Width -= 20;
    at.Height -= 20;
    AddCode(Kind, Text, at);
    AnnounceWarning(QStringLiteral("A card of Card: Static Text: ") + RowOf(Kind).Name +
                    QStringLiteral(": a larger box is wanted"));
    const QString card = Printed();
    EXPECT_EQ(TextsOfPages(card),
              QStringList(RowOf(Kind).Name + QStringLiteral(": a larger box is wanted")));
}

TEST_F(CodesOnPdf, FieldsAndNumbersAreCodesToo)
{
    const TextAt fieldAt{.Top = 200, .Left = 200, .Height = 900, .Width = 900};
    const TextAt numberAt{.Top = 1500, .Left = 100, .Height = 500, .Width = 2800};
    CardObject& field = AddField(Session, 1, fieldAt);
    field.SetFont({FontOf(CodeKind::QrCode), 10});
    field.DataMember = QStringLiteral("MOD10");
    field.ToolTipText = QStringLiteral("A\rZ");
    CardObject& number = AddNumber(Session, 7, numberAt);
    number.SetFont({FontOf(CodeKind::Code128), 10});
    SetRecord(Session, {QStringLiteral("12345")});
    for (const char* raised : {"8", "9"}) {
        const QImage card = DotsOfPdf(Printed(), DotsPerInch);
        EXPECT_EQ(CodesByZxing(Cut(card, fieldAt)), QStringList(QStringLiteral("A123457Z")));
        EXPECT_EQ(CodesByZbar(Cut(card, numberAt)), QStringList(QLatin1StringView(raised)));
    }
}

TEST_F(CodesOnPdf, LettersOfOtherScriptsAreRead)
{
    const QString text = QString::fromUtf8("Zoë Łukasz 東京");
    const TextAt at{.Top = 600, .Left = 600, .Height = 1500, .Width = 1800};
    for (const CodeKind kind :
         {CodeKind::QrCode, CodeKind::DataMatrix, CodeKind::Pdf417, CodeKind::AztecCode}) {
        AddCode(kind, text, at);
        ExpectRead(kind, text, Cut(DotsOfPdf(Printed(), DotsPerInch), at));
        Session.Document.RemoveContent();
    }
}

TEST_F(CodesOnPdf, AWrongCaptionPrintsWhyAndTheRestOfTheCard)
{
    AddField(Session, 1, {.Top = 200, .Left = 200, .Height = 900, .Width = 2000})
        .SetFont({FontOf(CodeKind::Ean13), 10});
    AddText(Session, QStringLiteral("member"), {.Top = 3000});
    SetRecord(Session, {QStringLiteral("4006381333932")});
    AnnounceWarning(
        QStringLiteral("A card of Card: Data Field 1: EAN-13: the check digit is wrong"));
    EXPECT_EQ(TextsOfPages(Printed()),
              QStringList(QStringLiteral("EAN-13: the check digit is wrong member")));
}

TEST_F(CodesOnPdf, AnEmptyCaptionPrintsNothing)
{
    CardObject& field =
        AddField(Session, 1, {.Top = 200, .Left = 200, .Height = 900, .Width = 900});
    field.SetFont({FontOf(CodeKind::QrCode), 10});
    // The filter leaves nothing of the text that stands for a value that is missing.
    field.Tag = QStringLiteral("Data Field 1x");
    SetRecord(Session, {QStringLiteral("x")});
    const QString card = Printed();
    const QImage page = ImageOfPdf(card);
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x)
            ASSERT_EQ(qGray(page.pixel(x, y)), 255);
    }
}

TEST_F(CodesOnPdf, AShapeFillsItsBoxWithTheTextColour)
{
    CardObject& band = AddText(Session, QStringLiteral("band"),
                               {.Top = 400, .Left = 200, .Height = 300, .Width = 2400});
    band.SetFont({QStringLiteral("Shape Rectangle"), 10});
    band.ForeColor = 0x00FF00;
    const QString card = Printed();
    EXPECT_EQ(TextsOfPages(card), QStringList(QString()));
    const QImage page = ImageOfPdf(card, 4);
    EXPECT_EQ(page.pixel(41, 81), qRgb(0, 255, 0));
    EXPECT_EQ(page.pixel(518, 138), qRgb(0, 255, 0));
    EXPECT_EQ(page.pixel(38, 81), qRgb(255, 255, 255));
    EXPECT_EQ(page.pixel(41, 142), qRgb(255, 255, 255));
}

} // namespace
} // namespace vantrel::test
