#include "card/AutoNumber.h"
#include "base/Failure.h"
#include "card/CardObject.h"
#include "support/Print.h"
#include <gtest/gtest.h>

namespace vantrel {

namespace {

CardObject Number(const QString& current)
{
    CardObject object(Family::lbl_AUTO, 1);
    object.LinkItem = Marker::AutoNumber;
    object.DataField = current;
    object.SetCaption(current);
    return object;
}

TEST(AutoNumber, RisesByOneAndIsShown)
{
    CardObject object = Number(QStringLiteral("41"));
    Increment_If_AutoNumber(object);
    EXPECT_EQ(object.DataField, QStringLiteral("42"));
    EXPECT_EQ(object.Caption(), QStringLiteral("42"));
}

TEST(AutoNumber, KeepsDecimalsAndCountsThroughZero)
{
    CardObject object = Number(QStringLiteral("-0.5"));
    Increment_If_AutoNumber(object);
    EXPECT_EQ(object.DataField, QStringLiteral("0.5"));
    object = Number(QStringLiteral("-1"));
    Increment_If_AutoNumber(object);
    EXPECT_EQ(object.DataField, QStringLiteral("0"));
}

TEST(AutoNumber, StaysPlainDigitsUpToFifteen)
{
    CardObject object = Number(QStringLiteral("999999999999998"));
    Increment_If_AutoNumber(object);
    EXPECT_EQ(object.DataField, QStringLiteral("999999999999999"));
}

TEST(AutoNumber, DropsTheCheckDigitTheCaptionHadOnScreen)
{
    CardObject object = Number(QStringLiteral("5"));
    object.DataMember = QStringLiteral("MOD10");
    object.SetCaption(QStringLiteral("55"));
    Increment_If_AutoNumber(object);
    EXPECT_EQ(object.Caption(), QStringLiteral("6"));
}

TEST(AutoNumber, FilterActsOnWhatIsShownNotOnTheNumber)
{
    CardObject object = Number(QStringLiteral("99"));
    object.Tag = QStringLiteral("0");
    Increment_If_AutoNumber(object);
    EXPECT_EQ(object.DataField, QStringLiteral("100"));
    EXPECT_EQ(object.Caption(), QStringLiteral("1"));
}

TEST(AutoNumber, AnyOtherObjectIsLeftAlone)
{
    for (const QString& marker :
         {QStringLiteral("LXV01"), QStringLiteral("LXV01BDF"), QStringLiteral("auto"), QString()}) {
        CardObject object = Number(QStringLiteral("1"));
        object.LinkItem = marker;
        Increment_If_AutoNumber(object);
        EXPECT_EQ(object.DataField, QStringLiteral("1")) << marker.toStdString();
        EXPECT_EQ(object.Caption(), QStringLiteral("1")) << marker.toStdString();
    }
}

TEST(AutoNumber, ACaptionThatIsNoNumberFailsAndStays)
{
    CardObject object = Number(QStringLiteral("A1"));
    try {
        Increment_If_AutoNumber(object);
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::TypeMismatch);
    }
    EXPECT_EQ(object.DataField, QStringLiteral("A1"));
    EXPECT_EQ(object.Caption(), QStringLiteral("A1"));
}

} // namespace

} // namespace vantrel
