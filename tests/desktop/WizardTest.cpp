#include "desktop/DesktopStation.h"
#include "desktop/controls/DesktopUpDown.h"
#include "desktop/controls/ScreenUnits.h"
#include "desktop/dialogs/frmWizard.h"
#include "drawing/PageCanvas.h"
#include "station/layout/SaveLayout.h"
#include "station/print/PrintCard.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A station with the wizard open.
class WizardWindow : public DesktopStation
{
public:
    explicit WizardWindow(const StationOptions& options = {}) : DesktopStation(true, options)
    {
        Load();
        Choose("cmdWizard");
        Wizard = &Get<frmWizard>("frmWizard");
    }

    template <typename Control>
    Control& On(const char* name)
    {
        return Named<Control>(*Wizard, name);
    }
    void Click(const char* name)
    {
        auto& button = On<QAbstractButton>(name);
        EXPECT_TRUE(button.isEnabled()) << name;
        button.click();
        QCoreApplication::processEvents();
    }
    bool NextBecomes(bool enabled)
    {
        return EventsUntil([&] { return On<QPushButton>("cmdNext").isEnabled() == enabled; });
    }
    QString Prompt() { return On<QLabel>("lblPrompt").text(); }
    /// Answers the pages up to this one.
    void AnswerUpTo(WizardStep step)
    {
        if (step > WizardStep::Name) {
            On<QLineEdit>("txtName").setText(QStringLiteral("Pass"));
            ASSERT_TRUE(NextBecomes(true));
            Click("cmdNext");
        }
        if (step > WizardStep::DefaultFont)
            Click("cmdNext");
        if (step > WizardStep::Orientation) {
            Click("imgL");
            ASSERT_TRUE(NextBecomes(true));
            Click("cmdNext");
        }
        if (step > WizardStep::Printer) {
            On<QListWidget>("lstPrinters").setCurrentRow(0);
            ASSERT_TRUE(NextBecomes(true));
            Click("cmdNext");
        }
        if (step > WizardStep::DataFields)
            Click("cmdNext");
    }
    QStringList Summary()
    {
        QStringList texts;
        for (const QLabel* label : On<QWidget>("pgSummary").findChildren<QLabel*>())
            texts += label->text();
        return texts;
    }

    QPointer<frmWizard> Wizard;
};

TEST(Wizard, BeginsWithTheNameAndItsFieldOptionsOff)
{
    WizardWindow wizard;
    EXPECT_EQ(wizard.Wizard->windowTitle(), QStringLiteral("Ostrand Card Design Wizard"));
    EXPECT_FALSE(wizard.Wizard->windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_EQ(wizard.Prompt(), QStringLiteral("Please enter a name for the new document layout."));
    EXPECT_EQ(wizard.On<QLineEdit>("txtName").text(), QString());
    EXPECT_TRUE(wizard.On<QLineEdit>("txtName").isVisible());
    EXPECT_FALSE(wizard.On<QComboBox>("lstFonts").isVisible());
    EXPECT_FALSE(wizard.On<QPushButton>("cmdBack").isEnabled());
    EXPECT_EQ(wizard.On<QPushButton>("cmdNext").text(), QStringLiteral("Next >>"));
    EXPECT_EQ(wizard.On<QLabel>("lblO").text(), QStringLiteral("None"));
    for (const char* name : {"chkAutoAdd", "udFields", "lblFields", "lblCaption"})
        EXPECT_FALSE(wizard.On<QWidget>(name).isEnabled()) << name;
}

TEST(Wizard, ANameOfBlanksIsNotAccepted)
{
    WizardWindow wizard;
    EXPECT_TRUE(wizard.NextBecomes(false));
    wizard.On<QLineEdit>("txtName").setText(QStringLiteral("  Pass"));
    EXPECT_TRUE(wizard.NextBecomes(true));
    wizard.On<QLineEdit>("txtName").setText(QStringLiteral("   "));
    EXPECT_TRUE(wizard.NextBecomes(false));
}

TEST(Wizard, EachStepShowsItsPageAlone)
{
    WizardWindow wizard;
    wizard.AnswerUpTo(WizardStep::Name);
    constexpr const char* prompts[] = {
        "Please enter a name for the new document layout.",
        "Please select a default font to use for text on the document.",
        "Please select the orientation for the new document.",
        "Please select the default printer to print you document with",
        "Please choose your data field options.",
        "Click \"Finish\" to create your new card layout.",
    };
    wizard.AnswerUpTo(WizardStep::Summary);
    for (int step = 6; step >= 1; --step) {
        EXPECT_EQ(wizard.Prompt(), QLatin1StringView(prompts[step - 1]));
        int shown = 0;
        for (const auto* page : wizard.Wizard->findChildren<QWidget*>()) {
            const QVariant tag = page->property("Tag");
            if (!tag.isValid())
                continue;
            EXPECT_EQ(page->isVisible(), tag.toString() == QString::number(step)) << step;
            ++shown;
        }
        EXPECT_EQ(shown, 6);
        EXPECT_EQ(wizard.On<QPushButton>("cmdBack").isEnabled(), step > 1);
        if (step > 1)
            wizard.Click("cmdBack");
    }
}

TEST(Wizard, TheSampleShowsTheFontAndBeginsWithTahoma)
{
    WizardWindow wizard;
    wizard.AnswerUpTo(WizardStep::DefaultFont);
    auto& sample = wizard.On<QLabel>("lblFont");
    EXPECT_EQ(sample.text(), QStringLiteral("A Quick Brown Fox Jumps Over the Lazy Dog"));
    EXPECT_EQ(wizard.On<QComboBox>("lstFonts").currentText(), QStringLiteral("Tahoma"));
    EXPECT_EQ(sample.font().family(), QStringLiteral("Tahoma"));
    wizard.On<QComboBox>("lstFonts").setCurrentText(QStringLiteral("DejaVu Sans"));
    wizard.On<QComboBox>("cbxFontSizes").setCurrentText(QStringLiteral("18"));
    for (const char* box : {"chkB", "chkI", "chkU", "chkS"})
        wizard.Click(box);
    const QFont font = sample.font();
    EXPECT_EQ(font.family(), QStringLiteral("DejaVu Sans"));
    EXPECT_DOUBLE_EQ(font.pointSizeF(), 18);
    EXPECT_TRUE(font.bold() && font.italic() && font.underline() && font.strikeOut());
}

TEST(Wizard, TheFontItBeginsWithIsInstalledWhereTheDesignToolsAreOn)
{
    StationOptions options;
    options.DesignTools = true;
    WizardWindow wizard(options);
    wizard.AnswerUpTo(WizardStep::DefaultFont);
    const auto& fonts = wizard.On<QComboBox>("lstFonts");
    EXPECT_TRUE(PageCanvas::FontFamilies().contains(fonts.currentText()))
        << fonts.currentText().toStdString();
    EXPECT_EQ(wizard.On<QLabel>("lblFont").font().family(), fonts.currentText());
}

TEST(Wizard, AFontBeyondAllBoundsDoesNoHarm)
{
    WizardWindow wizard;
    wizard.AnswerUpTo(WizardStep::DefaultFont);
    for (const char* size : {"", "big", "0", "-5", "100000", "1e9", "1e300"}) {
        wizard.On<QComboBox>("cbxFontSizes").setCurrentText(QLatin1StringView(size));
        QCoreApplication::processEvents();
        EXPECT_FALSE(wizard.Wizard->grab().isNull()) << size;
    }
}

TEST(Wizard, ItsLayoutIsShownWithAFontBeyondAllBounds)
{
    for (const char* size : {"-5", "100000", "1e9", "1e300"}) {
        WizardWindow wizard;
        wizard.Window.show();
        wizard.AnswerUpTo(WizardStep::DefaultFont);
        wizard.On<QComboBox>("cbxFontSizes").setCurrentText(QLatin1StringView(size));
        wizard.Click("cmdNext");
        wizard.Click("imgL");
        ASSERT_TRUE(wizard.NextBecomes(true));
        wizard.Click("cmdNext");
        wizard.On<QListWidget>("lstPrinters").setCurrentRow(0);
        ASSERT_TRUE(wizard.NextBecomes(true));
        wizard.Click("cmdNext");
        wizard.Click("chkEnableFields");
        wizard.On<DesktopUpDown>("udFields").SetValue(3);
        wizard.Click("cmdNext");
        wizard.Click("cmdNext");
        EXPECT_FALSE(wizard.Window.grab().isNull()) << size;
    }
}

TEST(Wizard, IsPlaced500TwipsAboveTheCentreOfTheMainWindow)
{
    WizardWindow wizard;
    EXPECT_EQ(wizard.Wizard->frameGeometry().center(),
              wizard.Window.frameGeometry().center() - QPoint(0, ScreenPixels(500)));
}

TEST(Wizard, TheOrientationHasToBeChosen)
{
    WizardWindow wizard;
    wizard.AnswerUpTo(WizardStep::Orientation);
    EXPECT_TRUE(wizard.NextBecomes(false));
    EXPECT_EQ(wizard.On<QToolButton>("imgP").text(), QStringLiteral("Portrait"));
    EXPECT_EQ(wizard.On<QToolButton>("imgL").text(), QStringLiteral("Lanscape"));
    wizard.Click("imgL");
    EXPECT_EQ(wizard.On<QLabel>("lblO").text(), QStringLiteral("Lanscape"));
    EXPECT_TRUE(wizard.NextBecomes(true));
    wizard.Click("imgP");
    EXPECT_EQ(wizard.On<QLabel>("lblO").text(), QStringLiteral("Portrait"));
}

TEST(Wizard, APrinterHasToBeChosen)
{
    WizardWindow wizard;
    wizard.AnswerUpTo(WizardStep::Printer);
    EXPECT_TRUE(wizard.NextBecomes(false));
    EXPECT_GT(wizard.On<QListWidget>("lvwTypes").count(), 0);
    wizard.On<QListWidget>("lstPrinters").setCurrentRow(0);
    EXPECT_TRUE(wizard.NextBecomes(true));
}

TEST(Wizard, TheFieldOptionsTurnEachOtherOnAndOff)
{
    WizardWindow wizard;
    wizard.AnswerUpTo(WizardStep::DataFields);
    wizard.Click("chkEnableFields");
    for (const char* name : {"chkAutoAdd", "udFields", "lblFields", "lblCaption"})
        EXPECT_TRUE(wizard.On<QWidget>(name).isEnabled()) << name;
    auto& fields = wizard.On<DesktopUpDown>("udFields");
    fields.UpButton().click();
    fields.UpButton().click();
    EXPECT_EQ(wizard.On<QLabel>("lblFields").text(), QStringLiteral("2"));
    wizard.Click("chkAutoAdd");
    EXPECT_FALSE(wizard.On<QCheckBox>("chkEnableFields").isEnabled());
    wizard.Click("chkAutoAdd");
    EXPECT_TRUE(wizard.On<QCheckBox>("chkEnableFields").isEnabled());
    wizard.Click("chkEnableFields");
    EXPECT_FALSE(wizard.On<QWidget>("udFields").isEnabled());
}

TEST(Wizard, TheLastPageSumsUpAndFinishes)
{
    WizardWindow wizard;
    wizard.AnswerUpTo(WizardStep::Summary);
    EXPECT_EQ(wizard.On<QPushButton>("cmdNext").text(), QStringLiteral("Finish"));
    const QStringList summary = wizard.Summary();
    for (const char* text :
         {"Card layout name", "Pass", "Default font", "Tahoma (10)", "Orientation", "Landscape",
          "Card printer name", "Card Printer", "Card printer type", "Number of data fields", "0"})
        EXPECT_TRUE(summary.contains(QLatin1StringView(text))) << text;
    wizard.Click("cmdBack");
    EXPECT_EQ(wizard.On<QPushButton>("cmdNext").text(), QStringLiteral("Next >>"));
}

TEST(Wizard, WithNeitherBoxTickedTheFieldsAreStillDrawn)
{
    WizardWindow wizard;
    wizard.AnswerUpTo(WizardStep::DataFields);
    wizard.Click("chkEnableFields");
    wizard.On<DesktopUpDown>("udFields").SetValue(3);
    wizard.Click("chkEnableFields");
    wizard.Click("cmdNext");
    wizard.Click("cmdNext");
    EXPECT_TRUE(EventsUntil([&] { return wizard.Wizard.isNull(); }));
    EXPECT_EQ(wizard.Session.Document.HighestIndex(Family::lbl_DATA), 3);
    EXPECT_EQ(wizard.Operator.Boxes.size(), 1);
}

TEST(Wizard, CancelAtAnyStepMakesNothing)
{
    for (const WizardPage& page : WizardPages) {
        WizardWindow wizard;
        wizard.WithLayout();
        wizard.AnswerUpTo(page.Step);
        wizard.Click("cmdCancel");
        EXPECT_TRUE(EventsUntil([&] { return wizard.Wizard.isNull(); }));
        EXPECT_EQ(wizard.Session.CurrentLayoutName, QStringLiteral("Badge"));
        EXPECT_EQ(wizard.Session.Document.HighestIndex(Family::lbl_DATA), 1);
        EXPECT_EQ(wizard.Operator.Boxes, QStringList());
    }
}

TEST(Wizard, ALayoutMadeByItAndSavedPrintsTheRecord)
{
    WizardWindow wizard;
    wizard.AnswerUpTo(WizardStep::Printer);
    wizard.On<QListWidget>("lstPrinters").setCurrentRow(0);
    auto& kinds = wizard.On<QListWidget>("lvwTypes");
    for (int row = 0; row < kinds.count(); ++row) {
        if (kinds.item(row)->data(Qt::UserRole).toString() == QStringLiteral("9"))
            kinds.setCurrentRow(row);
    }
    ASSERT_TRUE(wizard.NextBecomes(true));
    wizard.Click("cmdNext");
    wizard.Click("chkEnableFields");
    wizard.On<DesktopUpDown>("udFields").SetValue(2);
    wizard.Click("cmdNext");
    wizard.Click("cmdNext");
    EXPECT_EQ(wizard.Session.CurrentParams.PrinterType, PrinterTypeCode::Plain);
    EXPECT_TRUE(EventsUntil([&] { return wizard.Get<QAction>("cmdSave").isEnabled(); }));
    wizard.Choose("cmdSave");
    SetRecord(wizard.Session, {QStringLiteral("Anna"), QStringLiteral("1001")});
    wizard.Printers.Operations.clear();
    wizard.Choose("cmdPrint");
    EXPECT_TRUE(wizard.Printers.Operations.contains(QStringLiteral("FontName = \"Tahoma\"")));
    EXPECT_TRUE(wizard.Printers.Operations.contains(QStringLiteral("Print(\"Anna\")")));
    EXPECT_TRUE(wizard.Printers.Operations.contains(QStringLiteral("Print(\"1001\")")));
}

TEST(Wizard, AWindowManagerCannotCloseIt)
{
    WizardWindow station;
    EXPECT_FALSE(DesktopStation::CloseByWindowManager(*station.Wizard));
    QCoreApplication::processEvents();
    ASSERT_FALSE(station.Wizard.isNull());
    EXPECT_TRUE(station.Wizard->isVisible());
    station.Click("cmdCancel");
    EXPECT_TRUE(EventsUntil([&] { return station.Wizard.isNull(); }));
}

TEST(Wizard, TheStationCanEndWhileItIsOpen)
{
    WizardWindow station;
    station.Window.Unload();
    EXPECT_FALSE(station.Wizard->isVisible());
}

} // namespace
} // namespace vantrel::test
