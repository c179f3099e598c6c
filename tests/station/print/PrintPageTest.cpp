#include "card/FittedFont.h"
#include "card/ObjectExtras.h"
#include "station/print/PrintCard.h"
#include "station/session/Session.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

// What one page sends to the printer, operation by operation.

namespace vantrel::test {
namespace {

class PrintPage : public ::testing::Test
{
protected:
    PrintPage()
    {
        Station.WithDatabase();
        BeginLayout(Session, QStringLiteral("Card"));
    }

    /// Saves the page, prints it and gives the operations of the one job.
    QStringList Printed()
    {
        SavePage(Session);
        Station.Printers.Operations.clear();
        PrintCard(Session);
        return Station.Printers.Operations;
    }

    TestSession Station;
    vantrel::Session& Session = Station.Session;
};

QStringList Between(const QStringList& operations, const QString& from, const QString& to)
{
    const qsizetype begin = operations.indexOf(from);
    const qsizetype end = operations.indexOf(to, begin);
    return operations.mid(begin, end - begin + 1);
}

TEST_F(PrintPage, BeginsWithABlankLineInArialAndEndsTheJob)
{
    AddText(Session, QStringLiteral("Hello"));
    const QStringList operations = Printed();
    const QStringList opening = {QStringLiteral("FontName = \"Arial\""),
                                 QStringLiteral("FontSize = 8.75"), QStringLiteral("Print(\" \")")};
    const qsizetype first = operations.indexOf(opening.constFirst());
    EXPECT_EQ(operations.mid(first, 3), opening);
    EXPECT_EQ(operations.count(QStringLiteral("EndDoc")), 1);
    EXPECT_EQ(operations.count(QStringLiteral("Print(\"Hello\")")), 1);
}

TEST_F(PrintPage, NamesTheJobByLayoutAndPage)
{
    AddText(Session, QStringLiteral("Hello"));
    EXPECT_TRUE(Printed().contains(QStringLiteral("JobTitle = \"Card - Page 1\"")));
}

TEST_F(PrintPage, KeepsAPercentSignAndADigitOfTheLayoutsName)
{
    BeginLayout(Session, QStringLiteral("%1 of %2 %L1 100%"));
    AddText(Session, QStringLiteral("Hello"));
    EXPECT_TRUE(Printed().contains(QStringLiteral("JobTitle = \"%1 of %2 %L1 100% - Page 1\"")));
}

TEST_F(PrintPage, SelectsTheFontAnewAndThenSetsItsValuesInAFixedOrder)
{
    CardObject& text = AddText(Session, QStringLiteral("Hello"));
    text.SetFont({QStringLiteral("Liberation Serif"), 12.5, true, false, true, false});
    text.ForeColor = 0x0000FF;
    const QStringList expected = {
        QStringLiteral("FontName = \"Font1\""),
        QStringLiteral("FontName = \"Liberation Serif\""),
        QStringLiteral("FontSize = 12.5"),
        QStringLiteral("FontBold = True"),
        QStringLiteral("FontStrikethrough = False"),
        QStringLiteral("FontUnderline = True"),
        QStringLiteral("FontItalic = False"),
        QStringLiteral("ForeColor = 255"),
        QStringLiteral("CurrentX = 200"),
        QStringLiteral("CurrentY = 200"),
        QStringLiteral("Print(\"Hello\")"),
    };
    EXPECT_EQ(Between(Printed(), expected.constFirst(), expected.constLast()), expected);
}

TEST_F(PrintPage, ATextThatShrinksIsPrintedInTheSizeThatFits)
{
    CardObject& text = AddText(Session, QStringLiteral("Bartholomew Featherstonehaugh"),
                               {.Height = 600, .Width = 2000});
    text.SetFont({.Name = QStringLiteral("Liberation Serif"), .Size = 20});
    EXPECT_TRUE(Printed().contains(QStringLiteral("FontSize = 20")));
    SetShrinkTo(*Session.Document.Find(Family::lbl_TEXT, 1), 5);
    const Font fitted = FittedFont(*Session.Document.Find(Family::lbl_TEXT, 1));
    ASSERT_LT(fitted.Size, 20);
    const QStringList operations = Printed();
    EXPECT_TRUE(operations.contains(QStringLiteral("FontSize = %1").arg(fitted.Size)));
    EXPECT_FALSE(operations.contains(QStringLiteral("FontSize = 20")));
}

struct AlignmentRow
{
    std::int16_t Alignment;
    const char* CurrentX;
};

class PrintAlignment : public PrintPage, public ::testing::WithParamInterface<AlignmentRow>
{};

TEST_P(PrintAlignment, PutsTheTextByItsOwnWidth)
{
    // Five characters are 500 twips wide on the recording printer, the object 1500.
    AddText(Session, QStringLiteral("Hello")).Alignment = GetParam().Alignment;
    EXPECT_TRUE(
        Printed().contains(QStringLiteral("CurrentX = ") + QLatin1StringView(GetParam().CurrentX)));
}

INSTANTIATE_TEST_SUITE_P(EveryAlignment, PrintAlignment,
                         ::testing::Values(AlignmentRow{0, "200"}, AlignmentRow{1, "1200"},
                                           AlignmentRow{2, "700"}, AlignmentRow{7, "700"}));

TEST_F(PrintPage, ACentredTextWiderThanItsObjectOverhangsOnBothSides)
{
    AddText(Session, QString(20, QLatin1Char('x'))).Alignment = 2;
    EXPECT_TRUE(Printed().contains(QStringLiteral("CurrentX = -50")));
}

TEST_F(PrintPage, ARightAlignedTextWiderThanItsObjectBeginsLeftOfIt)
{
    AddText(Session, QString(20, QLatin1Char('x'))).Alignment = 1;
    EXPECT_TRUE(Printed().contains(QStringLiteral("CurrentX = -300")));
}

TEST_F(PrintPage, AnEmptyFieldPrintsItsPlaceholderAsItStands)
{
    AddField(Session, 3);
    EXPECT_TRUE(Printed().contains(QStringLiteral("Print(\"Data Field 3\")")));
}

TEST_F(PrintPage, ObjectsPrintInTheOrderTheyWereMade)
{
    const QString path = Station.WritePng(QStringLiteral("logo.png"), 8, 4);
    AddText(Session, QStringLiteral("below"));
    AddImage(Session, path, {100, 200, 300, 400});
    AddText(Session, QStringLiteral("above"));
    Printed();
    EXPECT_EQ(Station.Printers.Only({QStringLiteral("Print("), QStringLiteral("PaintPicture")}),
              QStringList({QStringLiteral("Print(\" \")"), QStringLiteral("Print(\"below\")"),
                           QStringLiteral("PaintPicture(8 x 4 pixels, 200, 100, 400, 300)"),
                           QStringLiteral("Print(\"above\")")}));
}

TEST_F(PrintPage, TheBackImageIsStretchedOverThePageBeforeTheObjects)
{
    const QString path = Station.WritePng(QStringLiteral("back.png"), 16, 16);
    Session.CurrentParams.BackImg1Path = path;
    AddText(Session, QStringLiteral("text"));
    Printed();
    EXPECT_EQ(Station.Printers.Only({QStringLiteral("Print("), QStringLiteral("PaintPicture")}),
              QStringList({QStringLiteral("Print(\" \")"),
                           QStringLiteral("PaintPicture(16 x 16 pixels, 0, 0, 3060, 4860)"),
                           QStringLiteral("Print(\"text\")")}));
}

TEST_F(PrintPage, ACameraObjectPrintsItsPictureInMemory)
{
    QImage face(3, 5, QImage::Format_RGB32);
    face.fill(Qt::red);
    Session.CameraImage = Picture::FromImage(face);
    CardObject& text = AddText(Session, QStringLiteral("x"));
    text.Tag.clear();
    SavePage(Session);
    // The picture is set when the fields of the page are filled.
    {
        CardObject& camera = Session.Document.Add(Family::img_CAM);
        camera.Tag = Marker::Camera;
        camera.Width = 300;
        camera.Height = 500;
    }
    EXPECT_TRUE(Printed().contains(QStringLiteral("PaintPicture(3 x 5 pixels, 0, 0, 300, 500)")));
}

TEST_F(PrintPage, AnObjectThatIsNoCardContentIsNotPrintedAndNotRaised)
{
    AddText(Session, QStringLiteral("card"));
    CardObject& number = AddNumber(Session, 5);
    // A reload clears card content only, so the number stays on the form with its word.
    number.Tag = Marker::NotIncluded;
    const QStringList operations = Printed();
    EXPECT_TRUE(operations.contains(QStringLiteral("Print(\"card\")")));
    EXPECT_FALSE(operations.contains(QStringLiteral("Print(\"6\")")));
    CardObject* kept = Session.Document.Find(Family::lbl_AUTO, 1);
    ASSERT_NE(kept, nullptr);
    EXPECT_EQ(kept->DataField, QStringLiteral("5"));
    EXPECT_TRUE(StoredNumbers(Session, QStringLiteral("Card")).isEmpty());
}

} // namespace
} // namespace vantrel::test
