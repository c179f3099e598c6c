#include "station/commands/InsertCommands.h"
#include "base/Skip.h"
#include "card/FreePlace.h"
#include "station/layout/DesignSelection.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "station/session/Session.h"

namespace vantrel {

namespace {

constexpr ObjectBox TextBox{.cTop = 200, .cLeft = 200, .cHeight = 300, .cWidth = 1500};
constexpr ObjectBox CodeBox{.cTop = 200, .cLeft = 200, .cHeight = 1200, .cWidth = 1200};
constexpr ObjectBox ShapeBox{.cTop = 200, .cLeft = 200, .cHeight = 600, .cWidth = 1800};
constexpr ObjectBox ImageBox{.cTop = 300, .cLeft = 300, .cHeight = 1500, .cWidth = 1000};
constexpr ObjectBox CameraBox{.cTop = 300, .cLeft = 300, .cHeight = 2000, .cWidth = 1500};
constexpr std::int16_t FirstField = 1;
constexpr double FirstNumber = 1.0;
constexpr std::int16_t NoBorder = 0;

/// An automatic number is raised before it is printed, so the first card gets number 1.
constexpr double BeforeFirstNumber = 0.0;

/// With design tools a new object comes in a free place and is selected, unless the mouse is
/// dragging another one.
void PlaceNew(Session& session, CardObject& object)
{
    CardDocument& document = session.Document;
    if (!session.Options.DesignTools)
        return;
    MoveToFreePlace(document, object);
    if (document.Drag.Mode == DragMode::None)
        SelectObjects(document, session.Face, {&object});
    document.Refresh();
}

/// Makes a label show a bar code or shape of that name instead of its text.
CardObject& AsFigure(CardObject& label, QLatin1StringView name)
{
    Font font = label.Font();
    font.Name = name;
    label.SetFont(font);
    return label;
}

template <typename Draw>
void Insert(Session& session, Draw draw)
{
    if (!session.CurrentLayoutName.isEmpty())
        Skip("insert object", [&] { PlaceNew(session, draw()); });
}

} // namespace

void InsertDataField(Session& session)
{
    Insert(session, [&]() -> CardObject& {
        CardDocument& document = OpenForm(session);
        const std::int16_t field =
            session.Options.DesignTools ? NextFreeField(document) : FirstField;
        return Draw_DataField(document, field, TextBox, {});
    });
}

void InsertCode(Session& session)
{
    Insert(session, [&]() -> CardObject& {
        CardDocument& document = OpenForm(session);
        CardObject& field = Draw_DataField(document, NextFreeField(document), CodeBox, {});
        return AsFigure(field, QLatin1StringView("Barcode QR Code"));
    });
}

void InsertShape(Session& session)
{
    Insert(session, [&]() -> CardObject& {
        return AsFigure(Draw_Label(OpenForm(session), ShapeBox, {}),
                        QLatin1StringView("Shape Rectangle"));
    });
}

void InsertText(Session& session)
{
    Insert(session, [&]() -> CardObject& { return Draw_Label(OpenForm(session), TextBox, {}); });
}

void InsertImage(Session& session)
{
    Insert(session, [&]() -> CardObject& {
        return Draw_Image(OpenForm(session), ImageBox, NoBorder, {}, true, {});
    });
}

void InsertCameraImage(Session& session)
{
    Insert(session, [&]() -> CardObject& {
        return Draw_CamView(OpenForm(session), CameraBox, NoBorder, {}, true, {});
    });
}

void InsertAutoNumber(Session& session)
{
    Insert(session, [&]() -> CardObject& {
        const double seed = session.Options.DesignTools ? BeforeFirstNumber : FirstNumber;
        return Draw_AutoNumber(OpenForm(session), seed, TextBox, {});
    });
}

} // namespace vantrel
