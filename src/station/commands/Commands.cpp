#include "station/commands/Commands.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "ports/Launcher.h"
#include "station/capture/Ports.h"
#include "station/layout/DeleteLayout.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/FieldApplication.h"
#include "station/layout/LayoutParams.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/NewLayout.h"
#include "station/layout/Pages.h"
#include "station/layout/RecordPage.h"
#include "station/layout/SaveLayout.h"
#include "station/layout/StoredLayout.h"
#include "station/ledger/RecordRoad.h"
#include "station/print/PrintCard.h"
#include "station/session/MainRuntime.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include "station/session/Settings.h"

namespace vantrel {

namespace {

/// A menu tick with its flag and its key in the settings file.
struct StoredTick
{
    Tick Entry;
    bool StationSettings::*Flag;
    SettingNumber Key;
};

constexpr StoredTick DynamicLayoutsTick{Tick::cmdDynamicLayout, &StationSettings::DynamicLayouts,
                                        SettingNumber::DynamicLayouts};
constexpr StoredTick DynamicFieldsTick{Tick::chkAutoAdd, &StationSettings::DynamicFields,
                                       SettingNumber::DynamicFields};
constexpr StoredTick CaptureTick{Tick::cmdCapEnable, &StationSettings::CaptureEnabled,
                                 SettingNumber::CaptureEnabled};

/// The first session number whose exit does not close the launcher.
constexpr int FirstWorkerSession = 2;

bool FlipTick(StationFace& face, Tick tick)
{
    const bool on = !face.IsTicked(tick);
    face.SetTick(tick, on);
    return on;
}

/// What deleting the layout takes away.
QString DeleteLayoutQuestion(Session& session, const QString& name)
{
    if (!session.Options.DesignTools)
        return QStringLiteral("Are you sure you want to perminantly delete the layout named (") +
               name + QStringLiteral(") ?");
    return QStringLiteral("Delete the layout (") + name + QStringLiteral(") permanently?\r\n") +
           StoredExtent(session.LayoutDb, name);
}

QString ExitQuestion(const Session& session)
{
    if (!session.Options.DesignTools)
        return QStringLiteral("Closing Vantrel will disable it's ability to capture data.  \r\n"
                              "Are you sure this is what you want?");
    return QStringLiteral("Session %1 of Vantrel takes no records and prints no cards once it is "
                          "closed.\r\nClose it?")
        .arg(session.SessionNumber);
}

/// The buttons of a question about what cannot be undone.
AppMessageButtons DangerButtons(const Session& session)
{
    return session.Options.DesignTools ? AppMessageButtons::NoYes : AppMessageButtons::YesNo;
}

void FlipStored(Session& session, const StoredTick& tick)
{
    const bool on = FlipTick(session.Face, tick.Entry);
    session.Settings.*tick.Flag = on;
    SaveSetting(session, tick.Key, BooleanText(on));
}

} // namespace

void PrintCommand(Session& session)
{
    if (session.CurrentLayoutName.isEmpty() || !MayPrintStored(session))
        return;
    const RoadHold hold(session.Road);
    const RecordPage record(session);
    if (record.IsMissing()) {
        session.Operator.ShowAppMessage(record.WhyNone(), QStringLiteral("Nothing to Print"),
                                        AppMessageButtons::OkOnly);
        return;
    }
    {
        const RecordRoad road(session, {.Source = QStringLiteral("Operator")});
        NoteValues(session);
        PrintCard(session, record.Page());
    }
    if (session.Shows(record.Page()))
        ReapplyFieldValues(session);
}

void SaveCommand(Session& session)
{
    SaveLayout(session, SaveMessages::Shown);
}

void NewCommand(Session& session)
{
    if (!MayLeavePage(session))
        return;
    const QString name = session.Operator.InputBox(QStringLiteral("Enter Layout Name"),
                                                   QStringLiteral("New Layout"), QString());
    if (!MayTakeName(session, name))
        return;
    Skip("new layout", [&] { NewLayout(session, name); });
}

void DeleteLayoutCommand(Session& session)
{
    const QString name = session.CurrentLayoutName;
    if (name.isEmpty())
        return;
    if (session.Operator.ShowAppMessage(DeleteLayoutQuestion(session, name),
                                        QStringLiteral("Really Delete?"), DangerButtons(session)))
        Skip("delete layout", [&] { DeleteLayoutRows(session, name); });
}

void NewPageCommand(Session& session)
{
    if (!session.CurrentLayoutName.isEmpty() && MayLeavePage(session))
        NewPage(session);
}

void DeletePageCommand(Session& session)
{
    if (!session.CurrentLayoutName.isEmpty())
        DeletePage(session);
}

void CloseCommand(Session& session)
{
    if (!session.CurrentLayoutName.isEmpty() && MayLeavePage(session))
        CloseLayout(session);
}

void ToggleAutoSpool(Session& session)
{
    if (session.CurrentLayoutName.isEmpty())
        return;
    session.CurrentParams.AutoSpool = FlipTick(session.Face, Tick::chkAutoSpool);
    SaveLayoutParams(session.LayoutDb, session.CurrentLayoutName, session.CurrentParams);
    if (session.Options.DesignTools)
        SetAutoSpoolOfAllPages(session.LayoutDb, session.CurrentLayoutName,
                               session.CurrentParams.AutoSpool);
}

void ToggleDynamicFields(Session& session)
{
    FlipStored(session, DynamicFieldsTick);
}

void ToggleDynamicLayouts(Session& session)
{
    FlipStored(session, DynamicLayoutsTick);
}

void ToggleCapture(Session& session)
{
    FlipStored(session, CaptureTick);
    SwitchPorts(session, SwitchMode::All);
}

void ToggleVisible(Session& session)
{
    const bool visible = !session.Settings.MainVisible;
    session.Settings.MainVisible = visible;
    session.Face.NotifyVisibility(visible);
    session.Face.SetHideCaption(HideCaption(session.Settings));
    if (visible && !session.CurrentLayoutName.isEmpty())
        session.Document.Show();
    SaveSetting(session, SettingNumber::Visible, BooleanText(visible));
}

void ExitCommand(Session& session)
{
    if (!session.Operator.ShowAppMessage(ExitQuestion(session), QStringLiteral(" Disable Vantrel?"),
                                         DangerButtons(session)) ||
        !MayLeavePage(session))
        return;
    if (session.SessionNumber < FirstWorkerSession)
        PostCloseToLauncher(session.ProgramFolder);
    session.Face.NotifyExitConfirmed();
}

} // namespace vantrel
