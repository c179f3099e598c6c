#include "card/PaintDocument.h"
#include "card/Grips.h"
#include "card/TextLeft.h"
#include "drawing/PageCanvas.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

constexpr double PixelsPerTwip = 0.05;
constexpr QRgb White = 0xFFFFFFFFU;
constexpr QRgb Red = 0xFFFF0000U;
constexpr QRgb Blue = 0xFF0000FFU;

QImage Painted(const vantrel::Session& session)
{
    QImage image(static_cast<int>(static_cast<double>(session.Document.Width) * PixelsPerTwip),
                 static_cast<int>(static_cast<double>(session.Document.Height) * PixelsPerTwip),
                 QImage::Format_RGB32);
    image.fill(White);
    const auto canvas = PageCanvas::OnImage(image, PixelsPerTwip);
    PaintDocument(session.Document, session.CurrentParams, *canvas);
    canvas->Finish();
    return image;
}

QRgb At(const QImage& image, int xTwips, int yTwips)
{
    return image.pixel(xTwips / 20, yTwips / 20);
}

int FirstColumnWithInk(const QImage& image)
{
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixel(x, y) != White)
                return x;
        }
    }
    return -1;
}

void AddPicture(TestSession& test, const QString& name, QRgb color, const TextAt& at)
{
    AddImage(test.Session, name, at).Picture = LoadPicture(test.WritePng(name, 3, 3, color));
}

TEST(PaintDocument, StretchesTheBackImageOverTheWholeForm)
{
    TestSession test;
    EnsureDocument(test.Session);
    test.Session.CurrentParams.BackImg1Picture =
        LoadPicture(test.WritePng(QStringLiteral("back.png"), 2, 2, Red));
    const QImage image = Painted(test.Session);
    EXPECT_EQ(At(image, 40, 40), Red);
    EXPECT_EQ(At(image, 3000, 4800), Red);
}

TEST(PaintDocument, NeverPaintsTheSecondBackImage)
{
    TestSession test;
    EnsureDocument(test.Session);
    test.Session.CurrentParams.BackImg2Picture =
        LoadPicture(test.WritePng(QStringLiteral("back.png"), 2, 2, Red));
    EXPECT_EQ(FirstColumnWithInk(Painted(test.Session)), -1);
}

TEST(PaintDocument, PaintsLaterObjectsOverEarlierOnes)
{
    TestSession test;
    AddPicture(test, QStringLiteral("red.png"), Red, {200, 200, 1000, 1000});
    AddPicture(test, QStringLiteral("blue.png"), Blue, {200, 200, 500, 500});
    const QImage image = Painted(test.Session);
    EXPECT_EQ(At(image, 400, 400), Blue);
    EXPECT_EQ(At(image, 1000, 1000), Red);
    EXPECT_EQ(At(image, 1300, 1300), White);
}

TEST(PaintDocument, LeavesTemplatesGripsAndWhatIsNotIncludedUnpainted)
{
    TestSession test;
    EnsureDocument(test.Session);
    ShowHandles(test.Session.Document, true);
    AddPicture(test, QStringLiteral("red.png"), Red, {200, 200, 1000, 1000});
    test.Session.Document.Objects().back()->Tag = Marker::NotIncluded;
    EXPECT_EQ(FirstColumnWithInk(Painted(test.Session)), -1);
}

TEST(PaintDocument, PassesOverAnImageWithoutAPicture)
{
    TestSession test;
    AddImage(test.Session, QStringLiteral("gone.png"), {200, 200, 1000, 1000});
    EXPECT_EQ(FirstColumnWithInk(Painted(test.Session)), -1);
}

TEST(PaintDocument, PutsATextWhereItsAlignmentSays)
{
    constexpr std::int16_t alignments[] = {0, 1, 2};
    for (const std::int16_t alignment : alignments) {
        TestSession test;
        CardObject& text = AddText(test.Session, QStringLiteral("HIHI"), {400, 600, 300, 2000});
        text.Alignment = alignment;
        const double width = PageCanvas::TextWidth(text.Caption(), text.Font());
        const double left = TextLeft(text, width);
        const QImage image = Painted(test.Session);
        EXPECT_NEAR(FirstColumnWithInk(image), left * PixelsPerTwip, 3.0) << alignment;
    }
}

TEST(TextLeft, FollowsTheAlignmentAndMayLieLeftOfTheObject)
{
    CardObject label(Family::lbl_TEXT, 1);
    label.Left = 300;
    label.Width = 1000;
    EXPECT_EQ(TextLeft(label, 400), 300.0F);
    label.Alignment = 1;
    EXPECT_EQ(TextLeft(label, 400), 900.0F);
    EXPECT_EQ(TextLeft(label, 1500), -200.0F);
    label.Alignment = 2;
    EXPECT_EQ(TextLeft(label, 400), 600.0F);
    EXPECT_EQ(TextLeft(label, 1500), 50.0F);
    label.Alignment = 7;
    EXPECT_EQ(TextLeft(label, 400), 600.0F);
}

} // namespace

} // namespace vantrel::test
