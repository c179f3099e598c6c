#include "station/print/CardAsPrinted.h"
#include "base/Convert.h"
#include "base/NumberFormat.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "card/AutoNumber.h"
#include "card/CardDocument.h"
#include "card/FieldValues.h"
#include "card/PaintDocument.h"
#include "card/PourValues.h"
#include "card/PrinterType.h"
#include "drawing/PageCanvas.h"
#include "ledger/LedgerRows.h"
#include "printers/Printer.h"
#include "station/layout/PageDescription.h"
#include "station/layout/StoredNumbers.h"
#include "station/print/Serializer.h"
#include <QFileInfo>
#include <algorithm>

namespace vantrel {

namespace {

/// A plastic card, in twips.
constexpr float CardLong = 4860;
constexpr float CardShort = 3060;

/// Sets the number below the given one.
void SetNumbers(CardDocument& document, const QStringList& given)
{
    qsizetype next = 0;
    for (CardObject* number : NumbersOn(document)) {
        if (next == given.size())
            return;
        Skip("number", [&] { number->DataField = NumberText(ToDouble(given[next]) - 1); });
        ++next;
    }
}

/// The size of the card that the page was printed on. A page that reaches beyond a plastic card was
/// printed on something larger.
QSizeF SizeOf(const CardDocument& document, const LayoutParamsRecord& params)
{
    const PrinterTypeRow& type = PrinterTypeOf(params.PrinterType);
    if (type.Size == SizeSource::Fixed)
        return {type.FixedWidth, type.FixedHeight};
    float right = 0;
    float bottom = 0;
    for (const auto& object : document.Objects()) {
        if (object->IsContent()) {
            right = std::max(right, object->Left + object->Width);
            bottom = std::max(bottom, object->Top + object->Height);
        }
    }
    const bool upright = params.PrinterOrientation == OrientationPortrait && right <= CardShort;
    return {std::max(upright ? CardShort : CardLong, right),
            std::max(upright ? CardLong : CardShort, bottom)};
}

void NoteMissing(QStringList& missing, const QString& path)
{
    if (!path.isEmpty() && !QFileInfo(path).isFile() && !missing.contains(path))
        missing.append(path);
}

void NotePictures(CardAsPrinted& card, const CardDocument& document)
{
    NoteMissing(card.MissingPictures, document.Tag);
    for (const auto& object : document.Objects()) {
        if (!object->IsContent() || !object->IsImage())
            continue;
        if (object->Tag == Marker::Camera)
            card.HasCameraPicture = true;
        else if (!object->PictureProblem.isEmpty())
            card.MissingPictures.append(object->PictureProblem);
        else if (!object->IsRecordPicture)
            NoteMissing(card.MissingPictures, object->Tag);
    }
}

void NoteUses(CardAsPrinted& card, const CardDocument& document)
{
    for (int index = 1; index <= document.HighestIndex(Family::lbl_DATA); ++index) {
        const CardObject* field = document.Find(Family::lbl_DATA, index);
        if (field == nullptr)
            continue;
        const int value = field->DataField.toInt();
        card.Uses.push_back(
            {value, QStringLiteral("Data Field ") + QString::number(value), field->Caption()});
    }
}

QImage Drawn(CardDocument& document, const LayoutParamsRecord& params, QSize room)
{
    const QSizeF size = SizeOf(document, params);
    document.Width = static_cast<float>(size.width());
    document.Height = static_cast<float>(size.height());
    const double scale = std::min(room.width() / size.width(), room.height() / size.height());
    const QSize pixels = (size * scale).toSize().expandedTo({1, 1});
    QImage picture(pixels, QImage::Format_RGB32);
    picture.fill(Qt::white);
    Skip("draw card", [&] {
        const auto canvas = PageCanvas::OnImage(picture, scale);
        PaintDocument(document, params, *canvas);
        canvas->Finish();
    });
    return picture;
}

} // namespace

void BuildCard(const QString& page, const FieldValues& values, const LedgerCard& card,
               const PictureSource& pictures, CardDocument& document, LayoutParamsRecord& params)
{
    BuildPage(page, document, params);
    params.PageIndex = static_cast<std::int16_t>(card.Page);
    FillDataFields(document, values, MachineDecimalSeparator());
    FillRecordPictures(document, values, pictures);
    SetNumbers(document, card.Numbers);
}

CardAsPrinted DrawCardAsPrinted(const QString& page, const FieldValues& values,
                                const LedgerCard& card, const PictureSource& pictures, QSize room)
{
    CardAsPrinted printed;
    if (page.isEmpty())
        return printed;
    CardDocument document;
    document.Load();
    LayoutParamsRecord params;
    BuildCard(page, values, card, pictures, document, params);
    NoteUses(printed, document);
    if (PrinterTypeOf(params.PrinterType).Copy == CopyKind::SerializedPass) {
        printed.Line = RenderStream(StreamRows(page), params.Filter, values);
        return printed;
    }
    for (CardObject* number : NumbersOn(document))
        Skip("number", [&] { Increment_If_AutoNumber(*number); });
    FillCameraImages(document, {});
    NotePictures(printed, document);
    printed.Picture = Drawn(document, params, room);
    return printed;
}

} // namespace vantrel
