#include "card/ObjectNames.h"
#include "card/CaptionFigure.h"
#include "card/CardObject.h"

namespace vantrel {

namespace {

QString FamilyKind(const CardObject& object)
{
    switch (object.Family()) {
    case Family::lbl_DATA:
        return QStringLiteral("Data Field");
    case Family::lbl_TEXT:
        return QStringLiteral("Static Text");
    case Family::lbl_AUTO:
        return QStringLiteral("Automatic Number");
    case Family::img_LXV:
        return QStringLiteral("Image");
    case Family::img_CAM:
        return QStringLiteral("Camera Image");
    case Family::picHandle:
        break;
    }
    return {};
}

} // namespace

QString ObjectKind(const CardObject& object)
{
    const QString kind = FamilyKind(object);
    if (!object.IsLabel() || !IsFigureFont(object.Font()))
        return kind;
    // The font's name is a word for codes or shapes, a blank and the name of the kind.
    const QString& font = object.Font().Name;
    const QString figure = font.sliced(font.indexOf(u' ') + 1);
    return object.Family() == Family::lbl_TEXT ? figure
                                               : QString(kind + QStringLiteral(" as ") + figure);
}

QString ObjectText(const CardObject& object)
{
    if (object.IsLabel())
        return IsShapeFont(object.Font()) ? QString() : object.Caption();
    if (object.Family() != Family::img_LXV)
        return {};
    // The name only: the beginning of a long path would tell nothing.
    const qsizetype folder = object.Tag.lastIndexOf(u'/');
    return object.Tag.sliced(folder + 1);
}

} // namespace vantrel
