#include "station/compose/TrackElements.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "card/CheckDigits.h"
#include <QStringList>
#include <algorithm>

namespace vantrel {

namespace {

constexpr QLatin1Char TokenDelimiter('~');
constexpr QLatin1Char PartDelimiter('^');
constexpr QLatin1StringView DataFieldWord{"DAT"};
constexpr QLatin1StringView SeparatorWord{"SEP"};
constexpr QLatin1StringView AutoNumberWord{"AUTO"};
constexpr QLatin1StringView FormattedFieldWord{"FD"};
constexpr QLatin1StringView EmptyTextWord{"TEXT"};
constexpr QLatin1StringView AutoNumberKey{"ANUM="};
constexpr QLatin1StringView CurrentTextTip{"Current Text Value Is   :   "};

/// The part of its token that an element keeps.
enum class Kept { Token, Word, WithoutWord };

struct ReadRule
{
    QLatin1StringView Found;
    TokenKind Kind;
    Kept What;
    QLatin1StringView Word = {};
};

/// In the order of the search; the first word found decides the kind.
constexpr ReadRule ReadRules[] = {
    {DataFieldWord, TokenKind::DataField, Kept::Token},
    {SeparatorWord, TokenKind::Separator, Kept::Word, SeparatorWord},
    {QLatin1StringView{"MOD"}, TokenKind::Mod10, Kept::Word, WordMod10},
    {WordCodabar, TokenKind::Codabar, Kept::Word, WordCodabar},
    {WordEbt, TokenKind::Ebt, Kept::Word, WordEbt},
    {AutoNumberWord, TokenKind::Auto, Kept::Token},
    {FormattedFieldWord, TokenKind::FormattedField, Kept::WithoutWord},
};

/// Appearance of each kind, and whether it is written to the formula.
struct KindForm
{
    TokenKind Kind;
    QLatin1StringView Name;
    QLatin1StringView Caption;
    ColorValue BackColor;
    bool Written;
};

constexpr ColorValue Plain = 15566376;
constexpr ColorValue Marked = 12883333;

constexpr KindForm KindForms[] = {
    {TokenKind::DataField, QLatin1StringView{"Data Field"}, {}, Plain, true},
    {TokenKind::Literal, QLatin1StringView{"Static Text"}, QLatin1StringView{"ST"}, Marked, true},
    {TokenKind::Separator, QLatin1StringView{"Seperator"}, {}, Plain, true},
    {TokenKind::Mod10, QLatin1StringView{"Mod10 Check Digit"}, QLatin1StringView{"CD"}, Marked,
     false},
    {TokenKind::Codabar, QLatin1StringView{"CodaBar Check Digit"}, QLatin1StringView{"CD"}, Marked,
     false},
    {TokenKind::Ebt, QLatin1StringView{"EBT Check Digit"}, QLatin1StringView{"CD"}, Marked, false},
    {TokenKind::Auto, QLatin1StringView{"AutoNumber Field"}, {}, Plain, false},
    {TokenKind::FormattedField, QLatin1StringView{"Formatted Data Field"}, QLatin1StringView{"F"},
     Marked, true},
};

const KindForm& FormOf(TokenKind kind)
{
    const KindForm& form = KindForms[static_cast<std::size_t>(kind)];
    Q_ASSERT(form.Kind == kind);
    return form;
}

struct KeyRule
{
    QLatin1StringView Key;
    TokenKind Kind;
};

constexpr KeyRule KeyRules[] = {
    {SeparatorWord, TokenKind::Separator},
    {EmptyTextWord, TokenKind::Literal},
    {WordMod10, TokenKind::Mod10},
    {WordCodabar, TokenKind::Codabar},
    {WordEbt, TokenKind::Ebt},
    {FormattedFieldWord, TokenKind::FormattedField},
};

/// The kinds in the tree; "EBT" has no node.
constexpr KeyRule FixedNodes[] = {
    {SeparatorWord, TokenKind::Separator},
    {EmptyTextWord, TokenKind::Literal},
    {WordMod10, TokenKind::Mod10},
    {WordCodabar, TokenKind::Codabar},
    {FormattedFieldWord, TokenKind::FormattedField},
};

TrackElement ReadToken(const QString& token)
{
    for (const ReadRule& rule : ReadRules) {
        if (!token.contains(rule.Found))
            continue;
        switch (rule.What) {
        case Kept::Word:
            return MakeTrackElement(rule.Kind, rule.Word);
        case Kept::WithoutWord:
            return MakeTrackElement(rule.Kind, Without(token, rule.Found));
        case Kept::Token:
            return MakeTrackElement(rule.Kind, token);
        }
    }
    return MakeTrackElement(TokenKind::Literal, token);
}

QString NumberedNode(TokenKind kind, int number)
{
    return FormOf(kind).Name + QLatin1Char(' ') + QString::number(number);
}

QString MarkOf(const TrackElement& element)
{
    switch (element.Kind) {
    case TokenKind::DataField:
        return Without(element.LinkItem, DataFieldWord);
    case TokenKind::Separator:
        return QStringLiteral("|");
    case TokenKind::Auto:
        return QStringLiteral("++") + Without(element.LinkItem, AutoNumberWord);
    default:
        return {};
    }
}

} // namespace

TrackElement MakeTrackElement(TokenKind kind, const QString& text)
{
    const QString tip = text == EmptyTextWord ? CurrentTextTip + QStringLiteral("Empty") : text;
    return {kind, text, tip};
}

TrackElements ReadTrackElements(const QString& formula)
{
    TrackElements elements;
    if (formula.isEmpty())
        return elements;
    const QStringList tokens = formula.split(TokenDelimiter);
    for (const QString& token : tokens)
        elements.push_back(ReadToken(token));
    return elements;
}

QString WriteTrackElements(const TrackElements& elements)
{
    QString text;
    for (const TrackElement& element : elements) {
        if (!FormOf(element.Kind).Written)
            continue;
        if (element.Kind == TokenKind::FormattedField)
            text += FormattedFieldWord;
        text += element.LinkItem + TokenDelimiter;
    }
    if (text.endsWith(TokenDelimiter))
        text.chop(1);
    return text;
}

std::optional<TrackElement> TrackElementOfKey(const QString& key)
{
    for (const KeyRule& rule : KeyRules) {
        if (key == rule.Key)
            return MakeTrackElement(rule.Kind, key);
    }
    if (key.contains(DataFieldKey))
        return MakeTrackElement(TokenKind::DataField, DataFieldWord + RestOfKey(key, DataFieldKey));
    if (key.contains(AutoNumberKey))
        return MakeTrackElement(TokenKind::Auto, AutoNumberWord + RestOfKey(key, AutoNumberKey));
    return std::nullopt;
}

std::vector<ElementNode> TrackElementNodes(int fieldCount, int autoNumberCount)
{
    std::vector<ElementNode> nodes;
    for (const KeyRule& node : FixedNodes)
        nodes.push_back({FormOf(node.Kind).Name, node.Key});
    const int listed = std::min(fieldCount, MostValuesListed);
    for (int number = 1; number <= listed; ++number)
        nodes.push_back(
            {NumberedNode(TokenKind::DataField, number), DataFieldKey + QString::number(number)});
    for (int number = 1; number <= autoNumberCount; ++number)
        nodes.push_back(
            {NumberedNode(TokenKind::Auto, number), AutoNumberKey + QString::number(number)});
    for (ElementNode& node : nodes) {
        if (const auto element = TrackElementOfKey(node.Key))
            node.Look = LookOf(*element);
    }
    return nodes;
}

ElementLook LookOf(const TrackElement& element)
{
    const KindForm& form = FormOf(element.Kind);
    return {form.Caption, MarkOf(element), form.BackColor, ColorWhite,
            form.Name + QStringLiteral(": ") + element.LinkItem};
}

PadResult ReadPad(const QString& linkItem)
{
    const QStringList parts = linkItem.split(PartDelimiter);
    PadResult pad;
    pad.PadChars = parts.value(0);
    if (parts.size() > 1)
        Skip("read length", [&] { pad.PadLen = ToInteger(parts[1]); });
    if (parts.size() > 2)
        Skip("read direction", [&] { pad.PadDirection = ToLong(parts[2]); });
    return pad;
}

QString PadText(const PadResult& pad)
{
    const QStringList parts = {pad.PadChars, QString::number(pad.PadLen),
                               QString::number(pad.PadDirection), QString::number(pad.PadField)};
    return parts.join(PartDelimiter);
}

void SetStaticText(TrackElement& element, const QString& answer)
{
    if (answer.isEmpty())
        return;
    element.LinkItem = answer;
    element.ToolTipText = CurrentTextTip + answer;
}

} // namespace vantrel
