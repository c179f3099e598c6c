#pragma once

#include "card/FieldValues.h"
#include "card/TrackFormula.h"
#include <QString>
#include <array>
#include <optional>

namespace vantrel {

/// How a family of printers receives the text of a track: on one line, on one line with its length,
/// or each token on a line of its own.
enum class SentAs { Line, LineWithLength, LinePerToken };

/// A set of token kinds, one bit each.
using KindSet = unsigned;

constexpr KindSet Of(TokenKind kind)
{
    return 1U << static_cast<unsigned>(kind);
}

/// The format of one printer family's stripe text. Arrays hold one element each for tracks 1, 2 and
/// 3.
struct StripeFamily
{
    SentAs Form;
    /// The start of the line; if each token has a line of its own, the name of the magnetic font.
    std::array<QStringView, 3> Heads;
    std::array<QChar, 3> Separators;
    QStringView Tail;
    /// Kinds of tokens that are not sent to this printer.
    KindSet Dropped;
};

/// The families, named after the command languages or fonts of their drivers.
namespace StripeFamilies {
inline constexpr std::array<QChar, 3> IsoSeparators = {u'^', u'=', u'='};

inline constexpr StripeFamily Fargo = {
    SentAs::Line, {u"~1%", u"~2;", u"~3;"}, IsoSeparators, u"?", Of(TokenKind::Auto)};
inline constexpr StripeFamily Eltron = {
    SentAs::Line, {u"${1", u"${2", u"${3"}, {u'=', u'=', u'='}, u"}$", Of(TokenKind::Auto)};
inline constexpr StripeFamily FontLongNames = {
    SentAs::LinePerToken,
    {u"Track 1 - Magnetic stripe", u"Track 2 - Magnetic stripe", u"Track 3 - Magnetic stripe"},
    IsoSeparators,
    {},
    Of(TokenKind::Auto)};
inline constexpr StripeFamily FontShortNames = {SentAs::LinePerToken,
                                                {u"Track 1", u"Track 2", u"Track 3"},
                                                IsoSeparators,
                                                {},
                                                Of(TokenKind::Auto)};
inline constexpr StripeFamily Nisca = {SentAs::LineWithLength,
                                       {u"~@1,1", u"~@1,2", u"~@1,3"},
                                       IsoSeparators,
                                       {},
                                       Of(TokenKind::Auto) | Of(TokenKind::Literal) |
                                           Of(TokenKind::Codabar)};
} // namespace StripeFamilies

/// The stripe format of a family for one track.
class StripeTrack
{
public:
    /// @param number  the track, 1 to 3
    StripeTrack(const StripeFamily& family, int number);

    /// The track, 1 to 3.
    int Number() const { return static_cast<int>(m_index) + 1; }
    SentAs Form() const { return m_family.Form; }
    QString Head() const { return m_family.Heads[m_index].toString(); }
    /// @return the text of a token on this track; nothing if the token is dropped
    std::optional<QString> Text(TokenKind kind, const QString& text) const;
    /// @return the joined texts of all tokens of a formula. Fails like `EvaluateTrack`
    /// @param decimalSeparator  the machine's, used by the EBT check digit
    QString Body(const QString& formula, const FieldValues& values, QChar decimalSeparator) const;
    /// @return the line that is sent for the track; for a magnetic font the data only
    QString Line(const QString& body) const;

private:
    const StripeFamily& m_family;
    /// From 0.
    std::size_t m_index;
};

} // namespace vantrel
