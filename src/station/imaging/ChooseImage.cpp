#include "station/imaging/ChooseImage.h"
#include "base/Skip.h"
#include "card/Grips.h"
#include "station/layout/DesignSurface.h"
#include "station/session/Session.h"
#include <QFileInfo>

namespace vantrel {

namespace {

CardObject* SelectedImage(const CardDocument& document)
{
    for (const Family family : {Family::img_LXV, Family::img_CAM}) {
        if (FamilyName(family) == document.SelectedFamily)
            return document.Find(family, document.SelectedIndex);
    }
    return nullptr;
}

/// Gives the selected image object the picture of a file. @return the object; null if nothing was
/// changed
CardObject* TakePictureOf(const CardDocument& document, const QString& path)
{
    CardObject* image = SelectedImage(document);
    if (image == nullptr || !QFileInfo(path).isFile())
        return nullptr;
    Picture picture;
    Skip("load picture", [&] { picture = LoadPicture(path); });
    if (!picture.HasHandle())
        return nullptr;
    image->Picture = picture;
    image->Tag = path;
    return image;
}

} // namespace

void ChooseImage(CardDocument& document, const QString& path)
{
    CardObject* image = TakePictureOf(document, path);
    if (image == nullptr)
        return;
    image->Width = static_cast<float>(image->Picture.WidthHundredths());
    image->Height = static_cast<float>(image->Picture.HeightHundredths());
    AdjustHandles(document, *image);
}

void ChooseImageForBox(CardDocument& document, const QString& path)
{
    CardObject* image = TakePictureOf(document, path);
    if (image == nullptr)
        return;
    image->IsRecordPicture = false;
    image->PictureProblem.clear();
    if (image->Fit == PictureFit::Stretched)
        image->Fit = PictureFit::Whole;
    AdjustHandles(document, *image);
}

} // namespace vantrel
