#include "station/commands/ClipCommands.h"
#include "base/Skip.h"
#include "card/CheckDigits.h"
#include "card/Grips.h"
#include "card/ObjectArrange.h"
#include "drawing/PageCanvas.h"
#include "station/layout/DesignSelection.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "station/layout/RowToObject.h"
#include "station/session/Session.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

/// Most bytes that are read as copied objects.
constexpr qsizetype MostBytes = qsizetype{16} * 1024 * 1024;
/// How far beside an object its copy is put, in twips.
constexpr float BesideStep = 200;
/// The farthest from the card's corner that an object is put, in twips.
constexpr double Farthest = 100000;
constexpr ObjectBox PastedTextBox{.cTop = 200, .cLeft = 200, .cHeight = 300, .cWidth = 1500};
constexpr double TextMargin = 100;

/// A property of copied objects by its name.
struct LengthRow
{
    const char* Name;
    float CardObject::*Member;
};

constexpr LengthRow Lengths[] = {{"C_Left", &CardObject::Left},
                                 {"C_Top", &CardObject::Top},
                                 {"C_Width", &CardObject::Width},
                                 {"C_Height", &CardObject::Height}};

constexpr QLatin1StringView ExtrasName{"Extras"};

struct TextRow
{
    const char* Name;
    QString CardObject::*Member;
};

/// What the stored form of an object leaves out.
constexpr TextRow Texts[] = {{"Filter", &CardObject::Tag}, {"Affixes", &CardObject::ToolTipText}};

bool IsAtWork(const Session& session)
{
    return session.Options.DesignTools && session.Document.Drag.Mode == DragMode::None;
}

void DescribeText(const CardObject& object, QJsonObject& row)
{
    row.insert(QStringLiteral("Control_Type"), QString(Marker::LabelRow));
    if (object.Family() == Family::lbl_DATA) {
        row.insert(QStringLiteral("C_Param_1"), QString(Marker::DataFieldRow));
        row.insert(QStringLiteral("C_Param_3"), object.DataField);
    } else if (object.Family() == Family::lbl_AUTO) {
        row.insert(QStringLiteral("C_Param_1"), QString(Marker::AutoNumber));
        row.insert(QStringLiteral("C_Value"), object.DataField);
    } else {
        row.insert(QStringLiteral("C_Param_1"), QString(Marker::StaticTextRow));
        row.insert(QStringLiteral("C_Value"), object.Caption());
    }
    row.insert(QStringLiteral("C_UseMod10"), object.DataMember == WordMod10);
    row.insert(QStringLiteral("C_UseCodaBar"), object.DataMember == WordCodabar);
    row.insert(QStringLiteral("C_UseEBT"), object.DataMember == WordEbt);
    row.insert(QStringLiteral("C_Alignment"), object.Alignment);
    row.insert(QStringLiteral("C_ForeColor"), object.ForeColor);
    row.insert(QStringLiteral("C_BackColor"), object.BackColor);
    const Font& font = object.Font();
    row.insert(QStringLiteral("C_FontName"), font.Name);
    row.insert(QStringLiteral("C_FontSize"), font.Size);
    row.insert(QStringLiteral("C_FontBold"), font.Bold);
    row.insert(QStringLiteral("C_FontItalic"), font.Italic);
    row.insert(QStringLiteral("C_FontUnderline"), font.Underline);
    row.insert(QStringLiteral("C_FontStrikethrough"), font.Strikethrough);
    for (const TextRow& text : Texts)
        row.insert(QLatin1StringView(text.Name), object.*text.Member);
}

QJsonObject Describe(const CardObject& object)
{
    QJsonObject row;
    if (!object.Extras.isEmpty())
        row.insert(ExtrasName, object.Extras);
    for (const LengthRow& length : Lengths)
        row.insert(QLatin1StringView(length.Name), static_cast<double>(object.*length.Member));
    if (object.IsLabel()) {
        DescribeText(object, row);
        return row;
    }
    row.insert(QStringLiteral("Control_Type"), QString(Marker::ImageRow));
    if (object.Tag == Marker::Camera)
        row.insert(QStringLiteral("C_Param_1"), QString(Marker::Camera));
    else
        row.insert(QStringLiteral("C_ImagePath"), object.Tag);
    if (const QLatin1StringView word = WordOfFit(object.Fit); !word.isEmpty())
        row.insert(QStringLiteral("C_Param_2"), word);
    return row;
}

void TakeLengths(CardObject& object, const QJsonObject& row)
{
    for (const LengthRow& length : Lengths) {
        const double value = row.value(QLatin1StringView(length.Name)).toDouble();
        object.*length.Member = static_cast<float>(std::clamp(value, -Farthest, Farthest));
    }
    object.Width = std::max(object.Width, 0.0F);
    object.Height = std::max(object.Height, 0.0F);
}

void RestoreTexts(CardObject& object, const QJsonObject& row)
{
    for (const TextRow& text : Texts) {
        const QString value = row.value(QLatin1StringView(text.Name)).toString();
        // No object of the card may pass for a part of the designer.
        if (value != Marker::NotIncluded)
            object.*text.Member = value;
    }
}

/// Adds the object of a row on top of the page. @return null if the row describes none
CardObject* PasteRow(Session& session, const QJsonObject& row)
{
    CardDocument& document = OpenForm(session);
    const std::size_t before = document.Objects().size();
    const OwnFonts ownFonts(document);
    Skip("paste object", [&] {
        RowToObject(document, [&row](const QString& column) {
            const auto found = row.constFind(column);
            return found == row.constEnd() ? QVariant() : found->toVariant();
        });
    });
    if (document.Objects().size() == before)
        return nullptr;
    CardObject& object = *document.Objects().back();
    if (!object.IsContent()) {
        document.Remove(object);
        return nullptr;
    }
    TakeLengths(object, row);
    object.Extras = row.value(ExtrasName).toObject();
    if (object.Family() == Family::img_CAM && session.CameraImage.HasHandle())
        object.Picture = session.CameraImage;
    if (!object.IsLabel())
        return &object;
    RestoreTexts(object, row);
    return &object;
}

bool HasPlaceOf(const CardObject& one, const CardObject& other)
{
    return one.Family() == other.Family() && one.Left == other.Left && one.Top == other.Top;
}

/// Whether an object that is none of these stands where one of them does.
bool CoversAnother(const CardDocument& document, const std::vector<CardObject*>& pasted)
{
    return std::ranges::any_of(document.Objects(), [&](const auto& other) {
        return other->IsContent() && std::ranges::find(pasted, other.get()) == pasted.end() &&
               HasPlaceOf(*pasted.front(), *other);
    });
}

/// Puts pasted objects beside those that stand in the same place already.
void PutBeside(const CardDocument& document, const std::vector<CardObject*>& pasted)
{
    for (int step = 0; step < MostPasted && CoversAnother(document, pasted); ++step)
        MoveObjects(pasted, BesideStep, BesideStep);
}

void PasteRows(Session& session, const QJsonArray& rows)
{
    if (session.CurrentLayoutName.isEmpty() || !IsAtWork(session))
        return;
    std::vector<CardObject*> pasted;
    for (const auto& row : rows) {
        if (pasted.size() >= MostPasted)
            break;
        if (CardObject* object = PasteRow(session, row.toObject()))
            pasted.push_back(object);
    }
    if (pasted.empty())
        return;
    PutBeside(session.Document, pasted);
    SelectObjects(session.Document, session.Face, pasted);
}

QJsonArray DescribeSelected(const CardDocument& document)
{
    QJsonArray rows;
    for (const CardObject* object : SelectedObjects(document))
        rows.append(Describe(*object));
    return rows;
}

} // namespace

QByteArray CopySelected(Session& session)
{
    const QJsonArray rows = DescribeSelected(session.Document);
    return rows.isEmpty() || !IsAtWork(session)
               ? QByteArray()
               : QJsonDocument(rows).toJson(QJsonDocument::Compact);
}

QByteArray CutSelected(Session& session)
{
    QByteArray copied = CopySelected(session);
    if (copied.isEmpty())
        return copied;
    for (CardObject* object : SelectedObjects(session.Document))
        session.Document.Remove(*object);
    ShowHandles(session.Document, false);
    return copied;
}

void PasteObjects(Session& session, const QByteArray& copied)
{
    if (copied.size() <= MostBytes)
        PasteRows(session, QJsonDocument::fromJson(copied).array());
}

void PasteText(Session& session, const QString& text)
{
    if (text.isEmpty() || session.CurrentLayoutName.isEmpty() || !IsAtWork(session))
        return;
    TextLooks looks;
    looks.cCaption = text.left(LongestPastedText);
    CardObject& object = Draw_Label(OpenForm(session), PastedTextBox, looks);
    PutBeside(session.Document, {&object});
    const double width = PageCanvas::TextWidth(object.Caption(), object.Font()) + TextMargin;
    const double room = static_cast<double>(session.Document.Width - object.Left);
    object.Width =
        static_cast<float>(std::clamp(std::ceil(width), static_cast<double>(object.Width),
                                      std::max(room, static_cast<double>(object.Width))));
    SelectObjects(session.Document, session.Face, {&object});
}

void DuplicateSelected(Session& session)
{
    PasteRows(session, DescribeSelected(session.Document));
}

QJsonObject DescribeObject(const CardObject& object)
{
    return Describe(object);
}

CardObject* AddDescribedObject(Session& session, const QJsonObject& described)
{
    return PasteRow(session, described);
}

} // namespace vantrel
