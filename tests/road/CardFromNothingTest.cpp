#include "base/Profile.h"
#include "road/SeenWindows.h"
#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include "samples/DemoArt.h"
#include "samples/RecommendedSettings.h"
#include "support/CodeReading.h"
#include "support/Events.h"
#include "support/PdfReading.h"
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// A card designed from nothing at the built station, by mouse, keyboard and menus as the operator's
// guide tells it, wrong turns included.

namespace vantrel::test {
namespace {

/// A new station with the recommended settings and nothing else.
class CardFromNothing : public ::testing::Test
{
protected:
    CardFromNothing()
    {
        MakeRecommendedFolder(Folder.path());
        Set("Port", QString::number(Port));
        EXPECT_TRUE(DrawPortrait().save(Photo));
        Bus.StartWindowManager();
        Station.emplace(Folder.path(), StationStart{.Environment = Bus.Environment()});
        EXPECT_TRUE(EventsUntil([this] { return Windows.Main().has_value(); }))
            << Station->ErrorLines().join(QLatin1Char('\n')).toStdString();
    }

    void Set(const char* key, const QString& value) const
    {
        EXPECT_TRUE(WriteProfileValue(Folder.filePath(QStringLiteral("Vantrel 6.ini")),
                                      QStringLiteral("Session 1"), QLatin1StringView(key), value));
    }
    /// A control of the wizard by its role and name.
    std::optional<Seen> OnWizard(const char* role, const char* name) const
    {
        const auto wizard = Windows.Dialog(QStringLiteral("Ostrand Card Design Wizard"));
        if (!wizard)
            return std::nullopt;
        return wizard->Find([&](const Seen& seen) {
            return seen.Role() == QLatin1StringView(role) &&
                   (*name == '\0' || seen.Name() == QLatin1StringView(name)) && seen.IsShowing();
        });
    }
    /// Waits for the control and returns it.
    Seen AwaitOnWizard(const char* role, const char* name) const
    {
        EXPECT_TRUE(EventsUntil([&] { return OnWizard(role, name).has_value(); })) << name;
        return OnWizard(role, name).value();
    }
    void Next(const char* page) const
    {
        AwaitOnWizard("label", page);
        const Seen next = AwaitOnWizard("push button", "Next >>");
        EXPECT_TRUE(EventsUntil([&] { return next.IsEnabled(); })) << page;
        next.Press();
    }
    void Choose(const char* page, const char* choice) const
    {
        AwaitOnWizard("label", page);
        Bus.Click(AwaitOnWizard("list item", choice).Place().center());
    }
    void AnswerWizard() const
    {
        Windows.Choose({"File", "New ...", "Layout Wizard ..."});
        const auto caption = QStringLiteral("Ostrand Card Design Wizard");
        ASSERT_TRUE(EventsUntil([&] {
            const auto wizard = Windows.Dialog(caption);
            return wizard && wizard->IsActive();
        }));
        Bus.Type(QStringLiteral("Club"));
        Next("Please enter a name for the new document layout.");
        Next("Please select a default font to use for text on the document.");
        AwaitOnWizard("push button", "Lanscape").Press();
        Next("Please select the orientation for the new document.");
        const char* printers = "Please select the default printer to print you document with";
        Choose(printers, "Vantrel PDF");
        Choose(printers, "Plain card (no stripe)");
        Next(printers);
        Next("Please choose your data field options.");
        AwaitOnWizard("push button", "Finish").Press();
        Windows.Answer(QStringLiteral("Send the data stream to Vantrel\u00ae 6"),
                       QStringLiteral("OK"));
    }

    QRect PlaceOf(const QString& name) const
    {
        const auto main = Windows.Main();
        const auto found =
            main ? main->Find([&](const Seen& seen) { return seen.Name() == name; }) : std::nullopt;
        return found ? found->Place() : QRect();
    }
    bool StandOnCard(QStringList names) const
    {
        names.sort();
        return EventsUntil([&] {
            QStringList onCard = Windows.OnCard();
            onCard.sort();
            return onCard == names;
        });
    }
    void Insert(const char* menu, const char* entry) const { Windows.Choose({menu, entry}); }
    void Tool(const char* entry) const { Windows.Choose({"Station", "Design Tools", entry}); }
    void DragTo(const QString& name, QPoint onCard) const
    {
        const QRect place = PlaceOf(name);
        const QPoint to = PlaceOf(QStringLiteral("Card")).topLeft() + onCard;
        Bus.Drag(place.center(), to + (place.center() - place.topLeft()));
        EXPECT_TRUE(EventsUntil([&] {
            return (PlaceOf(name).topLeft() - to).manhattanLength() < Near;
        })) << name.toStdString();
    }
    void DeleteSelected(const char* answer) const
    {
        Windows.Choose({"Edit", "Delete"});
        Windows.Answer(QStringLiteral("Really Delete?"), QLatin1StringView(answer));
    }
    void EditInPlace(const QString& text, const QString& typed) const
    {
        // Between two presses of a machine that has much to do there may be more time than a double
        // press has.
        Bus.Click(PlaceOf(text).center());
        Tool("Edit Text");
        ASSERT_TRUE(EventsUntil([&] { return !PlaceOf(QStringLiteral("Text")).isEmpty(); }));
        Bus.Type(typed);
        Bus.PressEnter();
    }

    /// Snapping may take an object a little aside, in pixels.
    static constexpr int Near = 12;

    const QTemporaryDir Folder;
    const QTemporaryDir Photos;
    const QString Photo = Photos.filePath(QStringLiteral("ada.png"));
    const int Port = FreePort();
    AccessBus Bus;
    SeenWindows Windows{Bus};
    std::optional<StationProcess> Station;
};

const QString Image = QStringLiteral("Image");
const QString First = QStringLiteral("Static Text 1");
const QString Second = QStringLiteral("Static Text 2");
const QString Field1 = QStringLiteral("Data Field 1");
const QString Field2 = QStringLiteral("Data Field 2");

TEST_F(CardFromNothing, IsDesignedWithWrongTurnsAndItsCodeIsReadFromTheCard)
{
    AnswerWizard();
    // Too early: there is nothing on the card.
    Windows.Choose({"File", "Save"});
    Windows.Answer(QStringLiteral("No objects found"), QStringLiteral("Ok"));

    Insert("Document", "Insert New Image Object");
    ASSERT_TRUE(StandOnCard({Image}));
    DragTo(Image, QPoint(25, 40));
    Windows.Choose({"Properties", "Adjust Image...", "Choose Image..."});
    const auto choose = QStringLiteral("Choose a Picture");
    ASSERT_TRUE(EventsUntil([&] {
        const auto dialog = Windows.Dialog(choose);
        return dialog && dialog->IsActive();
    }));
    Bus.Type(Photo);
    Bus.PressEnter();
    ASSERT_TRUE(EventsUntil([&] { return !Windows.Dialog(choose).has_value(); }));

    Insert("Document", "Insert New Static Text");
    ASSERT_TRUE(StandOnCard({Image, First}));
    Insert("Document", "Insert New Static Text");
    ASSERT_TRUE(StandOnCard({Image, First, Second}));
    // The second was not wanted after all, then wanted, then not.
    DeleteSelected("No");
    EXPECT_TRUE(StandOnCard({Image, First, Second}));
    DeleteSelected("Yes");
    EXPECT_TRUE(StandOnCard({Image, First}));
    Tool("Undo");
    EXPECT_TRUE(StandOnCard({Image, First, Second}));
    Tool("Redo");
    EXPECT_TRUE(StandOnCard({Image, First}));
    EditInPlace(First, QStringLiteral("lakeside"));
    ASSERT_TRUE(StandOnCard({Image, QStringLiteral("lakeside")}));

    Insert("Document", "Insert New Data Field");
    ASSERT_TRUE(StandOnCard({Image, QStringLiteral("lakeside"), Field1}));
    Insert("Station", "Insert Bar Code");
    ASSERT_TRUE(StandOnCard({Image, QStringLiteral("lakeside"), Field1, Field2}));
    Windows.Choose({"Station", "Check Layout ..."});
    const auto check = QStringLiteral("Check Layout");
    ASSERT_TRUE(EventsUntil([&] { return Windows.Dialog(check).has_value(); }));
    EXPECT_TRUE(EventsUntil([&] {
        return Windows.Dialog(check)
            ->Find([](const Seen& seen) {
                return seen.Name().startsWith(QStringLiteral("Nothing found"));
            })
            .has_value();
    }));
    Windows.Answer(check, QStringLiteral("Close"));

    Windows.Choose({"File", "Save"});
    Windows.Answer(QStringLiteral("Document Saved."), QStringLiteral("Ok"));
    EXPECT_EQ(Windows.Main()->Name(),
              QStringLiteral(" Vantrel v6.0   (Club) printing to (Vantrel PDF)"));
    Windows.Choose({"Settings", "Enable Data Capture"});
    ASSERT_TRUE(Station->WaitUntilItListens(Port));
    SendRecord(Port, "<Ada Lovelace+https://lakeside.example/m/40012345>");
    const QString card = Folder.filePath(QStringLiteral("Printed/Session 1/card-000001.pdf"));
    ASSERT_TRUE(EventsUntil([&] { return QFile::exists(card); }));
    EXPECT_EQ(TextOfPdf(card), QStringLiteral("lakeside Ada Lovelace"));
    EXPECT_EQ(PictureObjectsOfPdf(card).size(), 1);
    const QImage dots = DotsOfPdf(card, 300);
    const QStringList code{QStringLiteral("https://lakeside.example/m/40012345")};
    EXPECT_EQ(CodesByZbar(dots), code);
    EXPECT_EQ(CodesByZxing(dots), code);
}

} // namespace
} // namespace vantrel::test
