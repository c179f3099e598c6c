#include "base/Profile.h"
#include "road/StationProcess.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include "support/PtyPair.h"
#include <QFileInfo>
#include <csignal>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A program folder whose station listens on COM2 only, which is a cable of the test's.
class SerialFolder : public TestSession
{
public:
    SerialFolder() : TestSession({QStringLiteral("Vantrel PDF")})
    {
        WithDatabase();
        BeginLayout(Session, QStringLiteral("Badge"));
        AddField(Session, 1, {300, 300, 300, 2000});
        AddField(Session, 2, {900, 300, 300, 2000});
        SavePage(Session);
        Set("Serial Ports", "COM2", Device());
        constexpr struct
        {
            const char* Key;
            const char* Value;
        } Rows[] = {{"LastLayout", "Badge"}, {"CaptureEnabled", "True"},
                    {"UseIP", "False"},      {"UseSerial", "True"},
                    {"SPort", "2"},          {"SSettings", "19200,n,8,1"}};
        for (const auto& row : Rows)
            Set("Session 1", row.Key, QString::fromLatin1(row.Value));
    }

    QString Device() const { return Session.PathInFolder(QStringLiteral("adapter")); }
    /// Waits for the card of that number and reads it.
    QString TextOfCard(int number) const
    {
        const QString path = Session.PathInFolder(
            QStringLiteral("Printed/Session 1/card-%1.pdf").arg(number, 6, 10, QLatin1Char('0')));
        EXPECT_TRUE(EventsUntil([&] { return QFileInfo::exists(path); }));
        return TextOfPdf(path);
    }

    void SetOption(const char* key) const { Set("Station", key, QStringLiteral("True")); }

private:
    void Set(const char* section, const char* key, const QString& value) const
    {
        EXPECT_TRUE(WriteProfileValue(SettingsPath(Session.ProgramFolder),
                                      QLatin1StringView(section), QLatin1StringView(key), value));
    }
};

TEST(SerialStation, MakesACardOfEachRecordOnItsSerialPort)
{
    const SerialFolder folder;
    const PtyPair cable(folder.Device());
    StationProcess station(folder.Session.ProgramFolder);
    ASSERT_TRUE(EventsUntil([&] { return cable.Speed() == 19200; }));
    cable.Send("<Anna");
    cable.Send("+7>");
    EXPECT_EQ(folder.TextOfCard(1), QStringLiteral("Anna 7"));
    cable.Send("<Ren\xE9+8>");
    EXPECT_EQ(folder.TextOfCard(2), QStringLiteral("Ren\u00E9 8"));
    EXPECT_EQ(station.ListeningPorts(), QStringList());
    station.SendSignal(SIGTERM);
    EXPECT_EQ(station.ExitCode(), 0);
    EXPECT_EQ(station.ErrorLines(), QStringList());
}

TEST(SerialStation, KeepsEveryRecordOfOneSendAndAnswersEach)
{
    const SerialFolder folder;
    folder.SetOption("KeepEveryRecord");
    folder.SetOption("AnswerHost");
    const PtyPair cable(folder.Device());
    StationProcess station(folder.Session.ProgramFolder);
    ASSERT_TRUE(EventsUntil([&] { return cable.Speed() == 19200; }));
    constexpr int count = 1000;
    QByteArray records = "end of noise>";
    QByteArray answers;
    for (int number = 1; number <= count; ++number) {
        records += "<Anna+" + QByteArray::number(number) + ">\r\n";
        answers += "OK " + QByteArray::number(number) + " 1\r\n";
    }
    cable.Send(records);
    QByteArray received;
    EXPECT_TRUE(EventsUntil([&] {
        received += cable.Received();
        return received.size() >= answers.size();
    }));
    EXPECT_EQ(received, answers);
    EXPECT_EQ(folder.TextOfCard(1), QStringLiteral("Anna 1"));
    EXPECT_EQ(folder.TextOfCard(count), QStringLiteral("Anna %1").arg(count));
    station.SendSignal(SIGTERM);
    EXPECT_EQ(station.ExitCode(), 0);
    EXPECT_EQ(station.ErrorLines(), QStringList());
}

TEST(SerialStation, PortThatAnotherProcessHoldsIsPassedOver)
{
    const SerialFolder folder;
    const PtyPair cable(folder.Device());
    StationProcess first(folder.Session.ProgramFolder);
    ASSERT_TRUE(EventsUntil([&] { return cable.Speed() == 19200; }));
    StationProcess second(folder.Session.ProgramFolder, {.TellsSkips = true});
    ASSERT_TRUE(second.WaitUntilItTells(QStringLiteral("open serial port was passed over")));
    cable.Send("<A+B>");
    EXPECT_EQ(folder.TextOfCard(1), QStringLiteral("A B"));
    EXPECT_TRUE(second.IsRunning());
}

TEST(SerialStation, PulledAdapterIsClosedAndLeavesTheStationRunning)
{
    const SerialFolder folder;
    PtyPair cable(folder.Device());
    StationProcess station(folder.Session.ProgramFolder);
    ASSERT_TRUE(EventsUntil([&] { return cable.Speed() == 19200; }));
    cable.Send("<A+B>");
    EXPECT_EQ(folder.TextOfCard(1), QStringLiteral("A B"));
    const QString device = QFileInfo(folder.Device()).symLinkTarget();
    ASSERT_TRUE(station.HasOpen(device));
    cable.Unplug();
    EXPECT_TRUE(EventsUntil([&] { return !station.HasOpen(device); }));
    station.SendSignal(SIGTERM);
    EXPECT_EQ(station.ExitCode(), 0);
}

} // namespace
} // namespace vantrel::test
