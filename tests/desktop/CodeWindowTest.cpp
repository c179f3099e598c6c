#include "desktop/DesktopStation.h"
#include "desktop/dialogs/frmCode.h"
#include "station/layout/LoadLayout.h"
#include "support/CodeReading.h"
#include "support/Layouts.h"
#include <QCoreApplication>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

StationOptions WithDesignTools()
{
    StationOptions options;
    options.DesignTools = true;
    return options;
}

/// A station with a layout whose one data field is selected and large enough for a code.
class CodeWindow : public ::testing::Test
{
protected:
    CodeWindow()
    {
        Station.WithLayout();
        Station.Load();
        Field().Width = 1500;
        Field().Height = 1500;
        Field().SetCaption(QStringLiteral("4711"));
        Select(&Field());
    }

    CardObject& Field() { return *Station.Session.Document.Find(Family::lbl_DATA, 1); }
    void Select(CardObject* object)
    {
        CardDocument& document = Station.Session.Document;
        document.SelectedObject = object;
        document.SelectedIndex = 1;
        document.SelectedFamily = QStringLiteral("lbl_DATA");
        Station.Session.Face.NotifyDesign();
    }
    frmCode& Open()
    {
        Station.Choose("cmdBarCode");
        return Station.Get<frmCode>("frmCode");
    }
    static QListWidget& Kinds(QWidget& dialog)
    {
        return DesktopStation::Named<QListWidget>(dialog, "lstKinds");
    }
    static void Choose(QWidget& dialog, const char* kind)
    {
        const auto found = Kinds(dialog).findItems(QLatin1StringView(kind), Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << kind;
        Kinds(dialog).setCurrentItem(found.constFirst());
    }
    static void Press(QWidget& dialog, const char* name)
    {
        DesktopStation::Named<QPushButton>(dialog, name).click();
    }

    DesktopStation Station{true, WithDesignTools()};
};

TEST_F(CodeWindow, TheChosenCodeReachesTheCardAndTheStore)
{
    frmCode& dialog = Open();
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Bar Code"));
    EXPECT_TRUE(dialog.isModal());
    EXPECT_EQ(Kinds(dialog).count(), 16);
    EXPECT_EQ(Kinds(dialog).currentItem()->text(), QStringLiteral("Text"));
    const double size = Field().Font().Size;
    Choose(dialog, "Barcode QR Code");
    Press(dialog, "cmdSave");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(Field().Font().Name, QStringLiteral("Barcode QR Code"));
    EXPECT_EQ(Field().Font().Size, size);
    SavePage(Station.Session);
    ASSERT_TRUE(LoadLayout(Station.Session, QStringLiteral("Badge")));
    EXPECT_EQ(Field().Font().Name, QStringLiteral("Barcode QR Code"));
}

TEST_F(CodeWindow, TheChoiceCanBeTakenBack)
{
    QCoreApplication::processEvents();
    const QString before = Field().Font().Name;
    frmCode& dialog = Open();
    Choose(dialog, "Barcode QR Code");
    Press(dialog, "cmdSave");
    QCoreApplication::processEvents();
    ASSERT_EQ(Field().Font().Name, QStringLiteral("Barcode QR Code"));
    Station.Choose("cmdUndo");
    EXPECT_EQ(Field().Font().Name, before);
}

TEST_F(CodeWindow, ThePreviewShowsTheCodeOfTheCaption)
{
    frmCode& dialog = Open();
    Choose(dialog, "Barcode QR Code");
    const QImage drawn =
        DesktopStation::Named<QLabel>(dialog, "imgPreview").pixmap(Qt::ReturnByValue).toImage();
    EXPECT_EQ(CodesByZxing(drawn), QStringList(QStringLiteral("4711")));
    EXPECT_EQ(CodesByZbar(drawn), QStringList(QStringLiteral("4711")));
}

TEST_F(CodeWindow, ATextThatWasACodeIsATextAgain)
{
    Field().SetFont({QStringLiteral("Barcode Aztec Code"), 12});
    frmCode& dialog = Open();
    EXPECT_EQ(Kinds(dialog).currentItem()->text(), QStringLiteral("Barcode Aztec Code"));
    Choose(dialog, "Text");
    Press(dialog, "cmdSave");
    EXPECT_EQ(Field().Font(), (Font{Font().Name, 12}));
}

TEST_F(CodeWindow, CancelAndTheChoiceOfTextLeaveAFontAlone)
{
    const Font before{QStringLiteral("Liberation Serif"), 14, true};
    Field().SetFont(before);
    frmCode& dialog = Open();
    Choose(dialog, "Barcode QR Code");
    Press(dialog, "cmdCancel");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(Field().Font(), before);
    frmCode& again = Open();
    Press(again, "cmdSave");
    EXPECT_EQ(Field().Font(), before);
}

TEST_F(CodeWindow, AnObjectThatIsGoneMeanwhileIsLeftAlone)
{
    const QString before = Field().Font().Name;
    frmCode& dialog = Open();
    Select(nullptr);
    Choose(dialog, "Barcode QR Code");
    EXPECT_EQ(DesktopStation::Named<QLabel>(dialog, "imgPreview").text(),
              QStringLiteral("Select a text on the card first."));
    Press(dialog, "cmdSave");
    EXPECT_EQ(Field().Font().Name, before);
}

} // namespace
} // namespace vantrel::test
