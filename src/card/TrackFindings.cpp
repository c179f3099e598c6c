#include "card/TrackFindings.h"
#include "base/Failure.h"
#include "base/NumberFormat.h"
#include "card/FieldValues.h"
#include "card/LayoutParamsRecord.h"
#include "card/PrinterType.h"
#include <array>

namespace vantrel {

namespace {

constexpr int TrackCount = 3;

constexpr std::array<TrackStandard, TrackCount> Standards = {{
    // The other characters of its set are reserved for the equipment.
    {79, QLatin1StringView{" #$()-./0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^"}},
    {40, QLatin1StringView{"0123456789="}},
    {107, QLatin1StringView{"0123456789="}},
}};

/// Forbidden characters that are named.
constexpr qsizetype MostNamed = 8;

Finding FindingOn(int track, FindingKind kind)
{
    return {.Kind = kind, .Where = QStringLiteral("Track %1").arg(track)};
}

/// The different characters of a text that a track cannot hold, some of them at most.
QString Forbidden(const QString& text, const TrackStandard& standard)
{
    QString found;
    for (const QChar character : text) {
        if (standard.Characters.contains(character) || found.contains(character))
            continue;
        found += character;
        if (found.size() == MostNamed)
            break;
    }
    return found;
}

/// The data of a track as far as it can be evaluated.
struct TrackData
{
    QString Body;
    /// Why it ends early; empty if it does not.
    QString Trouble;
};

TrackData DataOf(const StripeTrack& track, const QString& formula, const FieldValues& values)
{
    TrackData data;
    try {
        EvaluateTrack(formula, values, MachineDecimalSeparator(),
                      [&](TokenKind kind, const QString& text) {
                          data.Body += track.Text(kind, text).value_or(QString());
                      });
    } catch (const Failure& failure) {
        data.Trouble = failure.Text();
    }
    return data;
}

void AddFindings(const StripeTrack& track, const QString& formula, const FieldValues& values,
                 Findings& findings)
{
    const TrackData data = DataOf(track, formula, values);
    const TrackStandard& standard = StandardOf(track.Number());
    if (!data.Trouble.isEmpty() && values.Count() > 0) {
        Finding finding = FindingOn(track.Number(), FindingKind::TrackImpossible);
        finding.What = QStringLiteral("The data of the track cannot be made");
        finding.Detail = data.Trouble;
        finding.Advice =
            QStringLiteral("Look at its fields and check digits (Document, Magnetic Encoding).");
        findings.push_back(finding);
    }
    if (const QString forbidden = Forbidden(data.Body, standard); !forbidden.isEmpty()) {
        Finding finding = FindingOn(track.Number(), FindingKind::TrackCharacters);
        finding.What = QStringLiteral("The track holds characters that the standard forbids there");
        finding.Detail = forbidden;
        finding.Advice =
            track.Number() == 1
                ? QStringLiteral("Use capital letters without accents, digits, blanks and "
                                 "# $ ( ) - . / [ \\ ] only.")
                : QStringLiteral("Use digits only, with the separator between them.");
        findings.push_back(finding);
    }
    const qsizetype length = data.Body.size() + AddedToTrack;
    if (length > standard.Length) {
        Finding finding = FindingOn(track.Number(), FindingKind::TrackLength);
        finding.What = QStringLiteral("The track is longer than the standard allows");
        finding.Detail = QStringLiteral("%1 characters of data").arg(data.Body.size());
        finding.Advice =
            QStringLiteral("Leave out %1 characters: of the track's %2 the printer adds %3.")
                .arg(length - standard.Length)
                .arg(standard.Length)
                .arg(AddedToTrack);
        findings.push_back(finding);
    }
}

} // namespace

const TrackStandard& StandardOf(int track)
{
    return Standards.at(static_cast<std::size_t>(track - 1));
}

Findings FindingsOnTracks(const LayoutParamsRecord& params, const FieldValues& values)
{
    Findings findings;
    const StripeFamily* const family = PrinterTypeOf(params.PrinterType).Stripe;
    if (family == nullptr)
        return findings;
    const std::array<const QString*, TrackCount> formulas = {&params.Track1, &params.Track2,
                                                             &params.Track3};
    for (int number = 1; number <= TrackCount; ++number) {
        const QString& formula = *formulas.at(static_cast<std::size_t>(number - 1));
        if (!formula.isEmpty())
            AddFindings(StripeTrack(*family, number), formula, values, findings);
    }
    return findings;
}

} // namespace vantrel
