#include "base/Profile.h"
#include "road/SeenWindows.h"
#include "road/StationProcess.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// Where a dialog is in the menus, and its caption.
struct DialogRow
{
    const char* Menu;
    const char* Submenu;
    const char* Entry;
    const char* Caption;
    /// The button that closes it; empty where the close box of its frame does.
    const char* Leave;
};

constexpr DialogRow Dialogs[] = {
    {"File", "New ...", "Layout Wizard ...", "Ostrand Card Design Wizard", "Cancel"},
    {"File", "Open ...", "Open Layout", " Select a layout", "Cancel"},
    {"File", "", "Printer Setup ...", "Printer Selection   (Layout Dependant)", "Close"},
    {"File", "", "Take Picture ...", "Image Capture", "Close"},
    {"File", "", "Generate Card Sequence", "Card Number Sequence Generator", "Cancel"},
    {"Document", "", "Magnetic Encoding ...", "Magnetic Track Encoding", "Cancel"},
    {"View", "", "Raw Input Data ...", " Viewing : ASCII Data", ""},
    {"View", "", "Buffered Input Data ...", "Document Generator", "Close"},
    {"Settings", "", "Data Settings ...", "Data Settings", "Cancel"},
    {"Settings", "", "Communication Settings ...", "Communication Settings", "Cancel"},
    {"Settings", "", "Define Macros ...", "Define Macros", "Close"},
    {"Help", "", "About Ostrand Vantrel v6.0", "About Ostrand Vantrel", "Ok"},
};

/// Roles of the controls that an operator can use.
const QStringList ControlRoles = {
    QStringLiteral("push button"), QStringLiteral("check box"), QStringLiteral("radio button"),
    QStringLiteral("text"),        QStringLiteral("entry"),     QStringLiteral("combo box"),
    QStringLiteral("list"),        QStringLiteral("tree"),      QStringLiteral("table"),
    QStringLiteral("tree table"),  QStringLiteral("list item"), QStringLiteral("spin button"),
    QStringLiteral("page tab"),    QStringLiteral("menu item"), QStringLiteral("table cell"),
};

/// The built station as a screen reader uses it: read over the accessibility bus and worked by its
/// actions.
class Accessibility : public ::testing::Test
{
protected:
    explicit Accessibility(bool designTools = false)
    {
        Folder.WithDatabase();
        BeginLayout(Folder.Session, QStringLiteral("Badge"));
        Folder.Session.CurrentParams.AutoSpool = false;
        AddField(Folder.Session, 1);
        AddText(Folder.Session, QStringLiteral("Visitor"), {1500, 300, 300, 1500});
        AddNumber(Folder.Session, 7, {2400, 300, 300, 1500});
        SavePage(Folder.Session);
        EXPECT_TRUE(WriteProfileValue(SettingsPath(Folder.Session.ProgramFolder),
                                      SessionSection(Folder.Session), QStringLiteral("LastLayout"),
                                      QStringLiteral("Badge")));
        if (designTools) {
            EXPECT_TRUE(WriteProfileValue(SettingsPath(Folder.Session.ProgramFolder),
                                          QStringLiteral("Station"), QStringLiteral("DesignTools"),
                                          QStringLiteral("True")));
            // Keys go to the window that it gives the keyboard.
            Bus.StartWindowManager();
        }
        Station.emplace(Folder.Session.ProgramFolder,
                        StationStart{.Environment = Bus.Environment()});
        EXPECT_TRUE(EventsUntil([this] { return FindMain().has_value(); }))
            << Station->ErrorLines().join(QLatin1Char('\n')).toStdString();
    }

    std::optional<Seen> FindMain() const { return Windows.Main(); }
    std::optional<Seen> FindDialog(const char* caption) const
    {
        return Windows.Dialog(QLatin1StringView(caption));
    }
    Seen MenuBar() const { return Windows.MenuBar(); }
    static Seen Menu(const Seen& parent, const char* caption)
    {
        return SeenWindows::Menu(parent, caption);
    }
    Seen Entry(const DialogRow& row) const
    {
        Seen menu = Menu(MenuBar(), row.Menu);
        if (*row.Submenu != '\0')
            menu = Menu(menu, row.Submenu);
        return menu.Child(QLatin1StringView(row.Entry));
    }
    Seen Open(const DialogRow& row) const
    {
        Entry(row).Press();
        EXPECT_TRUE(EventsUntil([&] { return FindDialog(row.Caption).has_value(); }))
            << row.Caption;
        return FindDialog(row.Caption).value();
    }

    AccessBus Bus;
    SeenWindows Windows{Bus};
    TestSession Folder{{QStringLiteral("Vantrel PDF")}};
    std::optional<StationProcess> Station;
};

/// What a screen reader says of a control before its state.
QString SpokenName(const Seen& seen, const QString& role)
{
    QString label = seen.LabelName();
    if (!label.isEmpty())
        return label;
    // The name of a combo box is what is chosen in it.
    return role == QStringLiteral("combo box") ? seen.Description() : seen.Name();
}

/// Fails the test for each nameless control below. @return how many controls there are
int ExpectNames(const Seen& seen)
{
    int controls = 0;
    const QList<Seen> children = seen.Children();
    for (const Seen& child : children) {
        const QString role = child.Role();
        if (ControlRoles.contains(role)) {
            ++controls;
            EXPECT_FALSE(SpokenName(child, role).trimmed().isEmpty())
                << "a " << role.toStdString() << " in " << seen.Role().toStdString() << " "
                << seen.Name().toStdString();
        }
        // A combo box shows its list only while it is open.
        if (role != QStringLiteral("combo box"))
            controls += ExpectNames(child);
    }
    return controls;
}

TEST_F(Accessibility, TheMainWindowReportsItsMenusItsCardAndItsNavigator)
{
    const Seen main = FindMain().value();
    EXPECT_EQ(main.Name(),
              QStringLiteral(" Ostrand Vantrel v6.0   (Badge) printing to (Vantrel PDF)"));
    QStringList menus;
    for (const Seen& menu : MenuBar().Children())
        menus.append(menu.Name());
    EXPECT_EQ(menus.join(QLatin1Char(' ')),
              QStringLiteral("File Edit Document View Settings Properties Help"));
    const Seen workspace = main.Child(QStringLiteral("Workspace"));
    for (const char* name : {"Card", "Previous Page", "Next Page", "New Page", "Delete Page",
                             "Open Layout", "Save Page"}) {
        const auto found = workspace.Find(
            [&](const Seen& seen) { return seen.Name() == QLatin1StringView(name); });
        EXPECT_TRUE(found.has_value()) << name;
    }
    EXPECT_GT(ExpectNames(main), 75);
}

TEST_F(Accessibility, NoControlOfADialogIsNameless)
{
    EXPECT_EQ(std::size(Dialogs), 12U);
    for (const DialogRow& row : Dialogs) {
        SCOPED_TRACE(row.Caption);
        const Seen dialog = Open(row);
        EXPECT_GT(ExpectNames(dialog), 0);
        if (*row.Leave == '\0')
            continue;
        const auto leave = dialog.Find([&](const Seen& seen) {
            return seen.Role() == QStringLiteral("push button") &&
                   seen.Name() == QLatin1StringView(row.Leave);
        });
        ASSERT_TRUE(leave.has_value());
        leave->Press();
        EXPECT_TRUE(EventsUntil([&] { return !FindDialog(row.Caption).has_value(); }));
    }
    EXPECT_TRUE(Station->IsRunning());
}

TEST_F(Accessibility, AQuestionIsAnsweredByAPress)
{
    Menu(Menu(MenuBar(), "File"), "Delete ...").Child(QStringLiteral("Delete Layout")).Press();
    std::optional<Seen> no;
    EXPECT_TRUE(EventsUntil([&] {
        const auto box = Windows.Window(
            [](const Seen& seen) { return seen.Role() == QStringLiteral("dialog"); });
        if (box)
            no = box->Find([](const Seen& seen) { return seen.Name() == QStringLiteral("No"); });
        return no.has_value();
    }));
    ASSERT_TRUE(no.has_value());
    no->Press();
    EXPECT_TRUE(EventsUntil([&] {
        return !Windows.Window(
            [](const Seen& seen) { return seen.Role() == QStringLiteral("dialog"); });
    }));
    EXPECT_TRUE(FindMain()->Name().contains(QStringLiteral("(Badge)")));
}

TEST_F(Accessibility, EachObjectOfTheCardStandsBelowTheCard)
{
    const Seen workspace = FindMain()->Child(QStringLiteral("Workspace"));
    const Seen card =
        workspace.Find([](const Seen& seen) { return seen.Name() == QStringLiteral("Card"); })
            .value();
    QStringList told;
    const QList<Seen> objects = card.Children();
    for (const Seen& object : objects) {
        told += object.Role() + QLatin1Char('|') + object.Name();
        EXPECT_TRUE(object.IsShowing()) << object.Name().toStdString();
        EXPECT_TRUE(card.Place().contains(object.Place())) << object.Name().toStdString();
    }
    EXPECT_EQ(told, (QStringList{QStringLiteral("label|Data Field 1"),
                                 QStringLiteral("label|Visitor"), QStringLiteral("label|7")}));
    ASSERT_EQ(objects.size(), 3);
    // 900 twips are 60 pixels here.
    EXPECT_EQ(objects.at(2).Place().topLeft() - objects.at(1).Place().topLeft(), QPoint(0, 60));
    EXPECT_EQ(objects.at(1).Place().size(), QSize(100, 20));
}

/// The same with the design tools.
class AccessibleDesigner : public Accessibility
{
protected:
    AccessibleDesigner() : Accessibility(true) {}

    std::optional<Seen> Named(const char* name) const
    {
        return FindMain()->Find(
            [&](const Seen& seen) { return seen.Name() == QLatin1StringView(name); });
    }
    void ChooseTool(const char* entry) const { Windows.Choose({"Station", "Design Tools", entry}); }
    QRect PlaceOf(const char* name) const
    {
        const auto found = Named(name);
        return found ? found->Place() : QRect();
    }
};

TEST_F(AccessibleDesigner, RulersZoomAndObjectsAreFoundWhereTheyAreShown)
{
    for (const char* name : {"Ruler Across", "Ruler Down", "Zoom", "Visitor"})
        EXPECT_TRUE(Named(name).has_value()) << name;
    for (int step = 0; step < 2; ++step)
        Windows.Choose({"Station", "Design Tools", "Zoom", "Zoom In"});
    // 1500 by 300 twips are 100 by 20 pixels in their size.
    EXPECT_TRUE(EventsUntil([&] { return PlaceOf("Visitor").size() == QSize(150, 30); }));
    EXPECT_EQ(PlaceOf("7").topLeft() - PlaceOf("Visitor").topLeft(), QPoint(0, 90));
    EXPECT_TRUE(PlaceOf("Card").contains(PlaceOf("7")));
    EXPECT_GT(ExpectNames(FindMain().value()), 75);
}

TEST_F(AccessibleDesigner, ATextThatIsEditedInPlaceIsAFieldWithANameWhereTheTextStands)
{
    const QRect place = PlaceOf("Visitor");
    Bus.Click(place.center());
    ASSERT_TRUE(EventsUntil([this] { return Named("Visitor")->IsSelected(); }));
    ChooseTool("Edit Text");
    const auto field = [this] {
        return FindMain()->Find([](const Seen& seen) {
            return seen.Role() == QStringLiteral("text") && seen.Name() == QStringLiteral("Text") &&
                   seen.IsShowing();
        });
    };
    ASSERT_TRUE(EventsUntil([&] { return field().has_value(); }));
    EXPECT_TRUE(field()->Place().contains(place));
    ASSERT_TRUE(EventsUntil([&] { return FindMain()->IsActive(); }));
    Bus.Type(QStringLiteral("guest"));
    Bus.PressEnter();
    EXPECT_TRUE(EventsUntil([&] { return PlaceOf("guest") == place; }));
    EXPECT_FALSE(field().has_value());
}

TEST_F(Accessibility, ThePopUpMenusAreFoundWhileTheyAreOpen)
{
    const auto openMenu = [this] {
        return FindMain()->Find([](const Seen& seen) {
            return seen.Role() == QStringLiteral("popup menu") && seen.IsShowing();
        });
    };
    const Seen workspace = FindMain()->Child(QStringLiteral("Workspace"));
    const auto entriesAfterClick = [&](QPoint point) {
        EXPECT_FALSE(openMenu().has_value());
        Bus.RightClick(point);
        std::optional<Seen> menu;
        EXPECT_TRUE(EventsUntil([&] {
            menu = openMenu();
            return menu.has_value();
        }));
        QStringList entries;
        const QList<Seen> children = menu.value().Children();
        for (const Seen& entry : children)
            entries += entry.Name();
        EXPECT_FALSE(menu->Name().isEmpty());
        return entries;
    };
    EXPECT_TRUE(entriesAfterClick(workspace.Place().bottomRight() - QPoint(30, 30))
                    .contains(QStringLiteral("Set Background...")));
    // A click beside an open menu closes it.
    Bus.RightClick(QPoint(1, 1));
    EXPECT_TRUE(EventsUntil([&] { return !openMenu().has_value(); }));
    const Seen number =
        workspace.Find([](const Seen& seen) { return seen.Name() == QStringLiteral("7"); }).value();
    EXPECT_TRUE(
        entriesAfterClick(number.Place().center()).contains(QStringLiteral("Adjust Font...")));
}

} // namespace
} // namespace vantrel::test
