#include "station/compose/StreamElement.h"
#include "base/Convert.h"
#include "card/FieldValues.h"
#include <algorithm>

namespace vantrel {

namespace {

constexpr QLatin1StringView DataFieldWord{"DAT"};
constexpr QLatin1StringView TextWord{"TEXT"};
constexpr QLatin1StringView HexWord{"HEX"};
constexpr QLatin1StringView StartWord{"START"};
constexpr QLatin1StringView StopWord{"STOP"};
constexpr QLatin1StringView CarriageReturnWord{"CR"};
constexpr QLatin1StringView AutoNumberKey{"AUTO="};

constexpr ColorValue TemplateColor = 0xE6E6E6;
constexpr ColorValue FieldColor = 14129507;
constexpr ColorValue HexColor = 65535;
constexpr ColorValue AutoNumberColor = 12883333;

/// Name and appearance of each kind; `Tag` is empty if the element's tag also contains a number.
struct KindForm
{
    std::int32_t Kind;
    QLatin1StringView Tag;
    QLatin1StringView Name;
    QLatin1StringView Caption;
    ColorValue BackColor;
    bool HasText = false;
};

constexpr KindForm KindForms[] = {
    {StreamKind::DataField, {}, QLatin1StringView{"Data Field"}, {}, FieldColor},
    {StreamKind::Text, TextWord, QLatin1StringView{"Normal Text"}, {}, TemplateColor, true},
    {StreamKind::Hex, HexWord, QLatin1StringView{"Hex Codes"}, {}, HexColor, true},
    {StreamKind::Start, StartWord, QLatin1StringView{"Data Start"}, QLatin1StringView{"<"},
     TemplateColor},
    {StreamKind::Stop, StopWord, QLatin1StringView{"Data Stop"}, QLatin1StringView{">"},
     TemplateColor},
    {StreamKind::CarriageReturn, CarriageReturnWord, QLatin1StringView{"Carrage Return"},
     QLatin1StringView{"CR"}, TemplateColor},
    {StreamKind::AutoNumber,
     {},
     QLatin1StringView{"AutoNumber Field"},
     QLatin1StringView{"++"},
     AutoNumberColor},
};

const KindForm* FormOf(std::int32_t kind)
{
    for (const KindForm& form : KindForms) {
        if (form.Kind == kind)
            return &form;
    }
    return nullptr;
}

const KindForm* FormOfTag(const QString& tag)
{
    for (const KindForm& form : KindForms) {
        if (!form.Tag.isEmpty() && form.Tag == tag)
            return &form;
    }
    return nullptr;
}

/// The kinds in the tree. One of these kinds adds nothing when it is dropped.
constexpr struct
{
    QLatin1StringView Text;
    QLatin1StringView Key;
} FixedNodes[] = {
    {QLatin1StringView{"Normal Text"}, TextWord},
    {QLatin1StringView{"Data Start"}, StartWord},
    {QLatin1StringView{"Data Stop"}, StopWord},
    {QLatin1StringView{"Carrage Return"}, CarriageReturnWord},
    {QLatin1StringView{"Formatted Data Field"}, QLatin1StringView{"FD"}},
};

} // namespace

bool StreamElement::IsText() const
{
    return Tag == TextWord;
}

void StreamElement::SetText(const QString& text)
{
    LinkItem = text;
    ToolTipText = text;
}

StreamElement MakeStreamElement(std::int32_t kind, const QString& tag, const QString& link)
{
    StreamElement element;
    element.Kind = kind;
    if (!tag.isEmpty()) {
        element.Tag = tag;
        element.ToolTipText = tag;
    }
    if (!link.isEmpty())
        element.SetText(link);
    return element;
}

std::optional<StreamElement> StreamElementOf(const StoredStreamElement& stored)
{
    if (stored.ElementType.isNull())
        return std::nullopt;
    const std::int32_t kind = ToLong(stored.ElementType);
    const QString data = JoinedText(stored.ElementData);
    if (kind == StreamKind::DataField)
        return MakeStreamElement(kind, DataFieldWord + data, {});
    const KindForm* const form = FormOf(kind);
    if (form == nullptr || form->Tag.isEmpty())
        return std::nullopt;
    return MakeStreamElement(kind, form->Tag, form->HasText ? data : QString());
}

std::optional<StreamElement> StreamElementOfKey(const QString& key)
{
    if (const KindForm* const form = FormOfTag(key))
        return MakeStreamElement(form->Kind, form->Tag, {});
    if (key.contains(DataFieldKey))
        return MakeStreamElement(StreamKind::DataField,
                                 DataFieldWord + RestOfKey(key, DataFieldKey), {});
    if (key.contains(AutoNumberKey))
        return MakeStreamElement(StreamKind::AutoNumber, key, {});
    return std::nullopt;
}

std::vector<ElementNode> StreamElementNodes(const FieldValues& values)
{
    std::vector<ElementNode> nodes;
    for (const auto& node : FixedNodes)
        nodes.push_back({node.Text, node.Key});
    const int listed = std::min(values.Count(), MostValuesListed);
    for (int field = 1; field <= listed; ++field) {
        const QString number = QString::number(field);
        nodes.push_back({QStringLiteral("Data Field ") + number + QStringLiteral("        (") +
                             values.Item(field).left(LongestListed) + QLatin1Char(')'),
                         DataFieldKey + number});
    }
    for (ElementNode& node : nodes) {
        if (const auto element = StreamElementOfKey(node.Key))
            node.Look = LookOf(*element);
    }
    return nodes;
}

StoredStreamElement StoredFormOf(const StreamElement& element)
{
    const KindForm* const form = FormOfTag(element.Tag);
    if (form != nullptr && !form->HasText)
        return {form->Kind, {}};
    if (element.Tag.contains(DataFieldWord))
        return {StreamKind::DataField, Without(element.Tag, DataFieldWord)};
    if (element.Tag.contains(TextWord))
        return {StreamKind::Text, Without(element.LinkItem, TextWord)};
    if (element.Tag.contains(HexWord))
        return {StreamKind::Hex, Without(element.LinkItem, HexWord)};
    return {};
}

ElementLook LookOf(const StreamElement& element)
{
    const KindForm* const form = FormOf(element.Kind);
    if (form == nullptr)
        return {};
    ElementLook look{form->Caption, {}, form->BackColor, ColorBlack, form->Name};
    if (element.Kind == StreamKind::DataField)
        look.Caption = Without(element.Tag, DataFieldWord);
    if (form->HasText) {
        look.Mark = element.LinkItem.isEmpty() ? element.Tag : element.LinkItem;
        look.Name += QStringLiteral(": ") + element.LinkItem;
    } else if (element.Kind == StreamKind::DataField) {
        look.Name += QLatin1Char(' ') + look.Caption;
    }
    return look;
}

} // namespace vantrel
