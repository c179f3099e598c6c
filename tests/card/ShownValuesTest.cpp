#include "card/ShownValues.h"
#include "card/CardDocument.h"
#include "card/RecordPicture.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

FieldValues Record(const QStringList& texts)
{
    FieldValues values;
    for (const QString& text : texts)
        values.Add(text);
    return values;
}

/// A page with a text, three fields that show their names, and a number.
class ShownValues : public ::testing::Test
{
protected:
    ShownValues()
    {
        Document.Load();
        Document.Width = 3060;
        Document.Height = 4860;
        Add(Family::lbl_TEXT).SetCaption(QStringLiteral("Visitor"));
        for (const char* number : {"1", "2", "3"}) {
            CardObject& field = Add(Family::lbl_DATA);
            field.DataField = QLatin1StringView(number);
            field.SetCaption(QStringLiteral("Data Field ") + field.DataField);
        }
        CardObject& number = Add(Family::lbl_AUTO);
        number.LinkItem = Marker::AutoNumber;
        number.DataField = QStringLiteral("1041");
        number.SetCaption(number.DataField);
    }
    CardObject& Add(Family family)
    {
        CardObject& object = Document.Add(family);
        object.Visible = true;
        return object;
    }
    CardObject& Field(int index) { return *Document.Find(Family::lbl_DATA, index); }
    static QStringList Captions(const CardDocument& page)
    {
        QStringList captions;
        for (const auto& object : page.Objects()) {
            if (object->IsContent())
                captions.append(object->Caption());
        }
        return captions;
    }
    QStringList Shown(const QStringList& values)
    {
        return Captions(*PageWithValues(Document, Record(values), {}, u'.'));
    }

    CardDocument Document;
};

TEST_F(ShownValues, AreShapedAsTheyPrintAndThePageStaysAsItIs)
{
    Field(1).ToolTipText = QStringLiteral("<\r>");
    Field(2).Tag = QStringLiteral("-");
    Field(2).DataMember = QStringLiteral("MOD10");
    Field(2).ToolTipText = QStringLiteral("\r");
    Document.SelectedObject = &Field(1);
    const QStringList before = Captions(Document);
    EXPECT_EQ(
        Shown({QStringLiteral("Anna"), QStringLiteral("12-345"), QStringLiteral("Gold")}),
        QStringList({QStringLiteral("Visitor"), QStringLiteral("<Anna>"), QStringLiteral("123457"),
                     QStringLiteral("Gold"), QStringLiteral("1042")}));
    EXPECT_EQ(Captions(Document), before);
    EXPECT_EQ(Document.SelectedObject, &Field(1));
    EXPECT_EQ(Document.Find(Family::lbl_AUTO, 1)->DataField, QStringLiteral("1041"));
    EXPECT_EQ(Document.Pours, 0U);
}

TEST_F(ShownValues, AreNamesWhereTheRecordHasNone)
{
    EXPECT_EQ(Shown({}).mid(1, 3),
              QStringList({QStringLiteral("Data Field 1"), QStringLiteral("Data Field 2"),
                           QStringLiteral("Data Field 3")}));
    // A record with too few values repeats its last one, as it prints.
    EXPECT_EQ(Shown({QStringLiteral("Anna")}).mid(1, 3), QStringList(3, QStringLiteral("Anna")));
}

TEST_F(ShownValues, KeepPlacesFontsAndStack)
{
    Field(2).Left = 123;
    Font font;
    font.Name = QStringLiteral("Barcode QR Code");
    Field(2).SetFont(font);
    const auto page = PageWithValues(Document, Record({QStringLiteral("Anna")}), {}, u'.');
    EXPECT_EQ(page->Width, 3060);
    EXPECT_EQ(page->Find(Family::lbl_DATA, 2)->Left, 123);
    EXPECT_EQ(page->Find(Family::lbl_DATA, 2)->Font().Name, font.Name);
    EXPECT_EQ(page->SelectedObject, nullptr);
}

TEST_F(ShownValues, ASampleIsShapedAsTheChangedFieldWouldBe)
{
    const FieldValues values =
        Record({QStringLiteral("Anna"), QStringLiteral("12-345"), QStringLiteral("Gold")});
    Field(1).ToolTipText = QStringLiteral("No. \r!");
    CardObject changed = Field(2);
    changed.Tag = QStringLiteral("-");
    changed.DataMember = QStringLiteral("MOD10");
    // A field without a prefix has that of the field before it.
    ValueSample sample = SampleOf(Document, changed, values, u'.');
    EXPECT_EQ(sample.Source, SampleSource::Record);
    EXPECT_EQ(sample.Value, QStringLiteral("12-345"));
    EXPECT_EQ(sample.Printed, QStringLiteral("No. 123457!"));
    changed.ToolTipText = QStringLiteral("A\rZ");
    EXPECT_EQ(SampleOf(Document, changed, values, u'.').Printed, QStringLiteral("A123457Z"));
    EXPECT_EQ(Field(2).Caption(), QStringLiteral("Data Field 2"));
}

TEST_F(ShownValues, ASampleIsAnExampleWithoutARecordAndTheNextOneOfANumber)
{
    CardObject changed = Field(3);
    changed.ToolTipText = QStringLiteral("A\rZ");
    changed.DataMember = QStringLiteral("MOD10");
    const ValueSample example = SampleOf(Document, changed, {}, u'.');
    EXPECT_EQ(example.Source, SampleSource::Example);
    EXPECT_EQ(example.Value, QStringLiteral("12345"));
    EXPECT_EQ(example.Printed, QStringLiteral("A123457Z"));
    CardObject number = *Document.Find(Family::lbl_AUTO, 1);
    number.Tag = QStringLiteral("0");
    const ValueSample next = SampleOf(Document, number, {}, u'.');
    EXPECT_EQ(next.Source, SampleSource::NextNumber);
    EXPECT_EQ(next.Value, QStringLiteral("1042"));
    EXPECT_EQ(next.Printed, QStringLiteral("142"));
}

TEST_F(ShownValues, ASampleOfAFieldWithoutANumberIsNothingBad)
{
    CardObject changed = Field(1);
    changed.DataField = QStringLiteral("none");
    EXPECT_EQ(SampleOf(Document, changed, {}, u'.').Printed, QStringLiteral("Data Field none"));
    changed.DataField = QStringLiteral("32767");
    EXPECT_EQ(SampleOf(Document, changed, {}, u'.').Printed, QStringLiteral("12345"));
}

} // namespace
} // namespace vantrel::test
