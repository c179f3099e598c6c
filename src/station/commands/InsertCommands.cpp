#include "station/commands/InsertCommands.h"
#include "base/Skip.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "station/session/Session.h"

namespace vantrel {

namespace {

constexpr ObjectBox TextBox{.cTop = 200, .cLeft = 200, .cHeight = 300, .cWidth = 1500};
constexpr ObjectBox ImageBox{.cTop = 300, .cLeft = 300, .cHeight = 1500, .cWidth = 1000};
constexpr ObjectBox CameraBox{.cTop = 300, .cLeft = 300, .cHeight = 2000, .cWidth = 1500};
constexpr std::int16_t FirstField = 1;
constexpr double FirstNumber = 1.0;
constexpr std::int16_t NoBorder = 0;

template <typename Draw>
void Insert(Session& session, Draw draw)
{
    if (!session.CurrentLayoutName.isEmpty())
        Skip("insert object", draw);
}

} // namespace

void InsertDataField(Session& session)
{
    Insert(session, [&] { Draw_DataField(OpenForm(session), FirstField, TextBox, {}); });
}

void InsertText(Session& session)
{
    Insert(session, [&] { Draw_Label(OpenForm(session), TextBox, {}); });
}

void InsertImage(Session& session)
{
    Insert(session, [&] { Draw_Image(OpenForm(session), ImageBox, NoBorder, {}, true, {}); });
}

void InsertCameraImage(Session& session)
{
    Insert(session, [&] { Draw_CamView(OpenForm(session), CameraBox, NoBorder, {}, true, {}); });
}

void InsertAutoNumber(Session& session)
{
    Insert(session, [&] { Draw_AutoNumber(OpenForm(session), FirstNumber, TextBox, {}); });
}

} // namespace vantrel
