#include "desktop/CommSettingsWindow.h"
#include "desktop/controls/ScreenUnits.h"
#include <QGroupBox>

namespace vantrel::test {
namespace {

TEST_F(CommSettingsWindow, ShowsItsTabsControlsAndTexts)
{
    Open();
    EXPECT_EQ(Dialog->windowTitle(), QStringLiteral("Communication Settings"));
    EXPECT_TRUE(Dialog->isModal());
    auto& tabs = Get<QTabWidget>("TabStrip");
    ASSERT_EQ(tabs.count(), 3);
    EXPECT_EQ(tabs.tabText(0), QStringLiteral("IP Network"));
    EXPECT_EQ(tabs.tabText(1), QStringLiteral("Serial"));
    EXPECT_EQ(tabs.tabText(2), QStringLiteral("Parallel"));
    EXPECT_TRUE(tabs.isTabEnabled(1));
    EXPECT_FALSE(tabs.isTabEnabled(2));
    EXPECT_FALSE(Get<QCheckBox>("chkParallel").isEnabled());
    constexpr struct
    {
        const char* Name;
        const char* Caption;
    } Buttons[] = {{"chkUseIP", "Use This Feature"},
                   {"chkForceClose", "Force socket to close after printing"},
                   {"chkMultiConnect", "Allow Concurrent Connections"},
                   {"chkUseSerial", "Use This Feature"},
                   {"chkParallel", "Use This Feature"},
                   {"rdoStopBits(0)", "1"},
                   {"rdoStopBits(1)", "1.5"},
                   {"rdoStopBits(2)", "2"},
                   {"rdoFlowControl(0)", "None"},
                   {"rdoFlowControl(1)", "Hardware"},
                   {"rdoFlowControl(2)", "Xon / Xoff"},
                   {"cmdSave", "&Ok"},
                   {"Command2", "&Cancel"}};
    static_assert(std::size(Buttons) == 13);
    for (const auto& row : Buttons)
        EXPECT_EQ(Get<QAbstractButton>(row.Name).text(), QString::fromLatin1(row.Caption));
    QStringList groups;
    for (const QGroupBox* group : Dialog->findChildren<QGroupBox*>())
        groups.append(group->title());
    EXPECT_EQ(groups, (QStringList{QStringLiteral("Stop Bits"), QStringLiteral("Flow Control")}));
    for (const char* text : {"Emulate Device", "TCP/IP Port", "Speed", "Parity", "Data Bits"})
        EXPECT_NE(Label(text).buddy(), nullptr) << text;
    EXPECT_TRUE(Get<QPushButton>("cmdSave").isDefault());
}

TEST_F(CommSettingsWindow, ListsHoldTheirRows)
{
    Open();
    EXPECT_EQ(Rows("cbxDevices").join(QLatin1Char('|')),
              QStringLiteral("HP JetDirect Device|Custom Port Settings"));
    EXPECT_EQ(Get<QComboBox>("cbxDevices").currentText(), QStringLiteral("Custom Port Settings"));
    EXPECT_EQ(Rows("cbxSpeed").join(QLatin1Char(' ')),
              QStringLiteral("300 600 1200 1800 2400 4800 7200 9600 14400 19200 38400 57600 115200 "
                             "128000"));
    EXPECT_EQ(Rows("cbxParity").join(QLatin1Char(' ')), QStringLiteral("Even Odd None Mark Space"));
    EXPECT_EQ(Rows("cbxDataBits").join(QLatin1Char('|')),
              QStringLiteral("4 Bits|5 Bits|6 Bits|7 Bits|8 Bits"));
    auto& ports = Get<QListWidget>("lstPorts");
    ASSERT_EQ(ports.count(), 16);
    for (int row = 0; row < 16; ++row)
        EXPECT_EQ(ports.item(row)->text(), QStringLiteral("COM%1").arg(row + 1));
}

TEST_F(CommSettingsWindow, OpensOnWhatIsInForce)
{
    Session.Settings.Port = 9234;
    Session.Settings.SFlowCtrl = 2;
    Session.Settings.SSettings = QStringLiteral("bad");
    Open();
    EXPECT_EQ(Get<QLineEdit>("txtPort").text(), QStringLiteral("9234"));
    EXPECT_EQ(Get<DesktopUpDown>("udPort").Value(), 9234);
    EXPECT_EQ(Dialog->GetCommSettings(), QStringLiteral("9600,n,8,1"));
    EXPECT_EQ(Get<QComboBox>("cbxDataBits").currentText(), QStringLiteral("8 Bits"));
    EXPECT_TRUE(Get<QRadioButton>("rdoFlowControl(1)").isChecked());
    EXPECT_EQ(Ticked(), QList<int>{2});
}

TEST_F(CommSettingsWindow, IsPlacedByTheSizeOfTheMainWindowOnly)
{
    Open();
    const QSize main = Station.Window.frameSize();
    EXPECT_EQ(Dialog->x(), (main.width() - Dialog->width()) / 2);
    EXPECT_EQ(Dialog->y(), (main.height() - Dialog->height()) / 2 - ScreenPixels(400));
}

TEST_F(CommSettingsWindow, OpeningAppliesTheThreeFeatureBoxes)
{
    const PtyPair cable(Device());
    Session.Settings.UseIP = true;
    Session.Settings.UseSerial = true;
    Session.Settings.UseParallel = true;
    EXPECT_EQ(Session.Sock.State(0), SockState::Closed);
    Open();
    EXPECT_TRUE(Get<QCheckBox>("chkUseIP").isChecked());
    EXPECT_TRUE(Get<QCheckBox>("chkUseSerial").isChecked());
    EXPECT_TRUE(Get<QCheckBox>("chkParallel").isChecked());
    EXPECT_EQ(Session.Sock.State(0), SockState::Listening);
    EXPECT_TRUE(Session.Comm.PortOpen());
    for (const char* key : {"UseIP", "UseSerial", "UseParallel"})
        EXPECT_EQ(Stored(key), QStringLiteral("True")) << key;
}

TEST_F(CommSettingsWindow, NetworkControlsFollowItsBox)
{
    Open();
    constexpr const char* Names[] = {"cbxDevices", "txtPort", "udPort", "chkForceClose",
                                     "chkMultiConnect"};
    const auto expectEnabled = [&](bool on) {
        for (const char* name : Names)
            EXPECT_EQ(Get<QWidget>(name).isEnabled(), on) << name;
        for (const char* text : {"Emulate Device", "TCP/IP Port"})
            EXPECT_EQ(Label(text).isEnabled(), on) << text;
    };
    expectEnabled(false);
    Press("chkUseIP");
    expectEnabled(true);
    EXPECT_TRUE(Get<QCheckBox>("chkMultiConnect").hasFocus());
    Press("chkForceClose");
    Press("chkMultiConnect");
    Press("chkUseIP");
    expectEnabled(false);
    EXPECT_EQ(Session.Sock.State(0), SockState::Closed);
    EXPECT_EQ(Stored("UseIP"), QStringLiteral("False"));
}

} // namespace
} // namespace vantrel::test
