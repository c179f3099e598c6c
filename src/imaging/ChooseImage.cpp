#include "imaging/ChooseImage.h"
#include "app/Session.h"
#include "layout/DesignSurface.h"
#include "platform/Skip.h"
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

void ChooseImage(Session& session, const QString& path)
{
    CardObject* image = SelectedImage(session.Document);
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
    AdjustHandles(session, *image);
}

} // namespace vantrel
