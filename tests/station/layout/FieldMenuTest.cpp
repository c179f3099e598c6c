#include "station/layout/FieldApplication.h"
#include "support/Layouts.h"
#include "support/Memory.h"
#include <gtest/gtest.h>

using namespace vantrel;
using namespace vantrel::test;

TEST(FieldMenu, CaptionsLineUpForOneAndTwoDigits)
{
    TestSession station;
    QStringList values;
    for (int number = 1; number <= 10; ++number)
        values.append(QStringLiteral("v%1").arg(number));
    SetRecord(station.Session, values);
    BuildFieldMenu(station.Session.Face, station.Session.FieldValues);
    const FieldMenu& menu = station.Session.Face.Fields();
    ASSERT_EQ(menu.Count(), 10);
    EXPECT_EQ(menu.Caption(1), QStringLiteral("Data Field 1        =      v1"));
    EXPECT_EQ(menu.Caption(9), QStringLiteral("Data Field 9        =      v9"));
    EXPECT_EQ(menu.Caption(10), QStringLiteral("Data Field 10      =      v10"));
}

TEST(FieldMenu, SendEntryGoesByTheLastElementMade)
{
    TestSession station;
    const auto sendEntryShowsAfter = [&](const QStringList& values) {
        SetRecord(station.Session, values);
        BuildFieldMenu(station.Session.Face, station.Session.FieldValues);
        return station.Session.Face.Fields().SendEntryVisible;
    };
    const QString value = QStringLiteral("A");
    EXPECT_TRUE(sendEntryShowsAfter({}));
    EXPECT_TRUE(sendEntryShowsAfter({value}));
    EXPECT_FALSE(sendEntryShowsAfter({value, value}));
    EXPECT_FALSE(sendEntryShowsAfter({})) << "without values it stays as it was";
    EXPECT_TRUE(sendEntryShowsAfter({value}));
    EXPECT_TRUE(sendEntryShowsAfter({}));
}

TEST(FieldMenu, ListOfTheRecordBeforeIsReplaced)
{
    TestSession station;
    SetRecord(station.Session, {QStringLiteral("A"), QStringLiteral("B")});
    BuildFieldMenu(station.Session.Face, station.Session.FieldValues);
    SetRecord(station.Session, {});
    BuildFieldMenu(station.Session.Face, station.Session.FieldValues);
    EXPECT_EQ(station.Session.Face.Fields().Count(), 0);
}

TEST(FieldMenu, EmptyValueIsListedToo)
{
    TestSession station;
    SetRecord(station.Session, {QString()});
    BuildFieldMenu(station.Session.Face, station.Session.FieldValues);
    ASSERT_EQ(station.Session.Face.Fields().Count(), 1);
    EXPECT_EQ(station.Session.Face.Fields().Caption(1),
              QStringLiteral("Data Field 1        =      "));
}

TEST(FieldMenu, ShowsItsRecordUntilItIsBuiltAnew)
{
    TestSession station;
    SetRecord(station.Session, {QStringLiteral("A")});
    BuildFieldMenu(station.Session.Face, station.Session.FieldValues);
    station.Session.FieldValues.Add(QStringLiteral("B"));
    EXPECT_EQ(station.Session.Face.Fields().Count(), 1);
    station.Session.FieldValues = {};
    EXPECT_EQ(station.Session.Face.Fields().Caption(1),
              QStringLiteral("Data Field 1        =      A"));
}

TEST(FieldMenu, AMillionValuesTakeNoMemoryInTheMenu)
{
    TestSession station;
    SetRecord(station.Session, {QStringLiteral("A")});
    BuildFieldMenu(station.Session.Face, station.Session.FieldValues);
    const qint64 before = UsedMemory();
    for (int number = 0; number < 1'000'000; ++number)
        station.Session.FieldValues.Add(QStringLiteral("A"));
    BuildFieldMenu(station.Session.Face, station.Session.FieldValues);
    EXPECT_EQ(station.Session.Face.Fields().Count(), 1'000'001);
    EXPECT_LT(UsedMemory() - before, 32 * MiB);
    station.Session.FieldValues = {};
    BuildFieldMenu(station.Session.Face, station.Session.FieldValues);
    EXPECT_LT(UsedMemory() - before, MiB);
}
