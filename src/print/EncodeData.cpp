#include "print/EncodeData.h"
#include "app/Session.h"
#include "platform/NumberFormat.h"
#include "platform/Printer.h"
#include "platform/Skip.h"
#include "print/OpeningFont.h"
#include "print/TrackFormula.h"
#include <array>
#include <optional>

namespace vantrel {

namespace {

enum class SentAs { Line, LineWithLength, LinePerToken };

using KindSet = unsigned;

constexpr KindSet Of(TokenKind kind)
{
    return 1U << static_cast<unsigned>(kind);
}

/// How one family of printers takes its stripe text. What is told per track is of track 1, 2, 3.
struct StripeFamily
{
    std::int32_t PrinterType;
    SentAs Form;
    /// What the line begins with; where each token has its own line, the name of the magnetic font.
    std::array<QStringView, 3> Heads;
    std::array<QChar, 3> Separators;
    QStringView Tail;
    /// Kinds of tokens that never reach this printer.
    KindSet Dropped;
};

constexpr std::array<QChar, 3> IsoSeparators = {u'^', u'=', u'='};

constexpr StripeFamily Families[] = {
    {PrinterTypeCode::Fargo,
     SentAs::Line,
     {u"~1%", u"~2;", u"~3;"},
     IsoSeparators,
     u"?",
     Of(TokenKind::Auto)},
    {PrinterTypeCode::Eltron,
     SentAs::Line,
     {u"${1", u"${2", u"${3"},
     {u'=', u'=', u'='},
     u"}$",
     Of(TokenKind::Auto)},
    {PrinterTypeCode::FontLongNames,
     SentAs::LinePerToken,
     {u"Track 1 - Magnetic stripe", u"Track 2 - Magnetic stripe", u"Track 3 - Magnetic stripe"},
     IsoSeparators,
     {},
     Of(TokenKind::Auto)},
    {PrinterTypeCode::FontShortNames,
     SentAs::LinePerToken,
     {u"Track 1", u"Track 2", u"Track 3"},
     IsoSeparators,
     {},
     Of(TokenKind::Auto)},
    {PrinterTypeCode::Nisca,
     SentAs::LineWithLength,
     {u"~@1,1", u"~@1,2", u"~@1,3"},
     IsoSeparators,
     {},
     Of(TokenKind::Auto) | Of(TokenKind::Literal) | Of(TokenKind::Codabar)},
};

const StripeFamily* FamilyOf(std::int32_t printerType)
{
    for (const StripeFamily& family : Families) {
        if (family.PrinterType == printerType)
            return &family;
    }
    return nullptr;
}

/// A family on one track.
struct Track
{
    const StripeFamily& Family;
    /// From 0.
    std::size_t Index;

    int Number() const { return static_cast<int>(Index) + 1; }

    QString Head() const { return Family.Heads[Index].toString(); }
    /// @return what a token becomes on this track; none where it is dropped
    std::optional<QString> Text(TokenKind kind, const QString& text) const;
    /// @return what the whole track sends on one line; of a magnetic font its data alone
    QString Line(const QString& body) const;
};

std::optional<QString> Track::Text(TokenKind kind, const QString& text) const
{
    if ((Family.Dropped & Of(kind)) != 0)
        return std::nullopt;
    switch (kind) {
    case TokenKind::Separator:
        return QString(Family.Separators[Index]);
    case TokenKind::DataField:
    case TokenKind::Literal:
        return text.toUpper();
    default:
        return text;
    }
}

QString Track::Line(const QString& body) const
{
    switch (Family.Form) {
    case SentAs::Line:
        return Head() + body + Family.Tail;
    case SentAs::LineWithLength:
        return QStringLiteral("%1,%2,%3").arg(Head(), QString::number(body.size()), body);
    case SentAs::LinePerToken:
        return body;
    }
    return {};
}

/// The magnetic font is chosen before the first token is evaluated; what fails leaves it chosen.
void PrintTokens(Session& session, const Track& track, const QString& trackText)
{
    Printer& printer = session.Printers.Current();
    printer.SetFontName(track.Head());
    EvaluateTrack(trackText, session.FieldValues, MachineDecimalSeparator(),
                  [&](TokenKind kind, const QString& text) {
                      if (const auto line = track.Text(kind, text))
                          printer.Print(*line);
                  });
    printer.SetFontName(OpeningFontName);
}

QString BodyOf(const Session& session, const Track& track, const QString& trackText)
{
    QString body;
    EvaluateTrack(trackText, session.FieldValues, MachineDecimalSeparator(),
                  [&](TokenKind kind, const QString& text) {
                      body += track.Text(kind, text).value_or(QString());
                  });
    return body;
}

/// A track without a single character is not sent: head and tail alone say nothing.
/// @param send  takes the line of a track that was evaluated to its end
template <typename Send>
void SendLine(Session& session, const Track& track, const QString& trackText, Send send)
{
    const QString body = BodyOf(session, track, trackText);
    if (!body.isEmpty())
        send(session.Printers.Current(), track.Line(body));
}

/// A station without a printer prints on nothing all the same: the track is evaluated first.
bool TravelsBesideThePage(Session& session, const Track& track)
{
    bool travels = false;
    Skip("channel of the stripe",
         [&] { travels = session.Printers.Current().CarriesStripe(track.Number()); });
    return travels;
}

} // namespace

void EncodeData(Session& session, const QString& trackText, int trackNumber)
{
    Q_ASSERT(trackNumber >= 1 && trackNumber <= 3);
    const StripeFamily* const family = FamilyOf(session.CurrentParams.PrinterType);
    if (family == nullptr) {
        EvaluateTrack(trackText, session.FieldValues, MachineDecimalSeparator(),
                      [](TokenKind, const QString&) {});
        return;
    }
    const Track track{*family, static_cast<std::size_t>(trackNumber - 1)};
    if (TravelsBesideThePage(session, track)) {
        SendLine(session, track, trackText, [&](Printer& printer, const QString& line) {
            printer.SendStripe(track.Number(), line);
        });
    } else if (family->Form == SentAs::LinePerToken) {
        PrintTokens(session, track, trackText);
    } else {
        SendLine(session, track, trackText,
                 [](Printer& printer, const QString& line) { printer.Print(line); });
    }
}

QString StripeBody(const Session& session, const QString& trackText, int trackNumber)
{
    Q_ASSERT(trackNumber >= 1 && trackNumber <= 3);
    const StripeFamily* const family = FamilyOf(session.CurrentParams.PrinterType);
    const Track track{family == nullptr ? Families[0] : *family,
                      static_cast<std::size_t>(trackNumber - 1)};
    return BodyOf(session, track, trackText);
}

} // namespace vantrel
