#pragma once

#include "card/CardObject.h"
#include "card/CardRemark.h"
#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

namespace vantrel {

/// What a check of a page finds.
enum class FindingKind {
    TextLeavesBox,
    TextLeavesCard,
    PictureMissing,
    PictureCoarse,
    CodeTooFine,
    CodeImpossible,
    TrackImpossible,
    TrackCharacters,
    TrackLength,
    FontMissing,
    ContrastLow,
};
inline constexpr int FindingKindCount = 11;

/// Whether a card comes out wrong, or only worse than it could.
enum class FindingWeight { Error, Warning };

/// What is known of a kind of finding.
struct FindingRow
{
    FindingKind Kind;
    /// For programs, such as "text-leaves-box".
    QLatin1StringView Word;
    FindingWeight Weight;
};

const FindingRow& RowOf(FindingKind kind);
/// "error" or "warning".
QLatin1StringView WordOf(FindingWeight weight);

/// An object by its place on its page.
struct ObjectKey
{
    vantrel::Family Family = vantrel::Family::lbl_TEXT;
    int Index = 0;

    friend bool operator==(const ObjectKey&, const ObjectKey&) = default;
};

/// One thing on a page that does not print as it should.
struct Finding
{
    FindingKind Kind = FindingKind::TextLeavesBox;
    /// The page, from 1; 0 if it is not known yet.
    std::int16_t Page = 0;
    /// Nothing for what belongs to the page as a whole.
    std::optional<ObjectKey> Object = {};
    /// The object's name, a track or the background, such as "Data Field 1".
    QString Where = {};
    /// A plain text without a full stop, such as "The text leaves its box". Names nothing of the
    /// record.
    QString What = {};
    /// What is exactly so, such as the characters that a track cannot hold; may name values of the
    /// record, and may be empty.
    QString Detail = {};
    /// What to do about it, as a sentence.
    QString Advice = {};

    friend bool operator==(const Finding&, const Finding&) = default;
};

using Findings = std::vector<Finding>;

/// A finding on an object, with its name and without any text.
Finding FindingOn(const CardObject& object, FindingKind kind);

/// What an object is called in findings: "Data Field 1", "AutoNumber Field", "Static Text" and the
/// beginning of its text, "Image" and the name of its file, "Camera Image".
QString FindingNameOf(const CardObject& object);

/// The finding as it is told of a card that was printed: where and what, and why.
CardRemark RemarkOf(const Finding& finding);

} // namespace vantrel
