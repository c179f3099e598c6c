#include "base/Profile.h"
#include "road/AccessBus.h"
#include "road/StationProcess.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

// The built station on a screen with a window manager that offers to close every window.

namespace vantrel::test {
namespace {

const QStringList Frame = {QStringLiteral("frame")};
/// A plain box is an alert.
const QStringList Dialog = {QStringLiteral("dialog"), QStringLiteral("alert")};

class WindowManager : public ::testing::Test
{
protected:
    WindowManager()
    {
        Folder.WithDatabase();
        BeginLayout(Folder.Session, QStringLiteral("Badge"));
        AddText(Folder.Session, QStringLiteral("Visitor"));
        SavePage(Folder.Session);
        EXPECT_TRUE(WriteProfileValue(SettingsPath(Folder.Session.ProgramFolder),
                                      SessionSection(Folder.Session), QStringLiteral("LastLayout"),
                                      QStringLiteral("Badge")));
        Bus.StartWindowManager();
        Station.emplace(Folder.Session.ProgramFolder,
                        StationStart{.Environment = Bus.Environment()});
        EXPECT_TRUE(Comes(Frame, ""))
            << Station->ErrorLines().join(QLatin1Char('\n')).toStdString();
    }

    /// The visible window of these roles whose caption begins like this.
    std::optional<Seen> Find(const QStringList& roles, const char* caption) const
    {
        for (const Seen& program : Bus.Programs()) {
            const QList<Seen> windows = program.Children();
            for (const Seen& window : windows) {
                if (roles.contains(window.Role()) &&
                    window.Name().startsWith(QLatin1StringView(caption)) && window.IsShowing())
                    return window;
            }
        }
        return std::nullopt;
    }
    bool Comes(const QStringList& roles, const char* caption) const
    {
        return EventsUntil([&] { return Find(roles, caption).has_value(); });
    }
    bool Goes(const char* caption) const
    {
        return EventsUntil([&] { return !Find(Dialog, caption).has_value(); });
    }
    bool GetsTheKeyboard(const char* caption) const
    {
        return EventsUntil([&] {
            const auto dialog = Find(Dialog, caption);
            return dialog && dialog->IsActive();
        });
    }
    static Seen Below(const Seen& place, const char* role, const char* name)
    {
        return place
            .Find([&](const Seen& seen) {
                return seen.Role() == QLatin1StringView(role) &&
                       seen.Name() == QLatin1StringView(name);
            })
            .value();
    }
    void Open(const char* entry, const char* caption) const
    {
        Below(Find(Frame, "").value(), "menu item", entry).Press();
        EXPECT_TRUE(GetsTheKeyboard(caption)) << caption;
    }
    void PressOn(const char* caption, const char* button) const
    {
        Below(Find(Dialog, caption).value(), "push button", button).Press();
    }

    AccessBus Bus;
    TestSession Folder{{QStringLiteral("Vantrel PDF")}};
    std::optional<StationProcess> Station;
};

TEST_F(WindowManager, CannotCloseThePrinterSelectionAndTheWizard)
{
    for (const auto& [entry, caption, leave] :
         {std::tuple("Printer Setup ...", "Printer Selection", "Close"),
          {"Layout Wizard ...", "Ostrand Card Design Wizard", "Cancel"}}) {
        Open(entry, caption);
        Bus.PressAltF4();
        // Keys take effect in their order: this one closes a window that can be closed.
        Open("Raw Input Data ...", " Viewing");
        Bus.PressAltF4();
        EXPECT_TRUE(Goes(" Viewing"));
        ASSERT_TRUE(Find(Dialog, caption).has_value()) << caption;
        PressOn(caption, leave);
        EXPECT_TRUE(Goes(caption));
    }
    EXPECT_TRUE(Station->IsRunning());
}

} // namespace
} // namespace vantrel::test
