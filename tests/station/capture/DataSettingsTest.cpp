#include "station/capture/DataSettings.h"
#include "base/Profile.h"
#include "station/session/Session.h"
#include "support/TestSession.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

QString Stored(const vantrel::Session& session, const char* key)
{
    return ReadProfileValue(SettingsPath(session.ProgramFolder), SessionSection(session),
                            QLatin1StringView(key), QStringLiteral("(absent)"));
}

struct FilterListRow
{
    const char* Caption;
    int Number;
    const char* Key;
    bool Filters::*Flag;
};

/// The list from top to bottom, with the numbers and keys the rows are kept under.
constexpr FilterListRow FilterList[] = {
    {"Filter (Cr)", 22, "Filter_Cr", &Filters::Cr},
    {"Filter (Lf)", 23, "Filter_Lf", &Filters::Lf},
    {"Filter (Tab)", 24, "Filter_Tab", &Filters::Tab},
    {"Filter (Esc)", 25, "Filter_Esc", &Filters::Esc},
    {"Filter (Null)", 26, "Filter_Null", &Filters::Null},
    {"Filter (Space)", 27, "Filter_Space", &Filters::Space},
    {"Filter (^C)", 28, "Filter_CtrlC", &Filters::CtrlC},
    {"Filter (^Break)", 29, "Filter_CtrlBreak", &Filters::CtrlBreak},
    {"Filter (New Page)", 30, "Filter_NewPage", &Filters::NewPage}};

TEST(DataSettings, EachFilterIsStoredUnderItsKeyAndActsAtOnce)
{
    ASSERT_EQ(std::size(FilterList), 9U);
    ASSERT_EQ(FilterTable.size(), std::size(FilterList));
    for (std::size_t index = 0; index < FilterTable.size(); ++index) {
        const FilterListRow& wanted = FilterList[index];
        TestSession station;
        const vantrel::Session& session = station.Session;
        EXPECT_STREQ(FilterTable[index].Caption, wanted.Caption);
        EXPECT_EQ(static_cast<int>(FilterTable[index].Number), wanted.Number) << wanted.Caption;
        StoreFilter(station.Session, FilterTable[index], true);
        EXPECT_TRUE(session.Settings.Filters.*wanted.Flag) << wanted.Caption;
        EXPECT_EQ(Stored(session, wanted.Key), QStringLiteral("True")) << wanted.Caption;
        for (const FilterListRow& other : FilterList) {
            if (other.Flag != wanted.Flag) {
                EXPECT_FALSE(session.Settings.Filters.*other.Flag) << other.Caption;
                EXPECT_EQ(Stored(session, other.Key), QStringLiteral("(absent)"));
            }
        }
        StoreFilter(station.Session, FilterTable[index], false);
        EXPECT_FALSE(session.Settings.Filters.*wanted.Flag) << wanted.Caption;
        EXPECT_EQ(Stored(session, wanted.Key), QStringLiteral("False")) << wanted.Caption;
    }
}

TEST(DataSettings, ASaveTakesAndStoresDelimitersAndBuffering)
{
    TestSession station;
    const vantrel::Session& session = station.Session;
    SaveDataSettings(station.Session,
                     {{QStringLiteral("[2]"), QStringLiteral("+,"), QString()}, true});
    EXPECT_EQ(session.Settings.Framing.DataStart, QStringLiteral("[2]"));
    EXPECT_EQ(session.Settings.Framing.DataSeperator, QStringLiteral("+,"));
    EXPECT_EQ(session.Settings.Framing.DataEnd, QString());
    EXPECT_TRUE(session.Settings.BufferData);
    EXPECT_EQ(Stored(session, "DataStart"), QStringLiteral("[2]"));
    EXPECT_EQ(Stored(session, "DataSeperator"), QStringLiteral("+,"));
    EXPECT_EQ(Stored(session, "DataEnd"), QString());
    EXPECT_EQ(Stored(session, "BufferData"), QStringLiteral("True"));
    EXPECT_EQ(PresentDataSettings(session.Settings).Framing.DataSeperator, QStringLiteral("+,"));
    EXPECT_TRUE(PresentDataSettings(session.Settings).BufferData);
}

TEST(DataSettings, DefaultsAreThoseOfAFirstStart)
{
    TestSession station;
    LoadSettings(station.Session);
    const DataSettings first = PresentDataSettings(station.Session.Settings);
    const DataSettings defaults = DefaultDataSettings();
    EXPECT_EQ(defaults.Framing.DataStart, QStringLiteral("<"));
    EXPECT_EQ(defaults.Framing.DataSeperator, QStringLiteral("+"));
    EXPECT_EQ(defaults.Framing.DataEnd, QStringLiteral(">"));
    EXPECT_FALSE(defaults.BufferData);
    EXPECT_EQ(first.Framing.DataStart, defaults.Framing.DataStart);
    EXPECT_EQ(first.Framing.DataSeperator, defaults.Framing.DataSeperator);
    EXPECT_EQ(first.Framing.DataEnd, defaults.Framing.DataEnd);
    EXPECT_EQ(first.BufferData, defaults.BufferData);
}

TEST(DataSettings, AToolTipShowsADelimiterAsItIsOrDecoded)
{
    EXPECT_EQ(WrittenToolTip(QStringLiteral("[41]")), QStringLiteral("Value is [41]  "));
    EXPECT_EQ(DecodedToolTip(QStringLiteral("[41][0D]")), QStringLiteral("Value is A[0D]  "));
    EXPECT_EQ(DecodedToolTip(QString()), QStringLiteral("Value is   "));
}

} // namespace
} // namespace vantrel::test
