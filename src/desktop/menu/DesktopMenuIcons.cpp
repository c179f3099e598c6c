#include "desktop/menu/DesktopMenuIcons.h"
#include "desktop/controls/DesktopIcons.h"
#include "station/session/MainRuntime.h"

namespace vantrel {

namespace {

struct ImageRow
{
    int Number;
    const char* File;
};

constexpr ImageRow Images[] = {
    {4, "save"},   {5, "delete"},     {7, "open"},  {9, "save-as"}, {12, "wizard"}, {13, "font"},
    {14, "field"}, {15, "alignment"}, {16, "page"}, {17, "about"},  {18, "color"},  {19, "camera"},
};

struct CaptionRow
{
    const char* Caption;
    int Number;
};

constexpr CaptionRow Captions[] = {
    {"&Open ...", 7},          {"&Open Layout", 7},     {"&Save", 4},
    {"Save &As", 9},           {"&Delete ...", 5},      {"&Delete", 5},
    {"&Delete Layout", 5},     {"Delete Page", 5},      {"&Delete Selected...", 5},
    {"Layout Wizard ...", 12}, {"Adjust Font ...", 13}, {"Adjust Data Field ...", 14},
    {"Alignment ...", 15},     {"Page ...", 16},        {"Adjust Text Color...", 18},
    {"Take Picture ...", 19},
};
constexpr int AboutNumber = 17;

} // namespace

int MenuIconNumber(const QString& caption)
{
    for (const CaptionRow& row : Captions) {
        if (caption == QLatin1StringView(row.Caption))
            return row.Number;
    }
    return caption == AboutCaption() ? AboutNumber : 0;
}

QIcon MenuIcon(int number)
{
    for (const ImageRow& row : Images) {
        if (row.Number == number)
            return DrawnIcon(QStringLiteral("menu-") + QLatin1StringView(row.File));
    }
    return {};
}

} // namespace vantrel
