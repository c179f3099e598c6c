#pragma once

#include <QString>
#include <cstdint>
#include <functional>

namespace vantrel {

class FieldValues;

/// @file The formula of a magnetic track: tokens joined by "~". docs/track-formulas.md describes
/// the grammar.

/// Kinds of tokens, by the numbers in stored layouts.
enum class TokenKind : std::int32_t {
    DataField = 0,
    Literal = 1,
    Separator = 2,
    Mod10 = 3,
    Codabar = 4,
    Ebt = 5,
    /// Reserved for an automatic number; produces nothing.
    Auto = 6,
    /// A data field padded to a length; its value is not cleaned.
    FormattedField = 7,
};

/// One parsed token, before any check digit is computed.
struct TrackToken
{
    vantrel::TokenKind TokenKind = vantrel::TokenKind::DataField;
    /// For a data field its number, for a formatted field the text after "FD", otherwise "-1".
    QString TokenRef;
    /// Number of the data field, otherwise -1.
    std::int32_t TokenField = -1;
    /// The cleaned value of a data field, the text of a literal, otherwise empty.
    QString TokenValue;
};

/// Removes from a value the characters that could end a track early: blanks at both ends and the
/// control characters of the printers' command texts. "=", "%" and inner blanks stay.
QString CleanTrackData(const QString& value);

/// Parses one token. Its kind is determined by words found anywhere in it, so a literal that
/// contains such a word is read as another kind. A data field fails with `TypeMismatch` or
/// `Overflow` if its number is not a whole number that fits, with `SubscriptOutOfRange` if the
/// record has no such value.
TrackToken ParseTrackToken(const QString& token, const FieldValues& values);

/// Receives the text of each token, in its original case. For separators and AUTO tokens the text
/// is empty.
using TrackSink = std::function<void(TokenKind kind, const QString& text)>;

/// The most characters that the tokens of a formula may read from the record and produce in total.
/// A track holds about a hundred.
inline constexpr qsizetype LongestTrack = qsizetype{1} << 24;

/// Evaluates the tokens of a formula in order; each text is passed to `sink` before the next token
/// is read. Fails at the first invalid token: one that `ParseTrackToken` rejects, a formatted field
/// with fewer than four parts or without such a value, or a check digit over a text that its scheme
/// cannot read. Fails with `Overflow` beyond `LongestTrack`.
/// @param decimalSeparator  the machine's, used by the EBT check digit
void EvaluateTrack(const QString& trackText, const FieldValues& values, QChar decimalSeparator,
                   const TrackSink& sink);

} // namespace vantrel
