#include "station/layout/ObjectMenu.h"
#include "card/CheckDigits.h"
#include "station/session/Session.h"

namespace vantrel {

namespace {

constexpr ObjectEntry ShownForLabels[] = {ObjectEntry::s250,          ObjectEntry::mnuAlighment,
                                          ObjectEntry::mnuColors,     ObjectEntry::cmdSetFont,
                                          ObjectEntry::mnuDataFields, ObjectEntry::cmdPreSuffix,
                                          ObjectEntry::mnuCheckDigits};

constexpr ObjectEntry ShownForValues[] = {ObjectEntry::cmdFilters, ObjectEntry::cmdAdjustTextColor,
                                          ObjectEntry::fe4fy, ObjectEntry::cmdPreSuffix,
                                          ObjectEntry::ggd56456};

constexpr ObjectEntry HiddenForImages[] = {
    ObjectEntry::mnuDataFields, ObjectEntry::mnuCheckDigits, ObjectEntry::fe4fy,
    ObjectEntry::cmdFilters,    ObjectEntry::cmdPreSuffix,   ObjectEntry::ggd56456,
    ObjectEntry::mnuAlighment,  ObjectEntry::mnuColors,      ObjectEntry::cmdSetFont,
    ObjectEntry::cmdAdjustText, ObjectEntry::s250,           ObjectEntry::cmdAdjustTextColor};

/// The word of a check digit and the entries it ticks. `cmdAutoMod10` is cleared with the others
/// but never ticked.
struct TickRow
{
    QLatin1StringView Word;
    std::initializer_list<Tick> Ticks;
};

const TickRow TickRows[] = {
    {WordMod10, {Tick::cmdMod10}},
    {WordCodabar, {Tick::cmdCodaBar, Tick::cmdAutoCodaBar}},
    {WordEbt, {Tick::cmdEBTCheckDigit, Tick::cmdAutoEBT}},
};

constexpr Tick CheckDigitTicks[] = {Tick::cmdMod10,         Tick::cmdCodaBar,
                                    Tick::cmdEBTCheckDigit, Tick::cmdAutoMod10,
                                    Tick::cmdAutoCodaBar,   Tick::cmdAutoEBT};

/// The ways in which an image draws its picture, and their ticks.
struct FitTick
{
    PictureFit Fit;
    Tick Entry;
};

constexpr FitTick FitTicks[] = {{PictureFit::Whole, Tick::cmdFitWhole},
                                {PictureFit::Filled, Tick::cmdFitFilled},
                                {PictureFit::Stretched, Tick::cmdFitStretched}};

template <typename Entries>
void SetVisible(StationFace& face, const Entries& entries, bool visible)
{
    for (const ObjectEntry entry : entries)
        face.SetEntryVisible(entry, visible);
}

void TickAlignment(StationFace& face, std::int16_t alignment)
{
    face.SetTick(Tick::cmdALeft, alignment == 0);
    face.SetTick(Tick::cmdARight, alignment == 1);
    face.SetTick(Tick::cmdACenter, alignment != 0 && alignment != 1);
}

void TickCheckDigit(StationFace& face, const QString& word)
{
    for (const TickRow& row : TickRows) {
        if (row.Word != word)
            continue;
        // Only the empty word clears the ticks; ticks of another word stay.
        for (const Tick tick : row.Ticks)
            face.SetTick(tick, true);
        return;
    }
    for (const Tick tick : CheckDigitTicks)
        face.SetTick(tick, false);
}

void ShapeForLabel(StationFace& face, const CardObject& object, const QString& family)
{
    SetVisible(face, ShownForLabels, true);
    face.SetEntryVisible(ObjectEntry::mnuImage, false);
    const bool isStatic = family == FamilyName(Family::lbl_TEXT);
    face.SetEntryVisible(ObjectEntry::cmdAdjustText, isStatic);
    if (isStatic) {
        face.SetEntryVisible(ObjectEntry::cmdFilters, false);
        return;
    }
    SetVisible(face, ShownForValues, true);
    TickAlignment(face, object.Alignment);
    TickCheckDigit(face, object.DataMember);
}

void ShapeForImage(StationFace& face, const CardObject& object)
{
    SetVisible(face, HiddenForImages, false);
    face.SetEntryVisible(ObjectEntry::mnuImage, true);
    face.SetEntryVisible(ObjectEntry::cmdChooseImage, object.Tag != Marker::Camera);
}

} // namespace

void UpdateObjectMenu(StationFace& face, const CardDocument& document, const CardObject& object)
{
    if (object.IsLabel())
        ShapeForLabel(face, object, document.SelectedFamily);
    else if (object.IsImage())
        ShapeForImage(face, object);
}

void TickObjectMenu(StationFace& face, const CardDocument& document)
{
    face.SetPropertiesEnabled(document.SelectedObject != nullptr);
    const CardObject* selected = document.SelectedObject;
    for (const auto& [fit, tick] : FitTicks) {
        const bool isOn = selected != nullptr && selected->IsImage() && selected->Fit == fit;
        if (face.IsTicked(tick) != isOn)
            face.SetTick(tick, isOn);
    }
}

} // namespace vantrel
