#include "capture/FieldApplication.h"
#include "support/Layouts.h"
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
    BuildFieldMenu(station.Session);
    const QStringList captions = station.Session.Face.Fields().Captions;
    ASSERT_EQ(captions.size(), 10);
    EXPECT_EQ(captions[0], QStringLiteral("Data Field 1        =      v1"));
    EXPECT_EQ(captions[8], QStringLiteral("Data Field 9        =      v9"));
    EXPECT_EQ(captions[9], QStringLiteral("Data Field 10      =      v10"));
}

TEST(FieldMenu, SendEntryGoesByTheLastElementMade)
{
    TestSession station;
    const auto sendEntryShowsAfter = [&](const QStringList& values) {
        SetRecord(station.Session, values);
        BuildFieldMenu(station.Session);
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
    BuildFieldMenu(station.Session);
    SetRecord(station.Session, {});
    BuildFieldMenu(station.Session);
    EXPECT_EQ(station.Session.Face.Fields().Captions, QStringList());
}

TEST(FieldMenu, EmptyValueIsListedToo)
{
    TestSession station;
    SetRecord(station.Session, {QString()});
    BuildFieldMenu(station.Session);
    EXPECT_EQ(station.Session.Face.Fields().Captions,
              QStringList{QStringLiteral("Data Field 1        =      ")});
}
