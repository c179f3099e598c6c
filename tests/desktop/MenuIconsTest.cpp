#include "desktop/DesktopStation.h"
#include "desktop/menu/DesktopMenuIcons.h"
#include "desktop/menu/DesktopMenuRow.h"
#include <QMenu>
#include <cmath>
#include <gtest/gtest.h>
#include <map>

namespace vantrel::test {
namespace {

struct IconRow
{
    const char* Name;
    int Number;
};

constexpr IconRow IconRows[] = {{"mnuOpen", 7},          {"cmdOpen", 7},
                                {"cmdSave", 4},          {"cmdSaveAs", 9},
                                {"mnuDelete", 5},        {"cmdDelete", 5},
                                {"cmdDeleteLayout", 5},  {"cmdDeletePage", 5},
                                {"cmdContextDelete", 5}, {"cmdWizard", 12},
                                {"cmdSetFont", 13},      {"mnuDataFields", 14},
                                {"mnuAlighment", 15},    {"cmdNewPage", 16},
                                {"cmdAbout", 17},        {"cmdAdjustTextColor", 18},
                                {"cmdTakePicture", 19},  {"cmdTakePicture2", 19}};

const QAction& EntryOf(DesktopStation& station, const char* name)
{
    if (const auto* menu = station.Window.findChild<QMenu*>(QLatin1StringView(name)))
        return *menu->menuAction();
    return station.Get<QAction>(name);
}

QImage Drawn(const QIcon& icon, int size)
{
    return icon.pixmap(QSize(size, size), 1.0).toImage();
}

TEST(MenuIcons, AreShownBeforeTheEntriesOfTheTableOnly)
{
    EXPECT_EQ(std::size(IconRows), 18U);
    // A station that has every row of the table.
    StationOptions options;
    options.Ledger = options.DesignTools = true;
    DesktopStation station(true, options);
    station.Load();
    std::map<std::string, int> numbers;
    for (const IconRow& row : IconRows) {
        numbers[row.Name] = row.Number;
        EXPECT_EQ(MenuIconNumber(EntryOf(station, row.Name).text()), row.Number) << row.Name;
    }
    for (const MenuRow& row : MenuRows()) {
        if (*row.Name == '\0')
            continue;
        EXPECT_EQ(EntryOf(station, row.Name).icon().isNull(), !numbers.contains(row.Name))
            << row.Name;
    }
}

TEST(MenuIcons, EachNumberHasAPictureOfItsOwnAtAnySize)
{
    std::vector<QImage> seen;
    for (int number = 0; number <= 20; ++number) {
        const QImage drawn = Drawn(MenuIcon(number), 64);
        if (drawn.isNull())
            continue;
        EXPECT_EQ(drawn.size(), QSize(64, 64));
        for (const QImage& other : seen)
            EXPECT_NE(drawn, other) << number;
        seen.push_back(drawn);
    }
    EXPECT_EQ(seen.size(), 12U);
}

/// Relative luminance, 0 black to 1 white.
double Luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

TEST(MenuIcons, AreLegibleOnLightAndOnDark)
{
    constexpr double leastContrast = 3.0;
    const double light = Luminance(Qt::white);
    const double dark = Luminance(QColor(0x20, 0x20, 0x20));
    for (const IconRow& row : IconRows) {
        const QImage drawn = Drawn(MenuIcon(row.Number), 64);
        for (int at = 0; at < 64 * 64; ++at) {
            const QColor color = drawn.pixelColor(at % 64, at / 64);
            if (color.alpha() < 255)
                continue;
            const double own = Luminance(color);
            ASSERT_GE((light + 0.05) / (own + 0.05), leastContrast) << row.Name;
            ASSERT_GE((own + 0.05) / (dark + 0.05), leastContrast) << row.Name;
        }
    }
}

} // namespace
} // namespace vantrel::test
