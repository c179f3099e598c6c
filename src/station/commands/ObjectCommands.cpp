#include "station/commands/ObjectCommands.h"
#include "base/Failure.h"
#include "base/Skip.h"
#include "card/CheckDigits.h"
#include "card/Grips.h"
#include "card/ObjectArrange.h"
#include "card/ObjectNames.h"
#include "station/layout/DesignSurface.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/PageKey.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"

namespace vantrel {

namespace {

constexpr double SizeStep = 0.1;
constexpr double Larger = 1;
constexpr double Smaller = -1;

/// The alignments by their numbers, and their ticks.
struct AlignmentRow
{
    std::int16_t Alignment;
    Tick Entry;
};

constexpr AlignmentRow LeftRow{0, Tick::cmdALeft};
constexpr AlignmentRow RightRow{1, Tick::cmdARight};
constexpr AlignmentRow CenterRow{2, Tick::cmdACenter};
constexpr AlignmentRow AlignmentRows[] = {LeftRow, RightRow, CenterRow};

constexpr Family ContentFamilies[] = {Family::lbl_DATA, Family::lbl_TEXT, Family::lbl_AUTO,
                                      Family::img_LXV, Family::img_CAM};

/// The object with the selected family and index, which stay set after the selection is cleared.
CardObject* NamedElement(const CardDocument& document)
{
    for (const Family family : ContentFamilies) {
        if (FamilyName(family) == document.SelectedFamily)
            return document.Find(family, document.SelectedIndex);
    }
    return nullptr;
}

CardObject& ElementOrFail(const CardDocument& document)
{
    CardObject* element = NamedElement(document);
    if (element == nullptr)
        throw Failure(FailureNumber::NoSuchElement, QStringLiteral("Control does not exist"));
    return *element;
}

CardObject& SelectedOrFail(const CardDocument& document)
{
    if (document.SelectedObject == nullptr)
        throw Failure(FailureNumber::ObjectNotSet, QStringLiteral("Object variable not set"));
    return *document.SelectedObject;
}

/// Asks the operator about the selected object. Records are processed while the dialog is open and
/// may delete the object, so `ask` must pass copies only. `take` is called with the answer if there
/// is one and the same object is still selected.
template <typename Ask, typename Take>
void AskForSelected(Session& session, Ask ask, Take take)
{
    const CardObject* before = &SelectedOrFail(session.Document);
    const auto answer = ask(*before);
    CardObject* now = session.Document.SelectedObject;
    if (!answer || now != before)
        return;
    take(*now, *answer);
    session.Document.Refresh();
}

void Resize(CardDocument& document, double direction)
{
    CardObject& object = ElementOrFail(document);
    ShowHandles(document, false);
    const double width = object.Width;
    const double height = object.Height;
    object.Width = static_cast<float>(width + direction * (width * SizeStep));
    object.Height = static_cast<float>(height + direction * (height * SizeStep));
    AdjustHandles(document, object);
}

void Align(CardDocument& document, StationFace& face, const AlignmentRow& chosen)
{
    for (const AlignmentRow& row : AlignmentRows)
        face.SetTick(row.Entry, row.Entry == chosen.Entry);
    if (CardObject* selected = document.SelectedObject) {
        selected->Alignment = chosen.Alignment;
        document.Refresh();
    }
}

/// A text that an operator has given; an empty one is none.
std::optional<QString> TextIfAny(const QString& text)
{
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

void ToggleOnSelected(Session& session, CheckDigitKind kind)
{
    ToggleCheckDigit(kind, ElementOrFail(session.Document));
    // The window may show the values as they would print.
    if (session.Options.DesignTools)
        session.Document.Refresh();
}

QLatin1StringView WordOf(CheckDigitKind kind)
{
    switch (kind) {
    case CheckDigitKind::Mod10:
        return WordMod10;
    case CheckDigitKind::Codabar:
        return WordCodabar;
    case CheckDigitKind::Ebt:
        return WordEbt;
    }
    return {};
}

QString NamesOfSelected(const CardDocument& document)
{
    return SpokenNames(SelectedObjects(document));
}

/// Asks with the names of what is deleted. A record may change the page or what is selected while
/// the question is open; the answer then does not apply.
bool MayDeleteSelected(Session& session)
{
    const std::vector<CardObject*> selected = SelectedObjects(session.Document);
    if (selected.empty())
        return false;
    const PageKey page = PageOnForm(session);
    const QString names = NamesOfSelected(session.Document);
    QString question = QStringLiteral("Delete ");
    if (selected.size() > 1)
        question += QStringLiteral("these %1 objects?\r\n").arg(selected.size()) + names;
    else
        question += names + QLatin1Char('?');
    return session.Operator.ShowAppMessage(question, QStringLiteral("Really Delete?"),
                                           AppMessageButtons::NoYes) &&
           PageOnForm(session) == page && SelectedObjects(session.Document) == selected &&
           NamesOfSelected(session.Document) == names;
}

/// The question as it stands where the design tools are off.
bool AskToDeleteSelected(Session& session)
{
    return session.Operator.AskYesNoCancel(
               QStringLiteral("Are you sure you want to delete the selected item?   "),
               QStringLiteral("Really Delete?")) == BoxAnswer::Yes;
}

std::vector<CardObject*> FieldsOf(const CardDocument& document)
{
    std::vector<CardObject*> fields;
    for (int index = 1; index <= document.HighestIndex(Family::lbl_DATA); ++index) {
        if (CardObject* field = document.Find(Family::lbl_DATA, index))
            fields.push_back(field);
    }
    return fields;
}

/// As `MayDeleteSelected`, for the data fields of the page.
bool MayDeleteFields(Session& session)
{
    const PageKey page = PageOnForm(session);
    const std::vector<CardObject*> fields = FieldsOf(session.Document);
    if (fields.empty())
        return false;
    const QString question =
        QStringLiteral("Delete all data fields of page %1 of the layout (").arg(page.Page) +
        page.LayoutName + QStringLiteral(")?\r\n") + SpokenNames(fields);
    return session.Operator.ShowAppMessage(question, QStringLiteral("Delete Fields?"),
                                           AppMessageButtons::NoYes) &&
           PageOnForm(session) == page && FieldsOf(session.Document) == fields;
}

bool AskToDeleteFields(Session& session)
{
    return session.Operator.AskYesNoCancel(
               QStringLiteral(
                   "Are you absolutely sure you want to delete all of the existing data fields?"),
               QStringLiteral("Delete Fields?")) == BoxAnswer::Yes;
}

} // namespace

void DeleteSelectedObject(Session& session)
{
    if (session.CurrentLayoutName.isEmpty())
        return;
    const bool isAgreed =
        session.Options.DesignTools ? MayDeleteSelected(session) : AskToDeleteSelected(session);
    if (!isAgreed || session.Document.SelectedObject == nullptr)
        return;
    for (CardObject* selected : SelectedObjects(session.Document))
        session.Document.Remove(*selected);
    Skip("hide grips", [&] { ShowHandles(session.Document, false); });
}

void DeleteAllFields(Session& session)
{
    if (session.CurrentLayoutName.isEmpty())
        return;
    const bool isAgreed =
        session.Options.DesignTools ? MayDeleteFields(session) : AskToDeleteFields(session);
    if (!isAgreed)
        return;
    for (CardObject* field : FieldsOf(session.Document))
        session.Document.Remove(*field);
    ShowHandles(session.Document, false);
}

void IncreaseSize(Session& session)
{
    Resize(session.Document, Larger);
}

void DecreaseSize(Session& session)
{
    Resize(session.Document, Smaller);
}

void ToggleCheckDigit(CheckDigitKind kind, CardObject& object)
{
    const QLatin1StringView word = WordOf(kind);
    object.DataMember = object.DataMember == word ? QString() : QString(word);
}

void ToggleMod10(Session& session)
{
    ToggleOnSelected(session, CheckDigitKind::Mod10);
}

void ToggleCodabar(Session& session)
{
    ToggleOnSelected(session, CheckDigitKind::Codabar);
}

void ToggleEbt(Session& session)
{
    ToggleOnSelected(session, CheckDigitKind::Ebt);
}

void AlignLeft(Session& session)
{
    Align(session.Document, session.Face, LeftRow);
}

void AlignRight(Session& session)
{
    Align(session.Document, session.Face, RightRow);
}

void AlignCenter(Session& session)
{
    Align(session.Document, session.Face, CenterRow);
}

void AdjustText(Session& session)
{
    AskForSelected(
        session,
        [&](const CardObject& object) {
            return TextIfAny(session.Operator.InputBox(
                QStringLiteral("Please enter the text you wish to display"), QString(),
                QString(object.Caption())));
        },
        [](CardObject& object, const QString& text) { object.SetCaption(text); });
}

void GiveText(CardDocument& document, int index, const QString& text)
{
    CardObject* const object = document.Find(Family::lbl_TEXT, index);
    const std::optional<QString> given = TextIfAny(text);
    if (object == nullptr || !object->IsContent() || !given)
        return;
    object->SetCaption(*given);
    document.Refresh();
}

void AdjustTextColor(Session& session)
{
    AskForSelected(
        session,
        [&](const CardObject& object) { return session.Operator.AskColor(object.ForeColor); },
        [](CardObject& object, ColorValue color) { object.ForeColor = color; });
}

void AdjustFont(Session& session)
{
    Skip("adjust font", [&] {
        AskForSelected(
            session,
            [&](const CardObject& object) { return session.Operator.AskFont(Font(object.Font())); },
            [](CardObject& object, const Font& font) { object.SetFont(font); });
    });
}

void ToggleVisibleOnCard(Session& session)
{
    session.Face.SetTick(Tick::cmdVisibleOnCard, !session.Face.IsTicked(Tick::cmdVisibleOnCard));
}

void ToggleShowValues(Session& session)
{
    session.Face.SetTick(Tick::cmdShowValues, !session.Face.IsTicked(Tick::cmdShowValues));
    session.Document.Refresh();
}

void ChooseDataField(Session& session, int position)
{
    CardObject* element = NamedElement(session.Document);
    if (element == nullptr)
        return;
    const QString& value = session.FieldValues.Item(position);
    element->DataField = QString::number(position);
    element->SetCaption(value.isEmpty() ? QStringLiteral("Data Field ") + element->DataField
                                        : value);
    session.Document.Refresh();
}

void ShowFieldData(Session& session)
{
    session.Document.SelectedFamily.clear();
    ShowHandles(session.Document, false);
    session.Operator.LetEventsRun();
    session.Face.AskPopUp(PopUp::mnuDataFields);
}

void ClearDataFields(Session& session)
{
    const CardDocument& document = session.Document;
    for (int index = 0; index <= document.HighestIndex(Family::lbl_DATA); ++index) {
        if (CardObject* field = document.Find(Family::lbl_DATA, index))
            field->SetCaption(QString());
    }
    session.Document.Refresh();
}

} // namespace vantrel
