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

} // namespace

void ChooseImage(CardDocument& document, const QString& path)
{
    CardObject* image = SelectedImage(document);
    if (image == nullptr || !QFileInfo(path).isFile())
        return;
    Picture picture;
    Skip("load picture", [&] { picture = LoadPicture(path); });
    if (!picture.HasHandle())
        return;
    image->Width = static_cast<float>(picture.WidthHundredths());
    image->Height = static_cast<float>(picture.HeightHundredths());
    image->Picture = picture;
    image->Tag = path;
    AdjustHandles(document, *image);
}

} // namespace vantrel
