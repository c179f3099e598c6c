#include "base/TimeText.h"
#include "support/Print.h"
#include <QDateTime>
#include <gtest/gtest.h>

namespace vantrel {
namespace {

qint64 Local(int hour, int minute, int second, int millisecond)
{
    return QDateTime(QDate(2026, 11, 21), QTime(hour, minute, second, millisecond))
        .toMSecsSinceEpoch();
}

std::optional<qint64> Read(const char* text)
{
    return ReadTimeText(QString::fromUtf8(text));
}

TEST(TimeText, OfADayIsItsBegin)
{
    EXPECT_EQ(Read("2026-11-21"), QDate(2026, 11, 21).startOfDay().toMSecsSinceEpoch());
}

TEST(TimeText, OfATimeCountsToTheMillisecond)
{
    EXPECT_EQ(Read("2026-11-21T14:03"), Local(14, 3, 0, 0));
    EXPECT_EQ(Read("2026-11-21T14:03:07"), Local(14, 3, 7, 0));
    EXPECT_EQ(Read("2026-11-21T14:03:07.120"), Local(14, 3, 7, 120));
}

TEST(TimeText, MayNameItsZone)
{
    EXPECT_EQ(Read("1970-01-01T00:00:01.500Z"), 1500);
    EXPECT_EQ(Read("1970-01-01T02:00:01+02:00"), 1000);
}

TEST(TimeText, ThatIsNoneIsNothing)
{
    for (const char* text : {"", "yesterday", "2026-02-30", "2026-11-21T", "2026-11-21T25:00",
                             "2026-11-21x", "2026-11-21 and more", "21.11.2026"})
        EXPECT_EQ(Read(text), std::nullopt) << text;
    EXPECT_EQ(ReadTimeText(QString(10'000'000, QLatin1Char('1'))), std::nullopt);
}

} // namespace
} // namespace vantrel
