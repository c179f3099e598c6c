#include "station/layout/DrawObjects.h"
#include "base/Convert.h"
#include "card/CardDocument.h"
#include "card/Grips.h"
#include "drawing/PageCanvas.h"
#include <algorithm>
#include <limits>

namespace vantrel {

namespace {

/// Total margin added to the width of an automatic number, in twips.
constexpr double NumberMargin = 100;

void Place(CardObject& object, const ObjectBox& box)
{
    object.Top = static_cast<float>(box.cTop);
    object.Left = static_cast<float>(box.cLeft);
    object.Height = static_cast<float>(box.cHeight);
    object.Width = static_cast<float>(box.cWidth);
}

CardObject& Finish(CardDocument& document, CardObject& object)
{
    object.Visible = true;
    ShowHandles(document, false);
    return object;
}

/// Sets the properties common to all texts. They are always transparent and left aligned at first.
void DressText(const CardDocument& document, CardObject& object, const ObjectBox& box,
               const TextLooks& looks)
{
    Place(object, box);
    object.BorderStyle = looks.cBorderStyle;
    object.Appearance = looks.cAppearance;
    object.Alignment = 0;
    object.BackStyle = 0;
    object.SetFont(document.DefaultFont.value_or(looks.cFont));
    object.BackColor = looks.cBackColor;
    object.ForeColor = looks.cForeColor;
}

CardObject& NewImage(CardDocument& document, Family family, const ObjectBox& box,
                     const QString& tag, const Picture& picture)
{
    CardObject& object = document.Add(family);
    object.Tag = tag;
    Place(object, box);
    object.Stretch = true;
    object.Picture = picture;
    return Finish(document, object);
}

std::int16_t LargerOf(std::int16_t soFar, std::int32_t length)
{
    constexpr std::int32_t most = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::max<std::int32_t>(soFar, std::min(length, most)));
}

} // namespace

CardObject& Draw_DataField(CardDocument& document, std::int16_t FieldIndex, const ObjectBox& box,
                           const TextLooks& looks)
{
    CardObject& object = document.Add(Family::lbl_DATA);
    const QString number = QString::number(FieldIndex);
    object.DataField = number;
    object.DataMember = BooleanText(false);
    DressText(document, object, box, looks);
    object.SetCaption(QStringLiteral("Data Field ") + number);
    object.LinkItem = Marker::DataField;
    return Finish(document, object);
}

CardObject& Draw_Label(CardDocument& document, const ObjectBox& box, const TextLooks& looks)
{
    CardObject& object = document.Add(Family::lbl_TEXT);
    DressText(document, object, box, looks);
    object.SetCaption(looks.cCaption.isEmpty()
                          ? QStringLiteral("Static Text %1").arg(object.Index())
                          : looks.cCaption);
    object.LinkItem = Marker::StaticText;
    return Finish(document, object);
}

CardObject& Draw_AutoNumber(CardDocument& document, double cSeed, const ObjectBox& box,
                            const TextLooks& looks)
{
    CardObject& object = document.Add(Family::lbl_AUTO);
    object.DataField = NumberText(cSeed);
    DressText(document, object, box, looks);
    object.SetCaption(looks.cCaption.isEmpty() ? object.DataField : looks.cCaption);
    object.LinkItem = Marker::AutoNumber;
    // Measured in the form's default font instead of the object's font.
    const double textWidth = PageCanvas::TextWidth(object.Caption(), Font());
    if (textWidth > static_cast<double>(object.Width))
        object.Width = static_cast<float>(textWidth + NumberMargin);
    return Finish(document, object);
}

CardObject& Draw_Image(CardDocument& document, const ObjectBox& box, std::int16_t /*cBorderStyle*/,
                       const Picture& cPicture, bool /*cVisible*/, const QString& sPath)
{
    return NewImage(document, Family::img_LXV, box, sPath, cPicture);
}

CardObject& Draw_CamView(CardDocument& document, const ObjectBox& box,
                         std::int16_t /*cBorderStyle*/, const Picture& cPicture, bool /*cVisible*/,
                         const QString& /*sPath*/)
{
    CardObject& object = NewImage(document, Family::img_CAM, box, Marker::Camera,
                                  cPicture.HasHandle() ? cPicture : CameraPlaceholder());
    document.CamHeight = LargerOf(document.CamHeight, box.cHeight);
    document.CamWidth = LargerOf(document.CamWidth, box.cWidth);
    return object;
}

void KeepCameraProportions(const CardDocument& document)
{
    for (int index = 1; index <= document.HighestIndex(Family::img_CAM); ++index) {
        CardObject* image = document.Find(Family::img_CAM, index);
        if (image != nullptr && image->Fit == PictureFit::Stretched)
            image->Fit = PictureFit::Filled;
    }
}

bool DetectCamImages(const CardDocument& document)
{
    const auto& objects = document.Objects();
    return std::any_of(objects.begin(), objects.end(), [](const auto& object) {
        return object->IsImage() && object->Tag == Marker::Camera;
    });
}

} // namespace vantrel
