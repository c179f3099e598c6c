#pragma once

#include <QString>
#include <cstdint>
#include <functional>

namespace vantrel {

class FieldValues;

/// @file The formula of a magnetic track: tokens joined by "~". docs/track-formulas.md is its
/// grammar.

/// What a token of a formula stands for; the numbers are those of the stored layouts.
enum class TokenKind : std::int32_t {
    DataField = 0,
    Literal = 1,
    Separator = 2,
    Mod10 = 3,
    Codabar = 4,
    Ebt = 5,
    /// Reserved for an automatic number; gives nothing.
    Auto = 6,
    /// A data field padded to a length, raw.
    FormattedField = 7,
};

/// One token as it is read, before a check digit is known.
struct TrackToken
{
    vantrel::TokenKind TokenKind = vantrel::TokenKind::DataField;
    /// Of a data field its number, of a formatted field the text behind "FD", else "-1".
    QString TokenRef;
    /// Number of the data field, else -1.
    std::int32_t TokenField = -1;
    /// The cleaned value of a data field, the text of a literal, else empty.
    QString TokenValue;
};

/// Takes off a value what would close a track early: blanks at both ends and the control characters
/// of the printers' command texts. "=", "%" and the blanks inside stay.
QString CleanTrackData(const QString& value);

/// Reads one token. Its kind is found by words looked for anywhere in it, so that a literal which
/// holds one of them is not a literal. A data field fails with `TypeMismatch` or `Overflow` where
/// its number is no whole number that fits, with `SubscriptOutOfRange` where the record has no such
/// value.
TrackToken ParseTrackToken(const QString& token, const FieldValues& values);

/// Takes what a token gives, in the case it was written in; of separators and AUTO tokens the text
/// is empty.
using TrackSink = std::function<void(TokenKind kind, const QString& text)>;

/// What the tokens of a formula may read of the record and give, in characters altogether. A track
/// holds about a hundred.
inline constexpr qsizetype LongestTrack = qsizetype{1} << 24;

/// Evaluates the tokens of a formula in order and hands each on before the next one is read. Fails
/// at the first token that fails: one `ParseTrackToken` fails for, a formatted field with fewer
/// than four parts or without such a value, a check digit over a text its scheme cannot read, and
/// with `Overflow` beyond `LongestTrack`.
/// @param decimalSeparator  that of the machine, by which the EBT digit goes
void EvaluateTrack(const QString& trackText, const FieldValues& values, QChar decimalSeparator,
                   const TrackSink& sink);

} // namespace vantrel
