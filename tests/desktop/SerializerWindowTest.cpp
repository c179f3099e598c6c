#include "desktop/ComposerHand.h"
#include "desktop/composers/frmSerialize.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/dialogs/frmPrinters2.h"
#include "station/print/Serializer.h"
#include "support/Layouts.h"
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// The composer of the output stream over a station with a layout and a record of two values.
class SerializerWindow : public ::testing::Test
{
protected:
    SerializerWindow()
    {
        Station.WithLayout();
        SetRecord(Session, {QStringLiteral("12-3"), QStringLiteral("ab")});
        Open();
    }

    void Open()
    {
        Dialog = &OpenDialog<frmSerialize>(Session, &Station.Window);
        Hand = std::make_unique<ComposerHand>(*Dialog);
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
    void Drag(const char16_t* node) { Hand->DragOnto("OStream", QString::fromUtf16(node)); }
    DesktopElementRow& Stream() { return Hand->Row("OStream"); }
    QString Preview() { return Get<QLineEdit>("OStreamPreview").text(); }
    /// Saves. @return what a print would send then
    QString Sent()
    {
        Press("cmdSave");
        EXPECT_TRUE(Dialog.isNull());
        return BuildSerializerPattern(Session);
    }

    DesktopStation Station;
    vantrel::Session& Session = Station.Session;
    QPointer<frmSerialize> Dialog;
    std::unique_ptr<ComposerHand> Hand;
};

TEST_F(SerializerWindow, ShowsItsCaptionsTheTreeAndItsPlace)
{
    EXPECT_EQ(Dialog->windowTitle(), QStringLiteral("Data Stream Serializer"));
    EXPECT_EQ(Get<QPushButton>("cmdSave").text(), QStringLiteral("&Save"));
    EXPECT_EQ(Get<QPushButton>("cmdClear").text(), QStringLiteral("&Clear"));
    EXPECT_EQ(Get<QPushButton>("cmdExit").text(), QStringLiteral("&Cancel"));
    EXPECT_EQ(Hand->Tree().accessibleName(), QStringLiteral("Stream Elements"));
    EXPECT_EQ(Stream().accessibleName(), QStringLiteral("Output Stream"));
    EXPECT_EQ(Hand->Nodes(),
              (QStringList{QStringLiteral("Normal Text"), QStringLiteral("Data Start"),
                           QStringLiteral("Data Stop"), QStringLiteral("Carrage Return"),
                           QStringLiteral("Formatted Data Field"),
                           QStringLiteral("Data Field 1        (12-3)"),
                           QStringLiteral("Data Field 2        (ab)")}));
    EXPECT_EQ(Dialog->pos(), QPoint(120, 100));
    EXPECT_FALSE(Dialog->isModal());
}

TEST_F(SerializerWindow, ThePrinterSelectionOpensItForASerializedLayout)
{
    Press("cmdExit");
    Session.CurrentParams.PrinterType = PrinterTypeCode::Serialized;
    OpenPrinterSelection(Session, &Station.Window);
    auto& configure = Station.Get<QPushButton>("cmdConfig");
    ASSERT_TRUE(configure.isEnabled());
    configure.click();
    EXPECT_TRUE(Station.Get<frmSerialize>("frmSerialize").isVisible());
}

TEST_F(SerializerWindow, DraggedElementsAreStoredFilteredAndSent)
{
    Drag(u"Data Start");
    Drag(u"Data Field 1        (12-3)");
    Drag(u"Normal Text");
    Drag(u"Data Field 2        (ab)");
    Drag(u"Carrage Return");
    Drag(u"Data Stop");
    Station.Operator.Inputs = {QStringLiteral("X")};
    Hand->DoubleClick("T1Element(3)");
    EXPECT_EQ(Station.Operator.InputBoxes,
              (QStringList{QStringLiteral("Enter a new value|Enter a new value|")}));
    EXPECT_EQ(Get<QLabel>("T1Element(2)").text(), QStringLiteral("1"));
    EXPECT_EQ(Get<QLabel>("T1Element(3)").toolTip(), QStringLiteral("X"));
    Get<QLineEdit>("txtFilter").setText(QStringLiteral("[2D]"));
    EXPECT_EQ(Preview(), QStringLiteral(" <123Xab[D]>"));
    EXPECT_EQ(Sent(), QStringLiteral(" <123Xab\r>"));
    Open();
    EXPECT_EQ(Get<QLineEdit>("txtFilter").text(), QStringLiteral("-"));
    EXPECT_EQ(Stream().Count(), 6);
}

TEST_F(SerializerWindow, AFormattedFieldCanBeDroppedAndAddsNothing)
{
    Drag(u"Formatted Data Field");
    EXPECT_EQ(Stream().Count(), 0);
    EXPECT_TRUE(Hand->DropWord("OStream", QStringLiteral("HEX")));
    EXPECT_TRUE(Hand->DropWord("OStream", QStringLiteral("AUTO=1")));
    EXPECT_EQ(Stream().Count(), 2);
    EXPECT_EQ(Get<QLabel>("T1Element(2)").text(), QStringLiteral("++"));
}

TEST_F(SerializerWindow, AnEmptyAnswerIsTakenToo)
{
    Drag(u"Normal Text");
    Station.Operator.Inputs = {QStringLiteral("MYTEXT"), QString()};
    Hand->DoubleClick("T1Element(1)");
    EXPECT_EQ(Preview(), QStringLiteral(" MY"));
    Hand->DoubleClick("T1Element(1)");
    EXPECT_EQ(Get<QLabel>("T1Element(1)").toolTip(), QString());
    EXPECT_EQ(Sent(), QStringLiteral(" "));
}

TEST_F(SerializerWindow, ADoubleClickOnAnyOtherElementDoesNothing)
{
    Drag(u"Data Start");
    Drag(u"Data Field 2        (ab)");
    Hand->DropWord("OStream", QStringLiteral("HEX"));
    for (const char* element : {"T1Element(1)", "T1Element(2)", "T1Element(3)"})
        Hand->DoubleClick(element);
    EXPECT_TRUE(Station.Operator.InputBoxes.isEmpty());
    EXPECT_EQ(Sent(), QStringLiteral(" <ab"));
}

TEST_F(SerializerWindow, TheRightButtonRemembersAnElementAndItsRemovalTakesIt)
{
    Drag(u"Data Start");
    Drag(u"Data Field 2        (ab)");
    Drag(u"Data Stop");
    Dialog->RemoveElement();
    EXPECT_EQ(Stream().Count(), 3);
    Hand->RightClick("T1Element(2)");
    EXPECT_EQ(Stream().Count(), 3);
    Dialog->RemoveElement();
    Dialog->RemoveElement();
    EXPECT_EQ(Sent(), QStringLiteral(" <>"));
}

TEST_F(SerializerWindow, TheRightButtonOffersTheRemoval)
{
    Drag(u"Data Start");
    Drag(u"Data Stop");
    Hand->RightClick("T1Element(1)");
    Get<QAction>("cmdRemove").trigger();
    QApplication::activePopupWidget()->close();
    EXPECT_EQ(Sent(), QStringLiteral(" >"));
}

TEST_F(SerializerWindow, TheDeleteKeyRemovesAnElementAndEnterAppendsOne)
{
    Hand->SelectNode(QStringLiteral("Data Start"));
    ComposerHand::PressKey(Hand->Tree(), Qt::Key_Return);
    Hand->SelectNode(QStringLiteral("Carrage Return"));
    ComposerHand::PressKey(Hand->Tree(), Qt::Key_Return);
    ComposerHand::PressKey(Hand->Tree(), Qt::Key_Enter);
    EXPECT_EQ(Preview(), QStringLiteral(" <[D][D]"));
    Dialog->activateWindow();
    ComposerHand::PressKey(Stream(), Qt::Key_End);
    ComposerHand::PressKey(Stream(), Qt::Key_Left);
    ComposerHand::PressKey(Get<QWidget>("T1Element(2)"), Qt::Key_Delete);
    EXPECT_EQ(Sent(), QStringLiteral(" <\r"));
}

TEST_F(SerializerWindow, ClearAndCancelStoreNothing)
{
    Drag(u"Data Start");
    EXPECT_EQ(Sent(), QStringLiteral(" <"));
    Open();
    Press("cmdClear");
    Get<QLineEdit>("txtFilter").setText(QStringLiteral("x"));
    EXPECT_EQ(Stream().Count(), 0);
    Press("cmdExit");
    EXPECT_TRUE(Dialog.isNull());
    EXPECT_EQ(Session.CurrentParams.Filter, QString());
    EXPECT_EQ(BuildSerializerPattern(Session), QStringLiteral(" <"));
}

TEST_F(SerializerWindow, ALongValueDoesNotWidenIt)
{
    const int width = Dialog->width();
    const int room = Hand->Tree().minimumWidth();
    Press("cmdExit");
    SetRecord(Session, {QString(20000, QLatin1Char('W'))});
    Open();
    QApplication::processEvents();
    EXPECT_EQ(Dialog->width(), width);
    EXPECT_LE(Hand->Tree().minimumWidth(), 2 * room);
    EXPECT_EQ(Hand->Nodes().last().size(), 1000);
}

TEST_F(SerializerWindow, AFilterOfControlCharactersStaysWhereItIsSavedUnchanged)
{
    Get<QLineEdit>("txtFilter").setText(QStringLiteral("[D][A][9]-"));
    Press("cmdSave");
    EXPECT_EQ(Session.CurrentParams.Filter, QStringLiteral("\r\n\t-"));
    Open();
    Press("cmdSave");
    EXPECT_EQ(Session.CurrentParams.Filter, QStringLiteral("\r\n\t-"));
}

TEST_F(SerializerWindow, ThePreviewFollowsTheRecordAndRaisesNoNumber)
{
    CardObject& number = AddNumber(Session, 5);
    Drag(u"Data Field 1        (12-3)");
    EXPECT_EQ(Preview(), QStringLiteral(" 12-3"));
    SetRecord(Session, {QStringLiteral("new")});
    Session.Face.SetFields({});
    EXPECT_EQ(Preview(), QStringLiteral(" new"));
    EXPECT_EQ(number.DataField, QStringLiteral("5"));
}

} // namespace
} // namespace vantrel::test
