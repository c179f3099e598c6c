#include "StoredRows.h"
#include "station/layout/DrawObjects.h"
#include "station/layout/LoadLayout.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

class RowToObject : public ::testing::Test
{
protected:
    RowToObject()
    {
        Test.WithDatabase();
        Session.CurrentParams.PageIndex = 1;
    }

    /// Stores one row of the given columns and values and loads its page.
    void LoadRow(const QString& columns, const QString& values)
    {
        Execute(Session, QStringLiteral("INSERT INTO Controls (LayoutName, Page, %1) VALUES "
                                        "('Staff', 1, %2)")
                             .arg(columns, values));
        ASSERT_TRUE(LoadLayout(Session, QStringLiteral("Staff")));
    }

    void LoadLabel(const QString& columns, const QString& values)
    {
        LoadRow(QStringLiteral("Control_Type, ") + columns,
                QStringLiteral("'VB.Label', ") + values);
    }

    const CardObject& Only(Family family) const
    {
        EXPECT_EQ(Session.Document.HighestIndex(family), 1);
        return *Session.Document.Find(family, 1);
    }

    TestSession Test;
    vantrel::Session& Session = Test.Session;
};

TEST_F(RowToObject, DataFieldRowFillsEverySlot)
{
    LoadLabel(
        QStringLiteral("C_Param_1, C_Param_2, C_Param_3, C_Alignment, C_Top, C_Left, C_Width, "
                       "C_Height, C_ForeColor, C_BackColor, C_Prefix, C_Suffix, C_UseMod10, "
                       "C_UseCodaBar, C_UseEBT"),
        QStringLiteral("'BDF', '-x', '12', 2, 10, 20, 30, 40, 255, 65280, 'Mr ', '!', 0, 1, "
                       "0"));
    const CardObject& object = Only(Family::lbl_DATA);
    EXPECT_EQ(object.LinkItem, QStringLiteral("LXV01BDF"));
    EXPECT_EQ(object.Tag, QStringLiteral("-x"));
    EXPECT_EQ(object.DataField, QStringLiteral("12"));
    EXPECT_EQ(object.Caption(), QStringLiteral("Data Field 12"));
    EXPECT_EQ(object.Alignment, 2);
    EXPECT_EQ(object.Top, 10.0F);
    EXPECT_EQ(object.Left, 20.0F);
    EXPECT_EQ(object.Width, 30.0F);
    EXPECT_EQ(object.Height, 40.0F);
    EXPECT_EQ(object.ForeColor, 255);
    EXPECT_EQ(object.BackColor, 65280);
    EXPECT_EQ(object.ToolTipText, QStringLiteral("Mr \r!"));
    EXPECT_EQ(object.DataMember, QStringLiteral("CODABAR"));
    EXPECT_EQ(object.BorderStyle, 1);
    EXPECT_EQ(object.Appearance, 0);
    EXPECT_EQ(object.BackStyle, 0);
    EXPECT_TRUE(object.Visible);
}

TEST_F(RowToObject, ADataFieldRowOfNullsIsLeftAsCreationMadeIt)
{
    LoadLabel(QStringLiteral("C_Param_1"), QStringLiteral("'BDF'"));
    const CardObject& object = Only(Family::lbl_DATA);
    EXPECT_TRUE(object.Tag.isEmpty());
    EXPECT_EQ(object.DataField, QStringLiteral("0"));
    EXPECT_EQ(object.Caption(), QStringLiteral("Data Field 0"));
    EXPECT_EQ(object.Alignment, 0);
    EXPECT_EQ(object.Top, 0.0F);
    EXPECT_EQ(object.Width, 0.0F);
    EXPECT_EQ(object.ForeColor, ColorBlack);
    EXPECT_EQ(object.BackColor, ColorWhite);
    EXPECT_EQ(object.ToolTipText, QStringLiteral("\r"));
    EXPECT_TRUE(object.DataMember.isEmpty());
    EXPECT_EQ(object.Font(), Font());
}

TEST_F(RowToObject, AFieldIndexThatIsNoNumberIsZero)
{
    LoadLabel(QStringLiteral("C_Param_1, C_Param_3"), QStringLiteral("'BDF', 'first'"));
    EXPECT_EQ(Only(Family::lbl_DATA).DataField, QStringLiteral("0"));
}

TEST_F(RowToObject, OfTwoCheckDigitFlagsTheLaterWins)
{
    LoadLabel(QStringLiteral("C_Param_1, C_UseMod10, C_UseCodaBar, C_UseEBT"),
              QStringLiteral("'BDF', 1, 0, -1"));
    EXPECT_EQ(Only(Family::lbl_DATA).DataMember, QStringLiteral("EBT"));
}

TEST_F(RowToObject, AutoNumberRowReadsItsNumberAndCheckDigitAndNoFilterPrefixOrSuffix)
{
    LoadLabel(QStringLiteral("C_Param_1, C_Param_2, C_Value, C_Alignment, C_Prefix, C_Suffix, "
                             "C_UseMod10, C_Width"),
              QStringLiteral("'AUTO', '4', '41', 1, 'a', 'b', 1, 2000"));
    const CardObject& object = Only(Family::lbl_AUTO);
    EXPECT_EQ(object.DataField, QStringLiteral("41"));
    EXPECT_EQ(object.Caption(), QStringLiteral("41"));
    EXPECT_EQ(object.LinkItem, QStringLiteral("AUTO"));
    EXPECT_EQ(object.Alignment, 1);
    EXPECT_EQ(object.DataMember, QStringLiteral("MOD10"));
    EXPECT_TRUE(object.Tag.isEmpty());
    EXPECT_TRUE(object.ToolTipText.isEmpty());
}

TEST_F(RowToObject, ANumberThatCannotBeReadIsZero)
{
    LoadLabel(QStringLiteral("C_Param_1, C_Value"), QStringLiteral("'AUTO', 'many'"));
    EXPECT_EQ(Only(Family::lbl_AUTO).DataField, QStringLiteral("0"));
}

TEST_F(RowToObject, ATextRowOfAnyOtherKindIsStaticText)
{
    const char* const kinds[] = {"'TXT'",   "''",      "NULL",  "'bdf'", "'CVIEW'",      "'LTS'",
                                 "'NVIEW'", "'SVIEW'", "'RDF'", "'LBC'", "'_TimeStamp_'"};
    for (const char* kind : kinds) {
        Execute(Session, QStringLiteral("DELETE FROM Controls"));
        LoadLabel(QStringLiteral("C_Param_1, C_Value"),
                  QLatin1StringView(kind) + QStringLiteral(", 'Hello'"));
        EXPECT_EQ(Only(Family::lbl_TEXT).Caption(), QStringLiteral("Hello")) << kind;
        EXPECT_EQ(Only(Family::lbl_TEXT).LinkItem, QStringLiteral("LXV01")) << kind;
    }
}

TEST_F(RowToObject, AStaticTextWithoutATextIsNamedByItsIndex)
{
    LoadLabel(QStringLiteral("C_Param_1"), QStringLiteral("'TXT'"));
    EXPECT_EQ(Only(Family::lbl_TEXT).Caption(), QStringLiteral("Static Text 1"));
}

TEST_F(RowToObject, FontColumnsApplyAndNullOnesLeaveTheFreshFont)
{
    LoadLabel(QStringLiteral("C_FontName, C_FontSize, C_FontBold, C_FontItalic, C_FontUnderline, "
                             "C_FontStrikethrough"),
              QStringLiteral("'Serif', 8.2512, 1, 0, 1, 1"));
    const Font expected{QStringLiteral("Serif"), 8.2512, true, false, true, true};
    EXPECT_EQ(Only(Family::lbl_TEXT).Font(), expected);
    Execute(Session, QStringLiteral("UPDATE Controls SET C_FontName = NULL, C_FontBold = NULL"));
    LoadLayout(Session, QStringLiteral("Staff"));
    const Font partly{Font().Name, 8.2512, false, false, true, true};
    EXPECT_EQ(Only(Family::lbl_TEXT).Font(), partly);
}

TEST_F(RowToObject, StoredLengthsRoundHalfToEven)
{
    LoadLabel(QStringLiteral("C_Top, C_Left, C_Width, C_Height"),
              QStringLiteral("10.5, 11.5, 99.7, -2.5"));
    const CardObject& object = Only(Family::lbl_TEXT);
    EXPECT_EQ(object.Top, 10.0F);
    EXPECT_EQ(object.Left, 12.0F);
    EXPECT_EQ(object.Width, 100.0F);
    EXPECT_EQ(object.Height, -2.0F);
}

TEST_F(RowToObject, ImageRowLoadsItsFile)
{
    const QString path = Test.WritePng(QStringLiteral("photo.png"), 3, 4);
    LoadRow(QStringLiteral("Control_Type, C_ImagePath, C_Top, C_Left, C_Width, C_Height"),
            QStringLiteral("'VB.Image', '%1', 1, 2, 3, 4").arg(path));
    const CardObject& object = Only(Family::img_LXV);
    EXPECT_EQ(object.Tag, path);
    EXPECT_TRUE(object.Picture.HasHandle());
    EXPECT_TRUE(object.Stretch);
    EXPECT_EQ(object.Top, 1.0F);
    EXPECT_EQ(object.Height, 4.0F);
}

TEST_F(RowToObject, AnImageThatCannotBeReadIsMadeEmptyAndKeepsItsPath)
{
    LoadRow(QStringLiteral("Control_Type, C_ImagePath"),
            QStringLiteral("'VB.Image', '/gone/photo.png'"));
    const CardObject& object = Only(Family::img_LXV);
    EXPECT_EQ(object.Tag, QStringLiteral("/gone/photo.png"));
    EXPECT_FALSE(object.Picture.HasHandle());
    EXPECT_TRUE(object.Visible);
}

TEST_F(RowToObject, CameraRowShowsThePlaceholder)
{
    LoadRow(QStringLiteral("Control_Type, C_Param_1, C_Top, C_Height, C_Width"),
            QStringLiteral("'VB.Image', 'CVIEW', 9, 2000, 1500"));
    const CardObject& object = Only(Family::img_CAM);
    EXPECT_EQ(object.Tag, QStringLiteral("CVIEW"));
    EXPECT_EQ(object.Picture, CameraPlaceholder());
    EXPECT_EQ(object.Top, 9.0F);
    EXPECT_EQ(Session.Document.CamHeight, 2000);
    EXPECT_EQ(Session.Document.CamWidth, 1500);
}

TEST_F(RowToObject, ARowOfAnotherTypeMakesNothing)
{
    const char* const types[] = {"'VB.Line'", "'vb.label'", "''", "NULL"};
    for (const char* type : types) {
        Execute(Session, QStringLiteral("DELETE FROM Controls"));
        LoadRow(QStringLiteral("Control_Type"), QLatin1StringView(type));
        EXPECT_EQ(Session.Document.Objects().size(), 13U) << type;
    }
}

TEST_F(RowToObject, WithADefaultFontTheFontColumnsAreIgnoredAndTheOverrideIsSaved)
{
    LoadLabel(QStringLiteral("C_Value, C_FontName, C_FontSize"),
              QStringLiteral("'Hello', 'Serif', 20"));
    Font chosen;
    chosen.Name = QStringLiteral("Monospace");
    chosen.Size = 11;
    Session.Document.DefaultFont = chosen;
    LoadLayout(Session, QStringLiteral("Staff"));
    EXPECT_EQ(Only(Family::lbl_TEXT).Font(), chosen);
    SavePage(Session);
    const QList<StoredRow> rows = StoredPage(Session, QStringLiteral("Staff"), 1);
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows[0][QStringLiteral("C_FontName")], QStringLiteral("Monospace"));
    EXPECT_EQ(rows[0][QStringLiteral("C_FontSize")].toDouble(), 11.0);
}

} // namespace

} // namespace vantrel::test
