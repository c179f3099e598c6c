#include "card/PageDesign.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "card/CardDocument.h"
#include "card/CheckDigits.h"
#include "card/Grips.h"
#include "card/LayoutParamsRecord.h"
#include <algorithm>
#include <cmath>
#include <set>

namespace vantrel {

namespace {

/// The longest value of a field that is kept. A longer one is taken from the record again.
constexpr qsizetype LongestValue = 4096;
constexpr double FontDecimals = 10000;

bool ShowsValue(const CardObject& object)
{
    return object.Family() == Family::lbl_DATA || object.Family() == Family::lbl_AUTO;
}

/// The check digit's word as it is stored; other words count as none.
QString SchemeOf(const CardObject& object)
{
    const QString& word = object.DataMember;
    const bool isScheme = word == WordMod10 || word == WordCodabar || word == WordEbt;
    return isScheme ? word : QString();
}

/// Prefix and suffix; a field without them has an empty text or only what separates them.
QString AffixesOf(const CardObject& object)
{
    return object.ToolTipText == QLatin1String("\r") ? QString() : object.ToolTipText;
}

bool SameFont(const Font& one, const Font& other)
{
    // The store keeps four decimals.
    Font rounded = other;
    if (std::abs(one.Size - other.Size) * FontDecimals < 1)
        rounded.Size = one.Size;
    return one == rounded;
}

bool SameBox(const CardObject& one, const CardObject& other)
{
    return one.Left == other.Left && one.Top == other.Top && one.Width == other.Width &&
           one.Height == other.Height;
}

bool SameLooks(const CardObject& one, const CardObject& other)
{
    return one.Alignment == other.Alignment && one.BorderStyle == other.BorderStyle &&
           one.Appearance == other.Appearance && one.BackStyle == other.BackStyle &&
           one.BackColor == other.BackColor && one.ForeColor == other.ForeColor &&
           one.Visible == other.Visible && one.Stretch == other.Stretch && one.Fit == other.Fit &&
           one.Extras == other.Extras && (!one.IsLabel() || SameFont(one.Font(), other.Font()));
}

/// Whether both show the same text for the same record.
bool SameValue(const CardObject& one, const CardObject& other)
{
    return one.Tag == other.Tag && SchemeOf(one) == SchemeOf(other) &&
           AffixesOf(one) == AffixesOf(other) &&
           (one.Family() == Family::lbl_AUTO || one.DataField == other.DataField);
}

double NumberOf(const CardObject& object)
{
    double number = 0;
    Skip("number", [&] { number = ToDouble(object.DataField); });
    return number;
}

/// The highest number of the objects that a design does not have; 0 if there is none.
double HighestLeaving(const std::map<qulonglong, std::unique_ptr<CardObject>>& present,
                      const PageDesign& design)
{
    std::set<qulonglong> staying;
    for (const ObjectDesign& entry : design.Objects)
        staying.insert(entry.Object->DesignKey);
    double highest = 0;
    for (const auto& [key, object] : present) {
        if (object->Family() == Family::lbl_AUTO && !staying.contains(key))
            highest = std::max(highest, NumberOf(*object));
    }
    return highest;
}

std::size_t BytesOf(const CardObject& object)
{
    const qsizetype characters = object.Caption().size() + object.Tag.size() +
                                 object.LinkItem.size() + object.DataField.size() +
                                 object.DataMember.size() + object.ToolTipText.size();
    return sizeof(CardObject) + static_cast<std::size_t>(characters) * sizeof(QChar);
}

std::size_t BytesOf(const ParamsDesign& params)
{
    const qsizetype characters = params.PrinterDevice.size() + params.Track1.size() +
                                 params.Track2.size() + params.Track3.size() +
                                 params.BackImg1Path.size() + params.BackImg2Path.size();
    return static_cast<std::size_t>(characters) * sizeof(QChar);
}

ObjectDesign Take(const CardObject& object, std::uint64_t pours)
{
    auto taken = std::make_shared<CardObject>(object);
    taken->Picture = {};
    taken->IsRecordPicture = false;
    taken->PictureProblem.clear();
    const bool keepsCaption = !ShowsValue(object) || object.Caption().size() <= LongestValue;
    if (!keepsCaption)
        taken->SetCaption(QString());
    return {std::move(taken), pours, keepsCaption};
}

/// Gives a number that is on the page the state that printing has brought it to.
void KeepNumber(CardObject& number, const CardObject& now)
{
    number.StoreKey = now.StoreKey;
    const bool isSame = number.DataField == now.DataField;
    number.DataField = now.DataField;
    if (SameValue(number, now))
        number.TakeCaption(now);
    else if (!isSame)
        number.SetCaption(now.DataField);
}

/// @param least  the highest number of those that leave the page: the one that comes back may be
/// the same, loaded again
void BringBackNumber(CardObject& number, const NumberMarks& marks, double least)
{
    const auto found = marks.find(number.DesignKey);
    const NumberMark mark = found == marks.end() ? NumberMark() : found->second;
    const double highest = std::max(least, mark.Highest);
    if (mark.WasSet ? highest == NumberOf(number) : highest <= NumberOf(number))
        return;
    number.DataField = NumberText(highest);
    number.SetCaption(number.DataField);
}

/// A word or a text that means the same can be written in two ways; the page's own is kept.
void KeepSpelling(CardObject& object, const CardObject& now)
{
    if (SchemeOf(object) == SchemeOf(now))
        object.DataMember = now.DataMember;
    if (AffixesOf(object) == AffixesOf(now))
        object.ToolTipText = now.ToolTipText;
}

/// @return whether the field's value is out of date
bool KeepValue(CardObject& field, const ObjectDesign& design, const CardObject* now,
               std::uint64_t pours)
{
    if (now != nullptr && SameValue(field, *now)) {
        field.TakeCaption(*now);
        return false;
    }
    return !design.HasCaption || design.Pours != pours;
}

void KeepPicture(CardObject& image, const CardObject* now, const Picture& camera)
{
    if (now != nullptr && now->Tag == image.Tag) {
        image.Picture = now->Picture;
        image.IsRecordPicture = now->IsRecordPicture;
        image.PictureProblem = now->PictureProblem;
    } else if (image.Family() == Family::img_CAM) {
        image.Picture = camera;
    } else {
        Skip("load image", [&] { image.Picture = LoadPicture(image.Tag); });
    }
}

/// The keys of the selected objects, the designer's own first.
std::vector<qulonglong> SelectedKeys(const CardDocument& document)
{
    std::vector<qulonglong> keys;
    if (document.SelectedObject == nullptr)
        return keys;
    keys.push_back(document.SelectedObject->DesignKey);
    for (const CardObject* object : document.AlsoSelected)
        keys.push_back(object->DesignKey);
    return keys;
}

void SelectKeys(CardDocument& document, const std::vector<qulonglong>& keys)
{
    std::map<qulonglong, CardObject*> byKey;
    for (const auto& object : document.Objects()) {
        if (object->IsContent())
            byKey[object->DesignKey] = object.get();
    }
    for (const qulonglong key : keys) {
        const auto found = byKey.find(key);
        if (found == byKey.end())
            continue;
        if (document.SelectedObject == nullptr) {
            document.SelectedObject = found->second;
            document.SelectedIndex = found->second->Index();
            document.SelectedFamily = FamilyName(found->second->Family());
        } else {
            document.AlsoSelected.push_back(found->second);
        }
    }
}

} // namespace

ParamsDesign DesignOf(const LayoutParamsRecord& params)
{
    return {params.PrinterDevice, params.PrinterOrientation,
            params.PrinterType,   params.PrinterCopies,
            params.Encode,        params.Track1,
            params.Track2,        params.Track3,
            params.BackImg1Path,  params.BackImg2Path};
}

bool SameDesign(const CardObject& one, const CardObject& other)
{
    return one.Family() == other.Family() && SameBox(one, other) && SameLooks(one, other) &&
           one.LinkItem == other.LinkItem && SameValue(one, other) &&
           (ShowsValue(one) || one.Caption() == other.Caption());
}

bool SameDesign(const PageDesign& one, const PageDesign& other)
{
    return one.Params == other.Params &&
           std::ranges::equal(one.Objects, other.Objects,
                              [](const ObjectDesign& a, const ObjectDesign& b) {
                                  return a.Object == b.Object || SameDesign(*a.Object, *b.Object);
                              });
}

bool HasDesign(const CardDocument& document, const LayoutParamsRecord& params,
               const PageDesign& design)
{
    auto expected = design.Objects.begin();
    for (const auto& object : document.Objects()) {
        if (!object->IsContent())
            continue;
        if (expected == design.Objects.end() || !SameDesign(*object, *expected->Object))
            return false;
        ++expected;
    }
    return expected == design.Objects.end() && DesignOf(params) == design.Params;
}

PageDesign TakeDesign(const CardDocument& document, const LayoutParamsRecord& params,
                      const PageDesign* last)
{
    std::map<qulonglong, const ObjectDesign*> known;
    if (last != nullptr) {
        for (const ObjectDesign& object : last->Objects)
            known[object.Object->DesignKey] = &object;
    }
    PageDesign design;
    design.Params = DesignOf(params);
    design.BackImage = document.Tag;
    design.Width = document.Width;
    design.Height = document.Height;
    design.Bytes = sizeof(PageDesign) + BytesOf(design.Params);
    for (const auto& object : document.Objects()) {
        if (!object->IsContent())
            continue;
        const auto before = known.find(object->DesignKey);
        if (before != known.end() && before->second->Object->Index() == object->Index() &&
            SameDesign(*object, *before->second->Object)) {
            design.Objects.push_back(*before->second);
        } else {
            design.Objects.push_back(Take(*object, document.Pours));
            design.Bytes += BytesOf(*design.Objects.back().Object);
        }
    }
    design.Bytes += design.Objects.size() * sizeof(ObjectDesign);
    return design;
}

void TakeKeys(const CardDocument& document, const PageDesign& design)
{
    auto from = design.Objects.begin();
    for (const auto& object : document.Objects()) {
        if (object->IsContent() && from != design.Objects.end())
            object->DesignKey = (from++)->Object->DesignKey;
    }
}

void MarkNumbers(const CardDocument& document, NumberMarks& marks)
{
    for (const auto& object : document.Objects()) {
        if (!object->IsContent() || object->Family() != Family::lbl_AUTO)
            continue;
        const double number = NumberOf(*object);
        const auto mark = marks.try_emplace(object->DesignKey, NumberMark{number}).first;
        mark->second.Highest = std::max(mark->second.Highest, number);
    }
}

void MarkSetNumber(const CardObject& number, NumberMarks& marks)
{
    marks[number.DesignKey] = {NumberOf(number), true};
}

bool PutObjects(CardDocument& document, const PageDesign& design, const NumberMarks& marks,
                const Picture& camera)
{
    const std::vector<qulonglong> selected = SelectedKeys(document);
    std::map<qulonglong, std::unique_ptr<CardObject>> present;
    std::map<qlonglong, qulonglong> rows;
    for (auto& object : document.TakeContent()) {
        if (object->StoreKey != 0)
            rows[object->StoreKey] = object->DesignKey;
        present[object->DesignKey] = std::move(object);
    }
    const double leaving = HighestLeaving(present, design);
    bool isOutOfDate = false;
    std::vector<std::unique_ptr<CardObject>> content;
    for (const ObjectDesign& entry : design.Objects) {
        CardObject object = *entry.Object;
        const auto found = present.find(object.DesignKey);
        const CardObject* now = found == present.end() ? nullptr : found->second.get();
        if (now != nullptr)
            KeepSpelling(object, *now);
        if (object.IsImage()) {
            KeepPicture(object, now, camera);
        } else if (object.Family() == Family::lbl_DATA) {
            isOutOfDate |= KeepValue(object, entry, now, document.Pours);
        } else if (object.Family() == Family::lbl_AUTO) {
            if (now != nullptr)
                KeepNumber(object, *now);
            else
                BringBackNumber(object, marks, leaving);
            const auto row = rows.find(object.StoreKey);
            if (row != rows.end() && row->second != object.DesignKey)
                object.StoreKey = 0;
        }
        // An object that stays keeps its place in memory, so that a dialog that is open for it
        // does not take another one for it.
        auto placed = found == present.end() ? std::make_unique<CardObject>(object)
                                             : std::move(found->second);
        *placed = object;
        content.push_back(std::move(placed));
        if (found != present.end())
            present.erase(found);
    }
    document.PutContent(std::move(content));
    SelectKeys(document, selected);
    if (document.SelectedObject != nullptr)
        AdjustHandles(document, *document.SelectedObject);
    else
        ShowHandles(document, false);
    return isOutOfDate;
}

void PutParams(CardDocument& document, LayoutParamsRecord& params, const PageDesign& design)
{
    const ParamsDesign& from = design.Params;
    params.PrinterDevice = from.PrinterDevice;
    params.PrinterOrientation = from.PrinterOrientation;
    params.PrinterType = from.PrinterType;
    params.PrinterCopies = from.PrinterCopies;
    params.Encode = from.Encode;
    params.Track1 = from.Track1;
    params.Track2 = from.Track2;
    params.Track3 = from.Track3;
    if (params.BackImg1Path != from.BackImg1Path) {
        params.BackImg1Path = from.BackImg1Path;
        params.BackImg1Picture = {};
        Skip("back image", [&] { params.BackImg1Picture = LoadPicture(from.BackImg1Path); });
    }
    params.BackImg2Path = from.BackImg2Path;
    document.Tag = design.BackImage;
}

} // namespace vantrel
