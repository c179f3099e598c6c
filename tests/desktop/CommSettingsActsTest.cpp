#include "desktop/CommSettingsWindow.h"
#include <QAccessible>
#include <QAccessibleActionInterface>

namespace vantrel::test {
namespace {

TEST_F(CommSettingsWindow, JetDirectDeviceIsStoredAsPort9100)
{
    Open();
    Press("chkUseIP");
    Choose("cbxDevices", "HP JetDirect Device");
    EXPECT_EQ(Get<QLineEdit>("txtPort").text(), QStringLiteral("9100"));
    EXPECT_EQ(Get<DesktopUpDown>("udPort").Value(), 9100);
    EXPECT_FALSE(Get<QLineEdit>("txtPort").isEnabled());
    // Turning the feature off and on again leaves the port field of this device read-only.
    Press("chkUseIP");
    Press("chkUseIP");
    EXPECT_FALSE(Get<QLineEdit>("txtPort").isEnabled());
    Press("chkUseIP");
    Press("cmdSave");
    EXPECT_EQ(Dialog, nullptr);
    EXPECT_EQ(Stored("Port"), QStringLiteral("9100"));
    EXPECT_EQ(Session.Settings.Port, 9100);
}

TEST_F(CommSettingsWindow, CustomDeviceShowsThePresentPortOfTheListener)
{
    Open();
    Press("chkUseIP");
    const QString port = QString::number(Session.Sock.LocalPort());
    Choose("cbxDevices", "HP JetDirect Device");
    Choose("cbxDevices", "Custom Port Settings");
    EXPECT_EQ(Get<QLineEdit>("txtPort").text(), port);
    EXPECT_TRUE(Get<QLineEdit>("txtPort").isEnabled());
}

TEST_F(CommSettingsWindow, PortTakesDigitsOnlyAndItsArrowsFollow)
{
    Open();
    Press("chkUseIP");
    auto& port = Get<QLineEdit>("txtPort");
    port.clear();
    constexpr const char* Typed[] = {"9", "x", "2", "-", "3", " ", ".", "4"};
    for (const char* text : Typed)
        Type(port, *text, text);
    EXPECT_EQ(port.text(), QStringLiteral("9234"));
    EXPECT_EQ(Get<DesktopUpDown>("udPort").Value(), 9234);
    Get<DesktopUpDown>("udPort").UpButton().click();
    EXPECT_EQ(port.text(), QStringLiteral("9235"));
    Get<DesktopUpDown>("udPort").DownButton().click();
    Get<DesktopUpDown>("udPort").DownButton().click();
    EXPECT_EQ(port.text(), QStringLiteral("9233"));
    port.setText(QStringLiteral("99999999999"));
    EXPECT_EQ(port.text(), QStringLiteral("99999999999"));
    port.clear();
    EXPECT_EQ(Get<DesktopUpDown>("udPort").Value(), 0);
    EXPECT_EQ(port.text(), QString());
}

TEST_F(CommSettingsWindow, PortRowsTickOneByMouseAndByKey)
{
    Open();
    ClickPort(6);
    EXPECT_EQ(Ticked(), QList<int>{6});
    auto& ports = Get<QListWidget>("lstPorts");
    Get<QTabWidget>("TabStrip").setCurrentIndex(1);
    ports.setFocus();
    ports.setCurrentRow(15);
    EXPECT_EQ(Ticked(), QList<int>{6});
    Type(ports, Qt::Key_Space, " ");
    EXPECT_EQ(Ticked(), QList<int>{15});
    Press("cmdSave");
    EXPECT_EQ(Session.Settings.SPort, 16);
    EXPECT_EQ(Stored("SPort"), QStringLiteral("16"));
}

TEST_F(CommSettingsWindow, SavingWithoutAPortRowKeepsTheNumber)
{
    for (const std::uint8_t number : {std::uint8_t{0}, std::uint8_t{3}, std::uint8_t{200}}) {
        Session.Settings.SPort = number;
        Open();
        EXPECT_EQ(Ticked(), number == 3 ? QList<int>{2} : QList<int>());
        Press("cmdSave");
        EXPECT_EQ(Session.Settings.SPort, number);
        EXPECT_EQ(Stored("SPort"), QString::number(number));
    }
}

TEST_F(CommSettingsWindow, SerialChoicesAreStoredByTheButton)
{
    const PtyPair cable(Device());
    Open();
    Press("chkUseSerial");
    ASSERT_TRUE(Session.Comm.PortOpen());
    Choose("cbxSpeed", "19200");
    Choose("cbxParity", "None");
    Choose("cbxDataBits", "8 Bits");
    Press("rdoStopBits(2)");
    Press("rdoFlowControl(2)");
    EXPECT_EQ(cable.Speed(), 9600U);
    EXPECT_EQ(Session.Settings.SSettings, QStringLiteral("9600,n,8,1"));
    Press("cmdSave");
    EXPECT_EQ(Dialog, nullptr);
    EXPECT_EQ(Stored("SSettings"), QStringLiteral("19200,n,8,2"));
    EXPECT_EQ(Stored("SFlowCtrl"), QStringLiteral("1"));
    EXPECT_EQ(cable.Speed(), 19200U);
    EXPECT_TRUE(cable.HasLongStop());
    EXPECT_TRUE(cable.HasXonXoff());
}

TEST_F(CommSettingsWindow, EachFlowButtonIsStoredUnderItsNumber)
{
    constexpr struct
    {
        const char* Name;
        int Number;
    } Buttons[] = {{"rdoFlowControl(0)", 0}, {"rdoFlowControl(1)", 2}, {"rdoFlowControl(2)", 1}};
    static_assert(std::size(Buttons) == std::size(CommFlows));
    for (const auto& row : Buttons) {
        Open();
        Press(row.Name);
        Press("cmdSave");
        EXPECT_EQ(Session.Settings.SFlowCtrl, row.Number);
        EXPECT_EQ(Stored("SFlowCtrl"), QString::number(row.Number));
    }
}

TEST_F(CommSettingsWindow, FourDataBitsComeBackAsWhatThePortHas)
{
    const PtyPair cable(Device());
    Open();
    Press("chkUseSerial");
    Choose("cbxDataBits", "4 Bits");
    Press("cmdSave");
    EXPECT_EQ(Stored("SSettings"), QStringLiteral("9600,n,4,1"));
    Open();
    EXPECT_EQ(Get<QComboBox>("cbxDataBits").currentText(), QStringLiteral("8 Bits"));
}

TEST_F(CommSettingsWindow, CancelKeepsTheEffectOfTheFeatureBoxesOnly)
{
    for (const bool byKey : {false, true}) {
        const PtyPair cable(Device());
        Session.Settings.UseSerial = false;
        Open();
        Press("chkUseSerial");
        ClickPort(7);
        Choose("cbxSpeed", "300");
        if (byKey) {
            Type(*Dialog, Qt::Key_Escape);
            QCoreApplication::processEvents();
        } else {
            Press("Command2");
        }
        EXPECT_EQ(Dialog, nullptr);
        EXPECT_TRUE(Session.Settings.UseSerial);
        EXPECT_TRUE(Session.Comm.PortOpen());
        EXPECT_EQ(Stored("UseSerial"), QStringLiteral("True"));
        EXPECT_EQ(Session.Settings.SPort, 3);
        EXPECT_EQ(Stored("SPort"), QStringLiteral("(absent)"));
        EXPECT_EQ(Stored("SSettings"), QStringLiteral("(absent)"));
    }
}

TEST_F(CommSettingsWindow, RecordsArriveWhileItIsOpen)
{
    const PtyPair cable(Device());
    Session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};
    Open();
    Press("chkUseSerial");
    cable.Send("<A+B>");
    EXPECT_TRUE(EventsUntil([&] { return Session.FieldValues.Count() == 2; }));
    EXPECT_TRUE(Dialog->isVisible());
}

/// What a screen reader's "toggle" does to a control.
void Toggle(QWidget& control)
{
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&control);
    ASSERT_TRUE(
        told->actionInterface()->actionNames().contains(QAccessibleActionInterface::toggleAction()))
        << control.objectName().toStdString();
    told->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
}

TEST_F(CommSettingsWindow, AFeatureToggledByAScreenReaderIsUsedAtOnce)
{
    Open();
    ASSERT_FALSE(Session.Settings.UseIP);
    Toggle(Get<QCheckBox>("chkUseIP"));
    EXPECT_TRUE(Session.Settings.UseIP);
    EXPECT_GT(Session.Sock.LocalPort(), 0);
    EXPECT_TRUE(Get<QLineEdit>("txtPort").isEnabled());
    Toggle(Get<QCheckBox>("chkUseIP"));
    EXPECT_FALSE(Session.Settings.UseIP);
    EXPECT_EQ(Stored("UseIP"), QStringLiteral("False"));
    EXPECT_FALSE(Get<QLineEdit>("txtPort").isEnabled());
}

TEST_F(CommSettingsWindow, AFlowControlToggledByAScreenReaderIsSaved)
{
    Session.Settings.SFlowCtrl = 0;
    Open();
    Toggle(Get<QRadioButton>("rdoFlowControl(1)"));
    Press("cmdSave");
    EXPECT_EQ(Session.Settings.SFlowCtrl, 2);
}

} // namespace
} // namespace vantrel::test
