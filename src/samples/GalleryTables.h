#pragma once

#include "samples/DemoLayouts.h"
#include "samples/DemoRows.h"

/// The rows of the gallery: one layout for each common kind of card.
namespace vantrel::demo::gallery {

inline constexpr const char* StaffBadge = "Staff Badge";
inline constexpr const char* GiftCard = "Gift Card";
inline constexpr const char* LibraryCard = "Library Card";
inline constexpr const char* VisitorPass = "Visitor Pass";
inline constexpr const char* TransportPass = "Transport Pass";

// Stored colours, 0x00BBGGRR.
inline constexpr ColorValue White = ColorWhite;
inline constexpr ColorValue Ink = 0x332A22;
inline constexpr ColorValue Grey = 0x70645A;
inline constexpr ColorValue TealText = 0x706E0F;
inline constexpr ColorValue TealLight = 0xE6E2BC;
inline constexpr ColorValue PlumText = 0x4B1F5B;
inline constexpr ColorValue GoldText = 0x60B6E2;
inline constexpr ColorValue ForestText = 0x3A5123;
inline constexpr ColorValue OrangeText = 0x163AB9;
inline constexpr ColorValue OrangeLight = 0xE8F0FF;
inline constexpr ColorValue IndigoText = 0x8B3427;
inline constexpr ColorValue IndigoLight = 0xEBC9BD;

// clang-format off
inline constexpr ImageRow Images[] = {
    {StaffBadge, 1, DemoPicture::Portrait, 780, 850, 1500, 1996},
};

inline constexpr TextRow Texts[] = {
    {StaffBadge, 1, "Northgate Hospital", {130, 330, 2800, 340, 15, Weight::Bold, White, Align::Centre}},
    {StaffBadge, 1, "STAFF", {130, 4590, 2800, 210, 8.5, Weight::Bold, White, Align::Centre}},

    {GiftCard, 1, "GIFT CARD", {250, 260, 2300, 460, 19, Weight::Bold, White, Align::Left}},
    {GiftCard, 1, "Maple & Thread", {250, 2540, 2600, 280, 11, Weight::Regular, GoldText, Align::Left}},
    {GiftCard, 2, "CARD NUMBER", {250, 1160, 2400, 160, 5.5, Weight::Regular, Grey, Align::Left}},
    {GiftCard, 2, "VALUE", {3100, 1160, 1510, 160, 5.5, Weight::Regular, Grey, Align::Right}},
    {GiftCard, 2, "Good for anything in our shops and at maple-thread.example.", {250, 1960, 4300, 180, 6.5, Weight::Regular, Ink, Align::Left}},
    {GiftCard, 2, "Not for cash. Look after it as you would after money.", {250, 2160, 4300, 180, 6.5, Weight::Regular, Ink, Align::Left}},
    {GiftCard, 2, "Maple & Thread, 12 Mill Lane", {250, 2840, 4360, 160, 6, Weight::Regular, White, Align::Left}},

    {LibraryCard, 1, "Ashford Public Library", {1500, 250, 3150, 360, 14, Weight::Bold, ForestText, Align::Left}},
    {LibraryCard, 1, "Read. Borrow. Bring it back.", {1500, 620, 3150, 200, 7, Weight::Regular, Grey, Align::Left}},
    {LibraryCard, 1, "BORROWER", {1500, 1640, 3150, 160, 5.5, Weight::Regular, Grey, Align::Left}},
    {LibraryCard, 1, "NUMBER", {1500, 2370, 3150, 160, 5.5, Weight::Regular, Grey, Align::Left}},

    {VisitorPass, 1, "VISITOR", {210, 300, 1500, 340, 15, Weight::Bold, White, Align::Left}},
    {VisitorPass, 1, "Escort needed", {210, 2516, 900, 180, 6, Weight::Regular, OrangeLight, Align::Left}},
    {VisitorPass, 1, "VISITING", {2180, 1640, 2450, 160, 5.5, Weight::Regular, Grey, Align::Left}},
    {VisitorPass, 1, "VALID ON", {2180, 2270, 2450, 160, 5.5, Weight::Regular, Grey, Align::Left}},
    {VisitorPass, 2, "While you are here", {210, 120, 4400, 340, 13, Weight::Bold, White, Align::Left}},
    {VisitorPass, 2, "Wear this pass where it can be seen.", {210, 860, 4400, 210, 8, Weight::Regular, Ink, Align::Left}},
    {VisitorPass, 2, "Stay with the person you are visiting.", {210, 1300, 4400, 210, 8, Weight::Regular, Ink, Align::Left}},
    {VisitorPass, 2, "At an alarm, leave by the nearest exit and wait in the car park.", {210, 1740, 4400, 210, 8, Weight::Regular, Ink, Align::Left}},
    {VisitorPass, 2, "Please hand it back at the desk when you leave.", {210, 2180, 4400, 210, 8, Weight::Regular, Ink, Align::Left}},
    {VisitorPass, 2, "Emergency: dial 112", {210, 2850, 4400, 180, 7, Weight::Bold, White, Align::Left}},

    {TransportPass, 1, "CITY LINES", {250, 180, 2600, 420, 18, Weight::Bold, White, Align::Left}},
    {TransportPass, 1, "Day and month pass", {250, 590, 1500, 200, 7, Weight::Regular, IndigoLight, Align::Left}},
    {TransportPass, 1, "PASS NO.", {3700, 2120, 860, 160, 5.5, Weight::Regular, Grey, Align::Right}},
    {TransportPass, 1, "HOLDER", {300, 2120, 1800, 160, 5.5, Weight::Regular, Grey, Align::Left}},
    {TransportPass, 1, "ZONES", {2230, 2120, 1420, 160, 5.5, Weight::Regular, Grey, Align::Left}},
};

inline constexpr FieldRow Fields[] = {
    {StaffBadge, 1, 1, "", Digit::None, {130, 3100, 2800, 380, 15, Weight::Bold, Ink, Align::Centre}},
    {StaffBadge, 1, 2, "", Digit::None, {130, 3520, 2800, 280, 11, Weight::Regular, TealText, Align::Centre}},
    {StaffBadge, 1, 3, "No. ", Digit::None, {130, 4060, 2800, 230, 9, Weight::Regular, Grey, Align::Centre}},

    {GiftCard, 1, 1, "EUR ", Digit::None, {250, 1960, 2600, 480, 21, Weight::Bold, GoldText, Align::Left}},
    {GiftCard, 2, 2, "", Digit::None, {250, 1330, 2900, 300, 12, Weight::Bold, PlumText, Align::Left}},
    {GiftCard, 2, 1, "EUR ", Digit::None, {3100, 1330, 1510, 300, 12, Weight::Bold, PlumText, Align::Right}},

    {LibraryCard, 1, 1, "", Digit::None, {1500, 1800, 3150, 360, 14, Weight::Bold, Ink, Align::Left}},
    {LibraryCard, 1, 2, "", Digit::Codabar, {1500, 2530, 3150, 320, 13, Weight::Regular, ForestText, Align::Left}},

    {VisitorPass, 1, 1, "", Digit::None, {2180, 270, 2450, 440, 17, Weight::Bold, Ink, Align::Left}},
    {VisitorPass, 1, 2, "", Digit::None, {2180, 750, 2450, 280, 10.5, Weight::Regular, Grey, Align::Left}},
    {VisitorPass, 1, 3, "", Digit::None, {2180, 1800, 2450, 280, 10.5, Weight::Bold, OrangeText, Align::Left}},
    {VisitorPass, 1, 4, "", Digit::None, {2180, 2430, 2450, 280, 10.5, Weight::Bold, OrangeText, Align::Left}},

    {TransportPass, 1, 1, "", Digit::None, {300, 2290, 1880, 300, 12, Weight::Bold, Ink, Align::Left}},
    {TransportPass, 1, 2, "", Digit::None, {2230, 2290, 1420, 300, 12, Weight::Bold, IndigoText, Align::Left}},
    {TransportPass, 1, 3, "Valid to ", Digit::None, {300, 2610, 2900, 220, 8, Weight::Regular, Grey, Align::Left}},
};

inline constexpr NumberRow Numbers[] = {
    {TransportPass, 1, "500000", {3700, 2290, 860, 300, 12, Weight::Bold, IndigoText, Align::Right}},
};

inline constexpr PageRow Pages[] = {
    {StaffBadge, 1, true, DemoPicture::Badge, "", "", "", OrientationPortrait},
    {GiftCard, 1, true, DemoPicture::GiftFront, "", "", ""},
    {GiftCard, 2, true, DemoPicture::GiftBack, "DAT2~SEP~DAT1", "DAT2", "", OrientationLandscape, PrinterTypeCode::Fargo},
    {LibraryCard, 1, true, DemoPicture::Library, "", "", ""},
    {VisitorPass, 1, true, DemoPicture::PassFront, "", "", ""},
    {VisitorPass, 2, true, DemoPicture::PassBack, "", "", ""},
    {TransportPass, 1, true, DemoPicture::Transport, "", "", ""},
};
// clang-format on

} // namespace vantrel::demo::gallery

namespace vantrel::demo {
inline constexpr Samples GallerySamples{gallery::Images, gallery::Texts, gallery::Fields,
                                        gallery::Numbers, gallery::Pages};
} // namespace vantrel::demo
