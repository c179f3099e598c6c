#include "station/session/SettingsTable.h"
#include "base/Profile.h"
#include "support/TestSession.h"
#include <gtest/gtest.h>
#include <set>

using namespace vantrel;
using vantrel::test::TestSession;

namespace {

/// The expected rows, written down a second time. `Sample` is a text whose reading shows as
/// `Shown`; a key that nothing reads has neither.
struct Expected
{
    int Number;
    const char* Key;
    const char* Default;
    const char* Sample;
    QString (*Shown)(const StationSettings&);
};

QString Shown(bool value)
{
    return BooleanText(value);
}
QString Shown(int value)
{
    return QString::number(value);
}
QString Shown(const QString& value)
{
    return value;
}
QString Shown(const BackgroundSetting& value)
{
    return std::holds_alternative<double>(value) ? NumberText(std::get<double>(value)) : QString();
}

template <auto... Path>
QString Of(const StationSettings& settings)
{
    return Shown((settings.*....*Path));
}

using S = StationSettings;

const Expected expectedRows[] = {
    {0, "DynamicLayouts", "False", "True", Of<&S::DynamicLayouts>},
    {1, "DynamicFields", "False", "True", Of<&S::DynamicFields>},
    {2, "LastLayout", "", "Badge", Of<&S::LastLayout>},
    {3, "MWidth", "10425", "70000", Of<&S::MWidth>},
    {4, "MHeight", "8895", "70001", Of<&S::MHeight>},
    {5, "MTop", "200", "-70002", Of<&S::MTop>},
    {6, "MLeft", "200", "-70003", Of<&S::MLeft>},
    {7, "DataStart", "<", "[2]", Of<&S::Framing, &Delimiters::DataStart>},
    {8, "DataSeperator", "+", ",;", Of<&S::Framing, &Delimiters::DataSeperator>},
    {9, "DataEnd", ">", "[3]", Of<&S::Framing, &Delimiters::DataEnd>},
    {10, "Port", "10001", "70004", Of<&S::Port>},
    {11, "CaptureEnabled", "False", "True", Of<&S::CaptureEnabled>},
    {12, "Visible", "True", "True", Of<&S::MainVisible>},
    {13, "hwnd", nullptr, nullptr, nullptr},
    {14, "Background", nullptr, "255", Of<&S::Background>},
    {15, "SPort", nullptr, "255", Of<&S::SPort>},
    {16, "SSettings", nullptr, "9600,n,8,1", Of<&S::SSettings>},
    {17, "SFlowCtrl", nullptr, "-32768", Of<&S::SFlowCtrl>},
    {18, "UseIP", "True", "True", Of<&S::UseIP>},
    {19, "UseSerial", "False", "True", Of<&S::UseSerial>},
    {20, "UseParallel", "False", "True", Of<&S::UseParallel>},
    {21, "PPort", nullptr, nullptr, nullptr},
    {22, "Filter_Cr", nullptr, "True", Of<&S::Filters, &Filters::Cr>},
    {23, "Filter_Lf", nullptr, "True", Of<&S::Filters, &Filters::Lf>},
    {24, "Filter_Tab", nullptr, "True", Of<&S::Filters, &Filters::Tab>},
    {25, "Filter_Esc", nullptr, "True", Of<&S::Filters, &Filters::Esc>},
    {26, "Filter_Null", nullptr, "True", Of<&S::Filters, &Filters::Null>},
    {27, "Filter_Space", nullptr, "True", Of<&S::Filters, &Filters::Space>},
    {28, "Filter_CtrlC", nullptr, "True", Of<&S::Filters, &Filters::CtrlC>},
    {29, "Filter_CtrlBreak", nullptr, "True", Of<&S::Filters, &Filters::CtrlBreak>},
    {30, "Filter_NewPage", nullptr, "True", Of<&S::Filters, &Filters::NewPage>},
    {32, "BufferData", nullptr, "True", Of<&S::BufferData>},
    {34, "ActiveMacro", "", "Chain", Of<&S::ActiveMacro>},
};

} // namespace

TEST(SettingsTable, HasTheExpectedNumberKeyAndDefaultInEveryRow)
{
    ASSERT_EQ(SettingsTable.size(), 33U);
    ASSERT_EQ(std::size(expectedRows), SettingsTable.size());
    for (std::size_t i = 0; i < SettingsTable.size(); ++i) {
        const SettingRow& row = SettingsTable[i];
        const Expected& expected = expectedRows[i];
        EXPECT_EQ(static_cast<int>(row.Number), expected.Number);
        EXPECT_STREQ(row.Key, expected.Key);
        EXPECT_STREQ(row.Default, expected.Default) << expected.Key;
        EXPECT_EQ(row.Read != nullptr, expected.Shown != nullptr) << expected.Key;
        EXPECT_EQ(FindSettingRow(expected.Number), &row);
    }
}

TEST(SettingsTable, ReadsEveryKeyThatIsReadOnce)
{
    std::set<SettingNumber> read(SettingsReadOrder.begin(), SettingsReadOrder.end());
    EXPECT_EQ(SettingsReadOrder.size(), 31U);
    EXPECT_EQ(read.size(), SettingsReadOrder.size());
    for (const SettingRow& row : SettingsTable)
        EXPECT_EQ(read.contains(row.Number), row.Read != nullptr) << row.Key;
}

TEST(SettingsTable, EveryRowIsSavedUnderItsKeyInItsFile)
{
    int rows = 0;
    for (const Expected& expected : expectedRows) {
        TestSession station;
        const QString value = QStringLiteral("value of %1").arg(expected.Number);
        SaveSetting(station.Session, expected.Number, value);
        const QString path = expected.Number == 12 ? station.Session.ProgramFolder +
                                                         QStringLiteral("SessionStatus.ini")
                                                   : SettingsPath(station.Session.ProgramFolder);
        EXPECT_EQ(ReadProfileValue(path, QStringLiteral("Session 1"),
                                   QLatin1StringView(expected.Key), QString()),
                  value);
        ++rows;
    }
    EXPECT_EQ(rows, 33);
}

TEST(SettingsTable, EveryRowIsReadIntoItsOwnVariable)
{
    for (const Expected& expected : expectedRows) {
        if (expected.Sample == nullptr)
            continue;
        TestSession station;
        const QString sample = QString::fromLatin1(expected.Sample);
        // All other keys are absent or opposite, so that only the right variable can show the
        // sample.
        ASSERT_TRUE(WriteProfileValue(
            expected.Number == 12 ? SessionStatusPath(station.Session.ProgramFolder)
                                  : SettingsPath(station.Session.ProgramFolder),
            QStringLiteral("Session 1"), QLatin1StringView(expected.Key), sample));
        LoadSettings(station.Session);
        EXPECT_EQ(expected.Shown(station.Session.Settings), sample) << expected.Key;
    }
}

TEST(SettingsTable, EveryBooleanReadsFalseToo)
{
    int booleans = 0;
    for (const Expected& expected : expectedRows) {
        if (expected.Sample == nullptr || std::string_view(expected.Sample) != "True")
            continue;
        TestSession station;
        ASSERT_TRUE(WriteProfileValue(
            expected.Number == 12 ? SessionStatusPath(station.Session.ProgramFolder)
                                  : SettingsPath(station.Session.ProgramFolder),
            QStringLiteral("Session 1"), QLatin1StringView(expected.Key), QStringLiteral("False")));
        LoadSettings(station.Session);
        EXPECT_EQ(expected.Shown(station.Session.Settings), QStringLiteral("False"));
        ++booleans;
    }
    EXPECT_EQ(booleans, 17);
}
