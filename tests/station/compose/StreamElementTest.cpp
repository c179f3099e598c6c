#include "station/compose/StreamElement.h"
#include "card/FieldValues.h"
#include "support/Print.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

QVariant Data(const char16_t* text)
{
    return text == nullptr ? QVariant() : QVariant(QString::fromUtf16(text));
}

TEST(StreamElements, EveryStoredKindIsReadAndWrittenBack)
{
    const struct
    {
        int Type;
        const char16_t* Data;
        const char16_t* Tag;
        const char16_t* LinkItem;
        const char16_t* ToolTipText;
        const char16_t* Caption;
        ColorValue BackColor;
    } rows[] = {
        {0, u"7", u"DAT7", u"", u"DAT7", u"7", 14129507},
        {1, u"ACME", u"TEXT", u"ACME", u"ACME", u"", 0xE6E6E6},
        {2, u"41", u"HEX", u"41", u"41", u"", 65535},
        {3, nullptr, u"START", u"", u"START", u"<", 0xE6E6E6},
        {4, nullptr, u"STOP", u"", u"STOP", u">", 0xE6E6E6},
        {5, nullptr, u"CR", u"", u"CR", u"CR", 0xE6E6E6},
    };
    EXPECT_EQ(std::size(rows), 6U);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Type);
        const auto element = StreamElementOf({row.Type, Data(row.Data)});
        ASSERT_TRUE(element.has_value());
        EXPECT_EQ(element->Kind, row.Type);
        EXPECT_EQ(element->Tag, QString::fromUtf16(row.Tag));
        EXPECT_EQ(element->LinkItem, QString::fromUtf16(row.LinkItem));
        EXPECT_EQ(element->ToolTipText, QString::fromUtf16(row.ToolTipText));
        const ElementLook look = LookOf(*element);
        EXPECT_EQ(look.Caption, QString::fromUtf16(row.Caption));
        EXPECT_EQ(look.BackColor, row.BackColor);
        const StoredStreamElement stored = StoredFormOf(*element);
        EXPECT_EQ(stored.ElementType, QVariant(row.Type));
        EXPECT_EQ(stored.ElementData, Data(row.Data));
    }
}

TEST(StreamElements, ARowOfNoKindIsNoElement)
{
    EXPECT_FALSE(StreamElementOf({}).has_value());
    EXPECT_FALSE(StreamElementOf({6, QStringLiteral("x")}).has_value());
    EXPECT_FALSE(StreamElementOf({-1, QStringLiteral("x")}).has_value());
}

TEST(StreamElements, ADropIsRecognisedByItsKey)
{
    const struct
    {
        const char16_t* Key;
        int Kind;
        const char16_t* Tag;
    } rows[] = {
        {u"TEXT", 1, u"TEXT"},     {u"HEX", 2, u"HEX"}, {u"START", 3, u"START"},
        {u"STOP", 4, u"STOP"},     {u"CR", 5, u"CR"},   {u"KEY=12", 0, u"DAT12"},
        {u"AUTO=1", 6, u"AUTO=1"},
    };
    EXPECT_EQ(std::size(rows), 7U);
    for (const auto& row : rows) {
        const QString key = QString::fromUtf16(row.Key);
        SCOPED_TRACE(key.toStdString());
        const auto element = StreamElementOfKey(key);
        ASSERT_TRUE(element.has_value());
        EXPECT_EQ(element->Kind, row.Kind);
        EXPECT_EQ(element->Tag, QString::fromUtf16(row.Tag));
        EXPECT_EQ(element->ToolTipText, QString::fromUtf16(row.Tag));
        EXPECT_EQ(element->LinkItem, QString());
    }
}

TEST(StreamElements, AFormattedFieldCanBeDraggedAndItsDropAddsNothing)
{
    QStringList keys;
    for (const ElementNode& node : StreamElementNodes({}))
        keys += node.Key;
    EXPECT_TRUE(keys.contains(QStringLiteral("FD")));
    for (const char16_t* key : {u"FD", u"", u"text", u"SEP", u"MOD10"})
        EXPECT_FALSE(StreamElementOfKey(QString::fromUtf16(key)).has_value());
}

TEST(StreamElements, TheTreeOffersKindsThenValuesWithWhatTheyHold)
{
    FieldValues values;
    values.Add(QStringLiteral("12-3"));
    values.Add(QString());
    QStringList told;
    for (const ElementNode& node : StreamElementNodes(values))
        told += node.Text + QLatin1Char('|') + node.Key;
    EXPECT_EQ(told,
              (QStringList{QStringLiteral("Normal Text|TEXT"), QStringLiteral("Data Start|START"),
                           QStringLiteral("Data Stop|STOP"), QStringLiteral("Carrage Return|CR"),
                           QStringLiteral("Formatted Data Field|FD"),
                           QStringLiteral("Data Field 1        (12-3)|KEY=1"),
                           QStringLiteral("Data Field 2        ()|KEY=2")}));
}

TEST(StreamElements, ATextLosesTheWordOfItsTag)
{
    StreamElement text = MakeStreamElement(StreamKind::Text, QStringLiteral("TEXT"), {});
    EXPECT_EQ(StoredFormOf(text).ElementData, QVariant(QString()));
    text.SetText(QStringLiteral("MYTEXT"));
    EXPECT_EQ(StoredFormOf(text).ElementData, QVariant(QStringLiteral("MY")));
    text.SetText(QStringLiteral("TETEXTXTTEXT"));
    EXPECT_EQ(StoredFormOf(text).ElementData, QVariant(QStringLiteral("TEXT")));
    const StreamElement hex =
        MakeStreamElement(StreamKind::Hex, QStringLiteral("HEX"), QStringLiteral("HEX41"));
    EXPECT_EQ(StoredFormOf(hex).ElementData, QVariant(QStringLiteral("41")));
}

TEST(StreamElements, AnElementOfAnotherTagHasNoStoredKind)
{
    const auto number = StreamElementOfKey(QStringLiteral("AUTO=1"));
    EXPECT_TRUE(StoredFormOf(*number).ElementType.isNull());
    EXPECT_EQ(LookOf(*number).Caption, QStringLiteral("++"));
    EXPECT_EQ(LookOf(*number).BackColor, 12883333);
}

TEST(StreamElements, AnEmptyLinkLeavesTheTagAsToolTip)
{
    const StreamElement empty = MakeStreamElement(StreamKind::Text, QStringLiteral("TEXT"), {});
    EXPECT_EQ(empty.ToolTipText, QStringLiteral("TEXT"));
    EXPECT_TRUE(empty.IsText());
    EXPECT_FALSE(MakeStreamElement(StreamKind::Hex, QStringLiteral("HEX"), {}).IsText());
    StreamElement cleared = empty;
    cleared.SetText(QStringLiteral("x"));
    cleared.SetText(QString());
    EXPECT_EQ(cleared.LinkItem, QString());
    EXPECT_EQ(cleared.ToolTipText, QString());
}

TEST(ComposerElement, ControlCharactersAreShownAsCodes)
{
    EXPECT_EQ(WithVisibleCodes(QStringLiteral("<a b\r\x1F>")), QStringLiteral("<a b[D][1F]>"));
}

} // namespace
} // namespace vantrel::test
