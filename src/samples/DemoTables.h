#pragma once

#include "samples/DemoLayouts.h"
#include "samples/DemoRows.h"

/// The rows of the demonstration layouts. Lengths are twips on a landscape card of 4860 by 3060.
namespace vantrel::demo {

inline constexpr const char* MemberCard = "Member Card";
inline constexpr const char* Visitor = "Visitor";

// Stored colours, 0x00BBGGRR.
inline constexpr ColorValue Navy = 0x4F3216;
inline constexpr ColorValue Brass = 0x1F6280;
inline constexpr ColorValue LightBrass = 0x7FC0DA;
inline constexpr ColorValue Grey = 0x70645A;
inline constexpr ColorValue White = ColorWhite;

inline constexpr TextRow Texts[] = {
    {MemberCard,
     1,
     "Lakeside Sailing Club",
     {900, 165, 3740, 360, 14.5, Weight::Bold, White, Align::Left}},
    {MemberCard,
     1,
     "M E M B E R   C A R D",
     {900, 535, 3740, 190, 6.5, Weight::Regular, LightBrass, Align::Left}},
    {MemberCard, 1, "MEMBER", {1660, 1160, 2980, 150, 5.5, Weight::Regular, Grey, Align::Left}},
    {MemberCard,
     1,
     "MEMBER NUMBER",
     {1660, 1745, 2980, 150, 5.5, Weight::Regular, Grey, Align::Left}},
    {MemberCard, 1, "MEMBERSHIP", {1660, 2330, 1800, 150, 5.5, Weight::Regular, Grey, Align::Left}},
    {MemberCard, 1, "CARD", {4000, 2330, 640, 150, 5.5, Weight::Regular, Grey, Align::Right}},
    {MemberCard,
     2,
     "This card is the property of Lakeside Sailing Club.",
     {220, 1000, 3100, 170, 6.25, Weight::Bold, Navy, Align::Left}},
    {MemberCard,
     2,
     "It is personal, cannot be passed on, and opens the",
     {220, 1200, 3100, 170, 6.25, Weight::Regular, Navy, Align::Left}},
    {MemberCard,
     2,
     "boathouse and the slipway to its holder. Show it",
     {220, 1370, 3100, 170, 6.25, Weight::Regular, Navy, Align::Left}},
    {MemberCard,
     2,
     "when asked. If you find it, please send it to the",
     {220, 1540, 3100, 170, 6.25, Weight::Regular, Navy, Align::Left}},
    {MemberCard,
     2,
     "address below: postage will be refunded.",
     {220, 1710, 3100, 170, 6.25, Weight::Regular, Navy, Align::Left}},
    {MemberCard, 2, "SIGNATURE", {220, 2470, 2700, 150, 5.5, Weight::Regular, Grey, Align::Left}},
    {MemberCard,
     2,
     "MEMBER NUMBER",
     {3100, 2470, 1540, 150, 5.5, Weight::Regular, Grey, Align::Right}},
    {MemberCard,
     2,
     "Lakeside Sailing Club, 7 Harbour Road, Lakeside",
     {220, 2840, 3000, 150, 6, Weight::Regular, White, Align::Left}},
    {MemberCard,
     2,
     "lakeside.example",
     {3240, 2840, 1400, 150, 6, Weight::Regular, LightBrass, Align::Right}},
    {Visitor, 1, "VISITOR", {2760, 300, 1880, 480, 20, Weight::Bold, Navy, Align::Right}},
};

inline constexpr FieldRow Fields[] = {
    {MemberCard,
     1,
     1,
     "",
     Digit::None,
     {1660, 1290, 2980, 340, 13, Weight::Bold, Navy, Align::Left}},
    {MemberCard,
     1,
     2,
     "No. ",
     Digit::Mod10,
     {1660, 1875, 2980, 280, 11, Weight::Regular, Navy, Align::Left}},
    {MemberCard,
     1,
     3,
     "",
     Digit::None,
     {1660, 2460, 1800, 280, 11, Weight::Bold, Brass, Align::Left}},
    {MemberCard,
     2,
     2,
     "No. ",
     Digit::Mod10,
     {3100, 2200, 1540, 220, 8.5, Weight::Bold, Navy, Align::Right}},
};

inline constexpr NumberRow Numbers[] = {
    {MemberCard, 1, "1000", {3840, 2505, 800, 220, 8.5, Weight::Regular, Navy, Align::Right}},
};

inline constexpr ImageRow Images[] = {
    {MemberCard, 1, DemoPicture::Portrait, 250, 1160, 1180, 1570},
};

/// The stripe belongs to the front, since each page is a separate job.
inline constexpr PageRow Pages[] = {
    {MemberCard, 1, true, DemoPicture::Front, "DAT1~SEP~DAT2~MOD10", "DAT2~MOD10", "FD0^12^0^2"},
    {MemberCard, 2, true, DemoPicture::Back, "", "", ""},
    // Dynamic fields exist until the page is loaded again, which a print does.
    {Visitor, 1, false, "", "", "", ""},
};

inline constexpr Samples MemberSamples{Images, Texts, Fields, Numbers, Pages};

} // namespace vantrel::demo
