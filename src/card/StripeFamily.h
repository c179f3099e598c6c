#pragma once

#include "card/FieldValues.h"
#include "card/TrackFormula.h"
#include <QString>
#include <array>
#include <optional>

namespace vantrel {

/// How a family of printers takes the text of a track.
enum class SentAs { Line, LineWithLength, LinePerToken };

/// A set of token kinds, one bit each.
using KindSet = unsigned;

constexpr KindSet Of(TokenKind kind)
{
    return 1U << static_cast<unsigned>(kind);
}

/// How one family of printers takes its stripe text. What stands per track is of track 1, 2, 3.
struct StripeFamily
{
    SentAs Form;
    /// What the line begins with; where each token has its own line, the name of the magnetic font.
    std::array<QStringView, 3> Heads;
    std::array<QChar, 3> Separators;
    QStringView Tail;
    /// Kinds of tokens that never reach this printer.
    KindSet Dropped;
};

/// The families, named after the command language or the fonts of their drivers.
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

/// A family on one track.
class StripeTrack
{
public:
    /// @param number  the track, 1 to 3
    StripeTrack(const StripeFamily& family, int number);

    int Number() const { return static_cast<int>(m_index) + 1; }
    SentAs Form() const { return m_family.Form; }
    QString Head() const { return m_family.Heads[m_index].toString(); }
    /// @return what a token becomes on this track; none where it is dropped
    std::optional<QString> Text(TokenKind kind, const QString& text) const;
    /// @return the texts of all tokens of a formula in a row. Fails like `EvaluateTrack`.
    /// @param decimalSeparator  that of the machine, by which the EBT digit goes
    QString Body(const QString& formula, const FieldValues& values, QChar decimalSeparator) const;
    /// @return what the whole track sends on one line; of a magnetic font its data alone
    QString Line(const QString& body) const;

private:
    const StripeFamily& m_family;
    /// From 0.
    std::size_t m_index;
};

} // namespace vantrel
