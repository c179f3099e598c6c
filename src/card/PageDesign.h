#pragma once

#include "card/CardObject.h"
#include <map>
#include <memory>
#include <vector>

namespace vantrel {

class CardDocument;
struct LayoutParamsRecord;

/// An object of the card as it was designed. Pictures are left out: their paths name them.
struct ObjectDesign
{
    std::shared_ptr<const CardObject> Object;
    /// `CardDocument::Pours` when the object was taken. A caption that was taken before a later
    /// record was filled in is out of date.
    std::uint64_t Pours = 0;
    /// Whether the caption is kept; that of a field with a very long value is not.
    bool HasCaption = true;
};

/// The parameters of a page that its design consists of.
struct ParamsDesign
{
    QString PrinterDevice;
    std::int32_t PrinterOrientation = 0;
    std::int32_t PrinterType = 0;
    std::int16_t PrinterCopies = 0;
    bool Encode = false;
    QString Track1;
    QString Track2;
    QString Track3;
    QString BackImg1Path;
    QString BackImg2Path;

    friend bool operator==(const ParamsDesign&, const ParamsDesign&) = default;
};

ParamsDesign DesignOf(const LayoutParamsRecord& params);

/// A page as it was designed: its objects in stacking order and its parameters. What records
/// and printing change is no part of it: the values in the fields, camera pictures and the current
/// automatic numbers. Objects that two designs have in common share their memory.
struct PageDesign
{
    std::vector<ObjectDesign> Objects;
    ParamsDesign Params;
    /// The back image that is printed, and the size of the card, in twips. They follow the
    /// parameters.
    QString BackImage;
    float Width = 0;
    float Height = 0;
    /// The memory that only this design takes, about.
    std::size_t Bytes = 0;
};

/// Whether two objects are designed alike. Their indexes, values and numbers may differ.
bool SameDesign(const CardObject& one, const CardObject& other);
bool SameDesign(const PageDesign& one, const PageDesign& other);
/// Whether the page in memory is still designed like that.
bool HasDesign(const CardDocument& document, const LayoutParamsRecord& params,
               const PageDesign& design);

/// The highest current number that an automatic number was seen with.
struct NumberMark
{
    double Highest = 0;
    /// The operator has set the number, so what it was before does not count.
    bool WasSet = false;
};

/// The marks of automatic numbers, by the design keys of their objects.
using NumberMarks = std::map<qulonglong, NumberMark>;

/// Takes the design of the page. Each object must have a design key.
/// @param last  the design whose unchanged objects are shared; may be null
PageDesign TakeDesign(const CardDocument& document, const LayoutParamsRecord& params,
                      const PageDesign* last);

/// Gives the document's objects the keys of a design that they have, in their order.
void TakeKeys(const CardDocument& document, const PageDesign& design);
/// Raises the marks to the numbers that the document shows now.
void MarkNumbers(const CardDocument& document, NumberMarks& marks);
/// Marks a number that the operator has just set, perhaps to a lower one than it ever had.
void MarkSetNumber(const CardObject& number, NumberMarks& marks);

/// Makes the objects of the page those of a design. An object that is there already keeps its
/// value, number, picture and selection. A number that comes back continues behind the highest that
/// it ever had, or had since it was set.
/// @param camera  the picture of camera objects that come back
/// @return whether a field's value is out of date and the record must be filled in again
bool PutObjects(CardDocument& document, const PageDesign& design, const NumberMarks& marks,
                const Picture& camera);
/// Sets the parameters and the back image to those of a design, but not the size of the card.
void PutParams(CardDocument& document, LayoutParamsRecord& params, const PageDesign& design);

} // namespace vantrel
