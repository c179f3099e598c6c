#include "StoredRows.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "station/layout/LoadLayout.h"
#include "support/Layouts.h"
#include <QFile>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

const QString Staff = QStringLiteral("Staff");

/// How an object is stored, and which object the stored row gives when it is loaded.
class Agreement : public ::testing::Test
{
protected:
    Agreement()
    {
        Test.WithDatabase();
        BeginLayout(Session, Staff);
    }

    /// Saves the page. @return the row of its last object
    StoredRow Save()
    {
        SavePage(Session);
        const QList<StoredRow> rows = StoredPage(Session, Staff, 1);
        EXPECT_FALSE(rows.isEmpty());
        return rows.isEmpty() ? StoredRow() : rows.last();
    }

    const CardObject& Reload(Family family)
    {
        LoadLayout(Session, Staff);
        const CardObject* object = Session.Document.Find(family, 1);
        if (object == nullptr)
            throw std::runtime_error("the object did not come back");
        return *object;
    }

    void ExpectNull(const StoredRow& row, const QStringList& columns)
    {
        for (const QString& column : columns) {
            EXPECT_TRUE(row.contains(column)) << column.toStdString();
            EXPECT_TRUE(row[column].isNull()) << column.toStdString();
        }
    }

    void ExpectFlags(const StoredRow& row, bool mod10, bool codabar, bool ebt)
    {
        for (const auto& [column, value] :
             {std::pair{"C_UseMod10", mod10}, std::pair{"C_UseCodaBar", codabar},
              std::pair{"C_UseEBT", ebt}}) {
            const QVariant stored = row[QLatin1StringView(column)];
            EXPECT_FALSE(stored.isNull()) << column;
            EXPECT_EQ(stored.toBool(), value) << column;
        }
    }

    TestSession Test;
    vantrel::Session& Session = Test.Session;
};

TEST_F(Agreement, DataFieldRow)
{
    CardObject& field = AddField(Session, 3, {10, 20, 30, 40});
    field.Tag = QStringLiteral("-");
    field.DataMember = QStringLiteral("EBT");
    field.ToolTipText = QStringLiteral("Mr \rJr");
    field.Alignment = 2;
    field.ForeColor = 0x112233;
    field.BackColor = 0x445566;
    field.SetFont({QStringLiteral("Serif"), 8.25125, true, false, true, false});
    field.SetCaption(QStringLiteral("Jones"));
    const StoredRow row = Save();
    EXPECT_EQ(row[QStringLiteral("LayoutName")], Staff);
    EXPECT_EQ(row[QStringLiteral("Page")], 1);
    EXPECT_EQ(row[QStringLiteral("Control_Type")], QStringLiteral("VB.Label"));
    EXPECT_EQ(row[QStringLiteral("C_Param_1")], QStringLiteral("BDF"));
    EXPECT_EQ(row[QStringLiteral("C_Param_2")], QStringLiteral("-"));
    EXPECT_EQ(row[QStringLiteral("C_Param_3")], QStringLiteral("3"));
    EXPECT_EQ(row[QStringLiteral("C_Prefix")], QStringLiteral("Mr "));
    EXPECT_EQ(row[QStringLiteral("C_Suffix")], QStringLiteral("Jr"));
    EXPECT_EQ(row[QStringLiteral("C_Alignment")], 2);
    EXPECT_EQ(row[QStringLiteral("C_Top")].toDouble(), 10.0);
    EXPECT_EQ(row[QStringLiteral("C_Left")].toDouble(), 20.0);
    EXPECT_EQ(row[QStringLiteral("C_Height")].toDouble(), 30.0);
    EXPECT_EQ(row[QStringLiteral("C_Width")].toDouble(), 40.0);
    EXPECT_EQ(row[QStringLiteral("C_FontName")], QStringLiteral("Serif"));
    EXPECT_EQ(row[QStringLiteral("C_FontSize")].toDouble(), 8.2512);
    EXPECT_TRUE(row[QStringLiteral("C_FontBold")].toBool());
    EXPECT_FALSE(row[QStringLiteral("C_FontItalic")].toBool());
    EXPECT_TRUE(row[QStringLiteral("C_FontUnderline")].toBool());
    EXPECT_FALSE(row[QStringLiteral("C_FontStrikethrough")].toBool());
    EXPECT_EQ(row[QStringLiteral("C_ForeColor")], 0x112233);
    EXPECT_EQ(row[QStringLiteral("C_BackColor")], 0x445566);
    ExpectFlags(row, false, false, true);
    ExpectNull(row, {QStringLiteral("C_Value"), QStringLiteral("C_ImagePath")});

    const CardObject& read = Reload(Family::lbl_DATA);
    EXPECT_EQ(read.Caption(), QStringLiteral("Data Field 3"));
    EXPECT_EQ(read.Tag, QStringLiteral("-"));
    EXPECT_EQ(read.DataMember, QStringLiteral("EBT"));
    EXPECT_EQ(read.ToolTipText, QStringLiteral("Mr \rJr"));
    EXPECT_EQ(read.Alignment, 2);
    EXPECT_EQ(read.Font(), (Font{QStringLiteral("Serif"), 8.2512, true, false, true, false}));
}

TEST_F(Agreement, EachFontStyleHasItsOwnColumn)
{
    const struct
    {
        bool Font::*Style;
        QString Column;
    } styles[] = {{&Font::Bold, QStringLiteral("C_FontBold")},
                  {&Font::Italic, QStringLiteral("C_FontItalic")},
                  {&Font::Underline, QStringLiteral("C_FontUnderline")},
                  {&Font::Strikethrough, QStringLiteral("C_FontStrikethrough")}};
    CardObject& text = AddText(Session, QStringLiteral("Hello"));
    for (const auto& [style, column] : styles) {
        SCOPED_TRACE(column.toStdString());
        Font font;
        font.*style = true;
        text.SetFont(font);
        const StoredRow row = Save();
        for (const auto& other : styles) {
            EXPECT_FALSE(row[other.Column].isNull()) << other.Column.toStdString();
            EXPECT_EQ(row[other.Column].toBool(), other.Column == column);
        }
    }
}

TEST_F(Agreement, ANewFieldWithoutPrefixAndSuffixLeavesBothNull)
{
    AddField(Session, 1);
    const StoredRow row = Save();
    ExpectNull(row, {QStringLiteral("C_Prefix"), QStringLiteral("C_Suffix")});
    // "False" is no check digit word.
    ExpectFlags(row, false, false, false);
    EXPECT_TRUE(Reload(Family::lbl_DATA).DataMember.isEmpty());
}

TEST_F(Agreement, APrefixWithoutASuffixLeavesTheSuffixNull)
{
    AddField(Session, 1).ToolTipText = QStringLiteral("Mr ");
    const StoredRow row = Save();
    EXPECT_EQ(row[QStringLiteral("C_Prefix")], QStringLiteral("Mr "));
    ExpectNull(row, {QStringLiteral("C_Suffix")});
    EXPECT_EQ(Reload(Family::lbl_DATA).ToolTipText, QStringLiteral("Mr \r"));
}

TEST_F(Agreement, StaticTextRow)
{
    CardObject& text = AddText(Session, QStringLiteral("Hello"));
    text.Tag = QStringLiteral("never written");
    text.DataMember = QStringLiteral("MOD10");
    const StoredRow row = Save();
    EXPECT_EQ(row[QStringLiteral("C_Param_1")], QStringLiteral("TXT"));
    EXPECT_EQ(row[QStringLiteral("C_Value")], QStringLiteral("Hello"));
    ExpectNull(row, {QStringLiteral("C_Param_2"), QStringLiteral("C_Param_3"),
                     QStringLiteral("C_Prefix"), QStringLiteral("C_Suffix"),
                     QStringLiteral("C_UseMod10"), QStringLiteral("C_UseCodaBar"),
                     QStringLiteral("C_UseEBT"), QStringLiteral("C_ImagePath")});
    Execute(Session, QStringLiteral("UPDATE Controls SET C_Param_1 = 'whatever'"));
    EXPECT_EQ(Reload(Family::lbl_TEXT).Caption(), QStringLiteral("Hello"));
}

TEST_F(Agreement, AutoNumberRowHoldsTheNumberAndNeitherFilterNorPrefix)
{
    CardObject& number = AddNumber(Session, 41);
    number.Tag = QStringLiteral("4");
    number.ToolTipText = QStringLiteral("a\rb");
    number.DataMember = QStringLiteral("CODABAR");
    number.SetCaption(QStringLiteral("419"));
    const StoredRow row = Save();
    EXPECT_EQ(row[QStringLiteral("C_Param_1")], QStringLiteral("AUTO"));
    EXPECT_EQ(row[QStringLiteral("C_Value")], QStringLiteral("41"));
    ExpectFlags(row, false, true, false);
    ExpectNull(row, {QStringLiteral("C_Param_2"), QStringLiteral("C_Param_3"),
                     QStringLiteral("C_Prefix"), QStringLiteral("C_Suffix")});
    const CardObject& read = Reload(Family::lbl_AUTO);
    EXPECT_EQ(read.Caption(), QStringLiteral("41"));
    EXPECT_EQ(read.DataMember, QStringLiteral("CODABAR"));
    EXPECT_TRUE(read.Tag.isEmpty());
    EXPECT_TRUE(read.ToolTipText.isEmpty());
}

TEST_F(Agreement, ATextOfAnUnknownKindWritesNothingOfItsOwn)
{
    AddText(Session, QStringLiteral("Hello")).LinkItem = QStringLiteral("lxv01");
    const StoredRow row = Save();
    EXPECT_EQ(row[QStringLiteral("Control_Type")], QStringLiteral("VB.Label"));
    ExpectNull(row, {QStringLiteral("C_Param_1"), QStringLiteral("C_Value")});
    EXPECT_EQ(Reload(Family::lbl_TEXT).Caption(), QStringLiteral("Static Text 1"));
}

TEST_F(Agreement, ImageRowHoldsThePathOfAFileThatExists)
{
    const QString path = Test.WritePng(QStringLiteral("photo.png"), 3, 4);
    AddText(Session, QStringLiteral("before, with a font"));
    AddImage(Session, path, {10, 20, 30, 40});
    const StoredRow row = Save();
    EXPECT_EQ(row[QStringLiteral("Control_Type")], QStringLiteral("VB.Image"));
    EXPECT_EQ(row[QStringLiteral("Page")], 1);
    EXPECT_EQ(row[QStringLiteral("C_ImagePath")], path);
    EXPECT_EQ(row[QStringLiteral("C_Top")].toDouble(), 10.0);
    EXPECT_EQ(row[QStringLiteral("C_Left")].toDouble(), 20.0);
    EXPECT_EQ(row[QStringLiteral("C_Height")].toDouble(), 30.0);
    EXPECT_EQ(row[QStringLiteral("C_Width")].toDouble(), 40.0);
    ExpectNull(row, {QStringLiteral("C_Param_1"), QStringLiteral("C_FontName"),
                     QStringLiteral("C_FontSize"), QStringLiteral("C_Alignment"),
                     QStringLiteral("C_ForeColor"), QStringLiteral("C_BackColor")});
    EXPECT_TRUE(Reload(Family::img_LXV).Picture.HasHandle());
}

TEST_F(Agreement, AnImageWhoseFileIsGoneLosesItsPathAtTheSave)
{
    const QString path = Test.WritePng(QStringLiteral("photo.png"), 3, 4);
    AddImage(Session, path);
    Save();
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_EQ(Reload(Family::img_LXV).Tag, path);
    ExpectNull(Save(), {QStringLiteral("C_ImagePath"), QStringLiteral("C_Param_1")});
    const CardObject& read = Reload(Family::img_LXV);
    EXPECT_TRUE(read.Tag.isEmpty());
    EXPECT_FALSE(read.Picture.HasHandle());
}

TEST_F(Agreement, ACameraPictureIsNotStored)
{
    CardObject& camera =
        Draw_CamView(OpenForm(Session), {1, 2, 3, 4}, 1, Picture(), true, QString());
    camera.Picture = LoadPicture(Test.WritePng(QStringLiteral("face.png"), 3, 4));
    const StoredRow row = Save();
    EXPECT_EQ(row[QStringLiteral("C_Param_1")], QStringLiteral("CVIEW"));
    ExpectNull(row, {QStringLiteral("C_ImagePath")});
    EXPECT_EQ(Reload(Family::img_CAM).Picture, CameraPlaceholder());
}

TEST_F(Agreement, BorderAndBackStyleAreNotStoredButConstant)
{
    CardObject& text = AddText(Session, QStringLiteral("x"));
    text.BorderStyle = 0;
    text.Appearance = 1;
    text.BackStyle = 1;
    text.Visible = false;
    Save();
    const CardObject& read = Reload(Family::lbl_TEXT);
    EXPECT_EQ(read.BorderStyle, 1);
    EXPECT_EQ(read.Appearance, 0);
    EXPECT_EQ(read.BackStyle, 0);
    EXPECT_TRUE(read.Visible);
}

TEST_F(Agreement, StackingOrderIsRowOrder)
{
    AddImage(Session, Test.WritePng(QStringLiteral("photo.png"), 3, 4));
    AddText(Session, QStringLiteral("x"));
    AddField(Session, 1);
    AddText(Session, QStringLiteral("y"));
    Save();
    LoadLayout(Session, Staff);
    QStringList families;
    for (const auto& object : Session.Document.Objects()) {
        if (object->IsContent())
            families.append(FamilyName(object->Family()));
    }
    EXPECT_EQ(families.join(QLatin1Char(' ')),
              QStringLiteral("img_LXV lbl_TEXT lbl_DATA lbl_TEXT"));
}

TEST_F(Agreement, FractionsOfATwipAreWrittenAndRoundedWhenRead)
{
    AddText(Session, QStringLiteral("x")).Top = 10.5F;
    EXPECT_EQ(Save()[QStringLiteral("C_Top")].toDouble(), 10.5);
    EXPECT_EQ(Reload(Family::lbl_TEXT).Top, 10.0F);
}

} // namespace

} // namespace vantrel::test
