#include "base/Twips.h"
#include "station/print/PrintCard.h"
#include "station/print/RealStation.h"
#include "support/PdfReading.h"
#include <QColor>
#include <QImage>
#include <gtest/gtest.h>

// Cards printed to the built-in printer, read back with poppler.

namespace vantrel::test {
namespace {

constexpr double PointTolerance = 0.1;
constexpr int PixelsPerPoint = 4;

class CardOnPdf : public ::testing::Test
{
protected:
    QString PictureFile(const QString& name, QColor color) const
    {
        QImage image(40, 20, QImage::Format_RGB32);
        image.fill(color);
        QString path = Session.PathInFolder(name);
        EXPECT_TRUE(image.save(path));
        return path;
    }

    /// Saves the page, prints the card and gives the path of its file.
    QString Printed()
    {
        SavePage(Session);
        PrintCard(Session);
        return m_station.CardPath(1);
    }

private:
    RealStation m_station{QStringLiteral("Vantrel PDF")};

protected:
    vantrel::Session& Session = m_station.Session;
};

QColor PixelAt(const QImage& page, double xTwips, double yTwips)
{
    return page.pixelColor(static_cast<int>(PointsOfTwips(xTwips) * PixelsPerPoint),
                           static_cast<int>(PointsOfTwips(yTwips) * PixelsPerPoint));
}

TEST_F(CardOnPdf, ThePageIsACardInThePagesOrientation)
{
    AddText(Session, QStringLiteral("x"));
    EXPECT_EQ(PageSizeOfPdf(Printed()), QStringLiteral("153 x 243"));
}

TEST_F(CardOnPdf, ALandscapePageIsTurned)
{
    Session.CurrentParams.PrinterOrientation = OrientationLandscape;
    AddText(Session, QStringLiteral("x"));
    EXPECT_EQ(PageSizeOfPdf(Printed()), QStringLiteral("243 x 153"));
}

TEST_F(CardOnPdf, TextsStandWhereTheirAlignmentPutsThem)
{
    const Font font{QStringLiteral("Liberation Sans"), 10};
    const QStringList texts = {QStringLiteral("Left"), QStringLiteral("Right"),
                               QStringLiteral("Centre")};
    for (int i = 0; i < 3; ++i) {
        CardObject& text = AddText(Session, texts[i], {400 + 600 * i, 300, 300, 2400});
        text.SetFont(font);
        text.Alignment = static_cast<std::int16_t>(i);
    }
    const QString path = Printed();
    EXPECT_NEAR(WordOfPdf(path, texts[0]).XMin, PointsOfTwips(300), PointTolerance);
    EXPECT_NEAR(WordOfPdf(path, texts[1]).XMax, PointsOfTwips(300 + 2400), PointTolerance);
    const PdfWord centre = WordOfPdf(path, texts[2]);
    EXPECT_NEAR((centre.XMin + centre.XMax) / 2, PointsOfTwips(300 + 1200), PointTolerance);
    // Lines that are 600 twips apart on the layout are so on the card.
    EXPECT_NEAR(WordOfPdf(path, texts[1]).YMin - WordOfPdf(path, texts[0]).YMin, PointsOfTwips(600),
                PointTolerance);
}

TEST_F(CardOnPdf, ValuesOfTheRecordArePrintedWithTheirPrefixAndCheckDigit)
{
    CardObject& field = AddField(Session, 1, {400, 300, 300, 2400});
    field.DataMember = QStringLiteral("MOD10");
    field.ToolTipText = QStringLiteral("A\rZ");
    SetRecord(Session, {QStringLiteral("12345")});
    const QString path = Printed();
    EXPECT_EQ(WordOfPdf(path, QStringLiteral("A123457Z")).Text, QStringLiteral("A123457Z"));
}

TEST_F(CardOnPdf, FontsAreEmbeddedAsTheObjectsNameThem)
{
    AddText(Session, QStringLiteral("one")).SetFont({QStringLiteral("Liberation Serif"), 12, true});
    AddText(Session, QStringLiteral("two"), {900, 200, 300, 1500})
        .SetFont({QStringLiteral("Liberation Mono"), 9, false, true});
    const QString fonts = OutputOf(QStringLiteral("pdffonts"), {Printed()});
    EXPECT_TRUE(fonts.contains(QStringLiteral("LiberationSerif-Bold"))) << fonts.toStdString();
    EXPECT_TRUE(fonts.contains(QStringLiteral("LiberationMono-Italic"))) << fonts.toStdString();
}

TEST_F(CardOnPdf, TextHasItsColour)
{
    // A full block, so that a pixel in its middle is ink.
    CardObject& text = AddText(Session, QString(QChar(0x2588)), {1000, 1000, 300, 1500});
    text.SetFont({QStringLiteral("DejaVu Sans"), 40});
    text.ForeColor = 0x0000C8;
    const QImage page = ImageOfPdf(Printed(), PixelsPerPoint);
    EXPECT_EQ(PixelAt(page, 1200, 1400), QColor(200, 0, 0));
}

TEST_F(CardOnPdf, PicturesFillTheirBoxesOverTheBackImage)
{
    Session.CurrentParams.BackImg1Path = PictureFile(QStringLiteral("back.png"), Qt::yellow);
    AddImage(Session, PictureFile(QStringLiteral("lower.png"), Qt::blue), {1000, 1000, 800, 1000});
    AddImage(Session, PictureFile(QStringLiteral("upper.png"), Qt::red), {1400, 1500, 800, 1000});
    const QImage page = ImageOfPdf(Printed(), PixelsPerPoint);
    EXPECT_EQ(PixelAt(page, 100, 100), QColor(Qt::yellow));
    EXPECT_EQ(PixelAt(page, 3000, 4800), QColor(Qt::yellow));
    EXPECT_EQ(PixelAt(page, 1060, 1060), QColor(Qt::blue));
    EXPECT_EQ(PixelAt(page, 960, 1060), QColor(Qt::yellow));
    // Where they meet, the later object lies on top.
    EXPECT_EQ(PixelAt(page, 1700, 1600), QColor(Qt::red));
    EXPECT_EQ(PixelAt(page, 2440, 2140), QColor(Qt::red));
}

} // namespace
} // namespace vantrel::test
