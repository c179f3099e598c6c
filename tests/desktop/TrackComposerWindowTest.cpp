#include "desktop/ComposerHand.h"
#include "desktop/composers/frmEncoding.h"
#include "desktop/composers/frmPad.h"
#include "desktop/controls/DesktopControls.h"
#include "support/Layouts.h"
#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QWindow>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

const QString Seperator = QStringLiteral("Seperator");
const QString StaticText = QStringLiteral("Static Text");
const QString FormattedField = QStringLiteral("Formatted Data Field");

/// The composer over a station with a layout and a record of two values.
class TrackComposerWindow : public ::testing::Test
{
protected:
    TrackComposerWindow()
    {
        Station.WithLayout();
        SetRecord(Session, {QStringLiteral("4000"), QStringLiteral("ab")});
    }

    void Open()
    {
        Dialog = &OpenDialog<frmEncoding>(Session, &Station.Window);
        Hand = std::make_unique<ComposerHand>(*Dialog);
    }
    void OpenWith(const QString& track1)
    {
        Session.CurrentParams.Track1 = track1;
        Open();
    }
    template <typename Control>
    Control& Get(const char* name)
    {
        return DesktopStation::Named<Control>(*Dialog, name);
    }
    void Press(const char* name)
    {
        Get<QPushButton>(name).click();
        QApplication::processEvents();
    }
    /// Runs a routine on the padding dialog once it is open.
    template <typename Use>
    void WhilePadding(Use use)
    {
        QTimer::singleShot(0, [use] {
            auto* pad = qobject_cast<frmPad*>(QApplication::activeModalWidget());
            ASSERT_NE(pad, nullptr);
            use(*pad);
            pad->close();
        });
    }
    static QColor BackOf(DesktopElementRow& row)
    {
        return row.widget()->palette().color(QPalette::Window);
    }
    QString Preview(int track)
    {
        return Get<QLineEdit>(qPrintable(QStringLiteral("Track%1Preview").arg(track))).text();
    }

    DesktopStation Station;
    vantrel::Session& Session = Station.Session;
    QPointer<frmEncoding> Dialog;
    std::unique_ptr<ComposerHand> Hand;
};

TEST_F(TrackComposerWindow, ShowsItsCaptionsAndTheTree)
{
    AddNumber(Session, 1);
    Open();
    EXPECT_EQ(Dialog->windowTitle(), QStringLiteral("Magnetic Track Encoding"));
    EXPECT_EQ(Get<QPushButton>("cmdClear").text(), QStringLiteral("C&lear Track"));
    EXPECT_EQ(Get<QPushButton>("cmdOk").text(), QStringLiteral("&Save Settings"));
    EXPECT_EQ(Get<QPushButton>("cmdCancel").text(), QStringLiteral("&Cancel"));
    EXPECT_EQ(Hand->Nodes(),
              (QStringList{Seperator, StaticText, QStringLiteral("Mod10 Check Digit"),
                           QStringLiteral("CodaBar Check Digit"), FormattedField,
                           QStringLiteral("Data Field 1"), QStringLiteral("Data Field 2"),
                           QStringLiteral("AutoNumber Field 1")}));
    EXPECT_FALSE(Dialog->isModal());
}

TEST_F(TrackComposerWindow, TheDocumentMenuOpensIt)
{
    Station.Choose("cmdMag");
    EXPECT_TRUE(Station.Get<frmEncoding>("frmEncoding").isVisible());
}

TEST_F(TrackComposerWindow, IsPlaced200TwipsAboveTheCentreOfTheMainWindow)
{
    Open();
    const QPoint centred =
        Station.Window.frameGeometry().center() - Dialog->rect().center() - QPoint(0, 13);
    EXPECT_EQ(Dialog->pos(), centred);
}

TEST_F(TrackComposerWindow, ElementsAreDraggedFromTheTreeOntoTheirRows)
{
    Open();
    Hand->DragOnto("Track1", QStringLiteral("Data Field 1"));
    Hand->DragOnto("Track1", Seperator);
    Hand->DragOnto("Track1", QStringLiteral("Mod10 Check Digit"));
    Hand->DragOnto("Track1", QStringLiteral("Data Field 2"));
    Hand->DragOnto("Track3", StaticText);
    EXPECT_EQ(Hand->Row("Track1").Count(), 4);
    EXPECT_EQ(Hand->Row("Track2").Count(), 0);
    EXPECT_EQ(Get<QLabel>("T1Element(3)").text(), QStringLiteral("CD"));
    EXPECT_EQ(Get<QLabel>("T3Element(1)").text(), QStringLiteral("ST"));
    EXPECT_EQ(Get<QLabel>("T3Element(1)").toolTip(),
              QStringLiteral("Current Text Value Is   :   Empty"));
    Press("cmdOk");
    EXPECT_EQ(Session.CurrentParams.Track1, QStringLiteral("DAT1~SEP~DAT2"));
    EXPECT_EQ(Session.CurrentParams.Track3, QStringLiteral("TEXT"));
    EXPECT_TRUE(Dialog.isNull());
}

TEST_F(TrackComposerWindow, ElementsStandEdgeToEdgeInTheirOrder)
{
    OpenWith(QStringLiteral("DAT1~SEP~ACME"));
    QApplication::processEvents();
    const QRect first = Get<QLabel>("T1Element(1)").geometry();
    const QRect third = Get<QLabel>("T1Element(3)").geometry();
    EXPECT_EQ(third.left(), first.left() + 2 * first.width());
    EXPECT_EQ(third.size(), first.size());
}

TEST_F(TrackComposerWindow, ADropSelectsItsRowEvenIfItsWordMakesNoElement)
{
    Open();
    EXPECT_EQ(Dialog->SelectedTrack(), 0);
    EXPECT_TRUE(Hand->DropWord("Track2", QStringLiteral("nothing")));
    EXPECT_EQ(Dialog->SelectedTrack(), 2);
    EXPECT_EQ(Hand->Row("Track2").Count(), 0);
    EXPECT_TRUE(Hand->DropWord("Track2", QStringLiteral("EBT")));
    EXPECT_EQ(Hand->Row("Track2").Count(), 1);
}

TEST_F(TrackComposerWindow, TheSelectedRowIsWhiteAndTheOthersAreNot)
{
    Open();
    const QColor other(0xC0, 0xC0, 0xD6);
    EXPECT_EQ(BackOf(Hand->Row("Track2")), other);
    Hand->ClickRow("Track2");
    EXPECT_EQ(Dialog->SelectedTrack(), 2);
    EXPECT_EQ(BackOf(Hand->Row("Track1")), other);
    EXPECT_EQ(BackOf(Hand->Row("Track2")), QColor(Qt::white));
    EXPECT_EQ(BackOf(Hand->Row("Track3")), other);
}

TEST_F(TrackComposerWindow, ClearingEmptiesTheSelectedRowOrAsksForOne)
{
    OpenWith(QStringLiteral("DAT1"));
    Press("cmdClear");
    EXPECT_EQ(
        Station.Operator.Boxes,
        (QStringList{QStringLiteral("Select a Track|You must select a track to clear first! ")}));
    EXPECT_EQ(Hand->Row("Track1").Count(), 1);
    Hand->ClickRow("Track1");
    Press("cmdClear");
    EXPECT_EQ(Hand->Row("Track1").Count(), 0);
    EXPECT_EQ(Session.CurrentParams.Track1, QStringLiteral("DAT1"));
    Press("cmdOk");
    EXPECT_EQ(Session.CurrentParams.Track1, QString());
}

TEST_F(TrackComposerWindow, CancelDiscardsTheRows)
{
    OpenWith(QStringLiteral("DAT1~MOD10"));
    Hand->DragOnto("Track1", Seperator);
    Press("cmdCancel");
    EXPECT_EQ(Session.CurrentParams.Track1, QStringLiteral("DAT1~MOD10"));
    EXPECT_TRUE(Dialog.isNull());
}

TEST_F(TrackComposerWindow, WithoutALayoutItCanNeitherClearNorSave)
{
    Session.CurrentLayoutName.clear();
    Open();
    EXPECT_FALSE(Get<QPushButton>("cmdOk").isEnabled());
    EXPECT_FALSE(Get<QPushButton>("cmdClear").isEnabled());
    EXPECT_TRUE(Get<QPushButton>("cmdCancel").isEnabled());
}

TEST_F(TrackComposerWindow, SavingIsDisabledWhenTheLayoutCloses)
{
    Open();
    EXPECT_TRUE(Get<QPushButton>("cmdOk").isEnabled());
    Session.CurrentLayoutName.clear();
    Session.Face.SetCaption(QStringLiteral(" Vantrel"));
    QApplication::processEvents();
    EXPECT_FALSE(Get<QPushButton>("cmdOk").isEnabled());
}

TEST_F(TrackComposerWindow, ADoubleClickAsksForAStaticText)
{
    Open();
    Hand->DragOnto("Track1", StaticText);
    Station.Operator.Inputs = {QStringLiteral("ACME")};
    Hand->DoubleClick("T1Element(1)");
    EXPECT_EQ(Station.Operator.InputBoxes,
              (QStringList{QStringLiteral(
                  "Static Text Contents|Please enter a value for the static text|TEXT")}));
    EXPECT_EQ(Get<QLabel>("T1Element(1)").toolTip(),
              QStringLiteral("Current Text Value Is   :   ACME"));
    Hand->DoubleClick("T1Element(1)");
    EXPECT_TRUE(Station.Operator.InputBoxes.last().endsWith(QStringLiteral("|ACME")));
    EXPECT_EQ(Dialog->Ostrand_Encode(1), QStringLiteral("ACME"));
}

TEST_F(TrackComposerWindow, ADoubleClickOnAnyOtherKindDoesNothing)
{
    const QString formula = QStringLiteral("DAT1~SEP~MOD10~CODABAR~EBT~AUTO1");
    OpenWith(formula);
    ASSERT_EQ(Hand->Row("Track1").Count(), 6);
    for (int element = 1; element <= 6; ++element)
        Hand->DoubleClick(qPrintable(QStringLiteral("T1Element(%1)").arg(element)));
    EXPECT_TRUE(Station.Operator.InputBoxes.isEmpty());
    EXPECT_EQ(Dialog->Ostrand_Encode(1), QStringLiteral("DAT1~SEP"));
}

TEST_F(TrackComposerWindow, ADoubleClickAsksForThePaddingOfAFormattedField)
{
    Open();
    Hand->DragOnto("Track1", FormattedField);
    WhilePadding([](frmPad& pad) {
        auto& padChars = DesktopStation::Named<QLineEdit>(pad, "txtData");
        EXPECT_EQ(padChars.text(), QStringLiteral("FD"));
        padChars.setText(QStringLiteral("0"));
        DesktopStation::Named<QLineEdit>(pad, "txtLength").setText(QStringLiteral("8"));
        auto& fields = DesktopStation::Named<QTreeWidget>(pad, "tvwData");
        fields.setCurrentItem(fields.topLevelItem(1));
        DesktopStation::Named<QRadioButton>(pad, "optDirection(1)").setChecked(true);
        auto& save = DesktopStation::Named<QPushButton>(pad, "cmdSave");
        save.setEnabled(true);
        save.click();
    });
    Hand->DoubleClick("T1Element(1)");
    EXPECT_EQ(Dialog->Ostrand_Encode(1), QStringLiteral("FD0^8^1^2"));
    EXPECT_EQ(Session.Pad.PadLen, 0);
    EXPECT_EQ(Session.Pad.PadField, 2);
}

TEST_F(TrackComposerWindow, ThePaddingDialogShowsTheElementsPartsAndItsCancelLosesThem)
{
    Session.Pad.PadField = 4;
    OpenWith(QStringLiteral("FDx^9^1^2"));
    WhilePadding([](frmPad& pad) {
        EXPECT_EQ(DesktopStation::Named<QLineEdit>(pad, "txtData").text(), QStringLiteral("x"));
        EXPECT_EQ(DesktopStation::Named<QLineEdit>(pad, "txtLength").text(), QStringLiteral("9"));
        EXPECT_TRUE(DesktopStation::Named<QRadioButton>(pad, "optDirection(1)").isChecked());
        DesktopStation::Named<QPushButton>(pad, "cmdCancel").click();
    });
    Hand->DoubleClick("T1Element(1)");
    EXPECT_EQ(Dialog->Ostrand_Encode(1), QStringLiteral("FD^0^0^4"));
}

TEST_F(TrackComposerWindow, ThePaddingDialogBelongsToTheComposer)
{
    OpenWith(QStringLiteral("FD0^8^0^2"));
    WhilePadding([this](frmPad& pad) {
        EXPECT_EQ(pad.windowHandle()->transientParent(), Dialog->windowHandle());
    });
    Hand->DoubleClick("T1Element(1)");
}

TEST_F(TrackComposerWindow, ThePaddingDialogMayOutliveTheComposer)
{
    OpenWith(QStringLiteral("FD0^8^0^2"));
    WhilePadding([this](frmPad&) { delete Dialog.data(); });
    Hand->DoubleClick("T1Element(1)");
    EXPECT_TRUE(Dialog.isNull());
    EXPECT_EQ(Session.CurrentParams.Track1, QStringLiteral("FD0^8^0^2"));
}

TEST_F(TrackComposerWindow, TheKeyboardDoesWhatTheMouseDoes)
{
    Open();
    Hand->SelectNode(QStringLiteral("Data Field 2"));
    ComposerHand::PressKey(Hand->Tree(), Qt::Key_Return);
    EXPECT_FALSE(Dialog.isNull()) << "Enter in the tree must not save";
    EXPECT_EQ(Hand->Row("Track1").Count(), 0);
    ComposerHand::PressKey(Hand->Row("Track2"), Qt::Key_Space);
    EXPECT_EQ(Dialog->SelectedTrack(), 2);
    ComposerHand::PressKey(Hand->Tree(), Qt::Key_Return);
    Hand->SelectNode(StaticText);
    ComposerHand::PressKey(Hand->Tree(), Qt::Key_Enter);
    EXPECT_EQ(Hand->Row("Track2").Count(), 2);
    Dialog->activateWindow();
    ComposerHand::PressKey(Hand->Row("Track2"), Qt::Key_End);
    Station.Operator.Inputs = {QStringLiteral("ACME")};
    ComposerHand::PressKey(Get<QWidget>("T2Element(2)"), Qt::Key_Return);
    // Neither the mouse nor a key removes a single element here.
    ComposerHand::PressKey(Get<QWidget>("T2Element(2)"), Qt::Key_Delete);
    EXPECT_EQ(Dialog->Ostrand_Encode(2), QStringLiteral("DAT2~ACME"));
}

TEST_F(TrackComposerWindow, ThePreviewFollowsTheRowAndTheRecord)
{
    OpenWith(QStringLiteral("DAT1"));
    EXPECT_EQ(Preview(1), QStringLiteral("4000"));
    Hand->DragOnto("Track1", Seperator);
    Hand->DragOnto("Track1", QStringLiteral("Data Field 2"));
    EXPECT_EQ(Preview(1), QStringLiteral("4000^AB"));
    EXPECT_EQ(Preview(2), QString());
    SetRecord(Session, {QStringLiteral("1")});
    Session.Face.SetFields({});
    EXPECT_EQ(Preview(1), QString());
    EXPECT_EQ(Get<QLineEdit>("Track1Preview").placeholderText(),
              QStringLiteral("\"DAT2\" cannot be read with the last record"));
    EXPECT_EQ(Session.CurrentParams.Track1, QStringLiteral("DAT1"));
}

TEST_F(TrackComposerWindow, ALongRowScrollsToTheElementAddedLast)
{
    Open();
    for (int element = 0; element < 40; ++element)
        Hand->DragOnto("Track1", Seperator);
    QApplication::processEvents();
    const auto& row = Hand->Row("Track1");
    const auto& last = Get<QWidget>("T1Element(40)");
    EXPECT_GT(last.x(), row.viewport()->width());
    EXPECT_TRUE(row.viewport()->rect().contains(last.mapTo(row.viewport(), last.rect().center())));
}

} // namespace
} // namespace vantrel::test
