#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include "samples/FreshInstall.h"
#include "station/session/SettingsGuide.h"
#include "support/Events.h"
#include "support/PdfReading.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTcpServer>
#include <csignal>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

constexpr int Patience = 60000;

QString Document(const char* name)
{
    QFile file(QStringLiteral(VANTREL_DOCS "/") + QLatin1StringView(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return QString::fromUtf8(file.readAll());
}

/// The blocks of shell commands that a page asks the reader to type, in their order.
QStringList CommandsOf(const QString& page)
{
    static const QRegularExpression block(QStringLiteral("^```sh\\n(.*?)^```$"),
                                          QRegularExpression::MultilineOption |
                                              QRegularExpression::DotMatchesEverythingOption);
    QStringList commands;
    for (auto found = block.globalMatch(page); found.hasNext();)
        commands.append(found.next().captured(1));
    return commands;
}

/// Runs a program to its end and expects exit code 0. @return what it wrote
QString RunToEnd(const QString& program, const QStringList& arguments,
                 const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment())
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(Patience)) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

QStringList Senders()
{
    const QString folder = QStringLiteral(VANTREL_DOCS "/senders/");
    return {folder + QStringLiteral("send.sh"), folder + QStringLiteral("send.py"),
            QStringLiteral(VANTREL_C_SENDER)};
}

TEST(Sender, TheSampleInEachLanguageMakesItsCard)
{
    StationFolder folder;
    const int port = folder.WithCapture();
    StationProcess station(folder.Session.ProgramFolder);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    int card = 0;
    for (const QString& program : Senders()) {
        ++card;
        RunToEnd(program, {QStringLiteral("127.0.0.1"), QString::number(port),
                           QStringLiteral("Ada Lovelace"), QString::number(card)});
        EXPECT_EQ(folder.TextOfCard(card), QStringLiteral("Ada Lovelace %1").arg(card))
            << program.toStdString();
    }
}

TEST(Sender, TheSampleInEachLanguageSendsUtf8ToAStationThatReadsIt)
{
    StationFolder folder;
    folder.SetOption("Encoding", QStringLiteral("utf-8"));
    const int port = folder.WithCapture();
    StationProcess station(folder.Session.ProgramFolder);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    auto utf8 = QProcessEnvironment::systemEnvironment();
    utf8.insert(QStringLiteral("SENDER_ENCODING"), QStringLiteral("utf-8"));
    utf8.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    const QString name = QStringLiteral("Świętosława Ελένη");
    int card = 0;
    for (const QString& program : Senders()) {
        ++card;
        RunToEnd(program,
                 {QStringLiteral("127.0.0.1"), QString::number(port), name, QString::number(card)},
                 utf8);
        EXPECT_EQ(folder.TextOfCard(card), name + QStringLiteral(" %1").arg(card))
            << program.toStdString();
    }
    EXPECT_EQ(station.ErrorLines(), QStringList());
}

TEST(Sender, TheSampleInEachLanguageWaitsForItsAnswer)
{
    StationFolder folder;
    folder.SetOption("AnswerHost", QStringLiteral("True"));
    const int port = folder.WithCapture();
    const QStringList record{QStringLiteral("--wait"), QStringLiteral("127.0.0.1"),
                             QString::number(port), QStringLiteral("Zo\u00EB")};
    {
        StationProcess station(folder.Session.ProgramFolder);
        ASSERT_TRUE(station.WaitUntilItListens(port));
        int card = 0;
        for (const QString& program : Senders()) {
            ++card;
            EXPECT_EQ(RunToEnd(program, record), QStringLiteral("OK %1 1\n").arg(card))
                << program.toStdString();
            // The card is whole when the answer comes.
            EXPECT_EQ(folder.Cards().size(), card);
        }
        station.SendSignal(SIGTERM);
        EXPECT_EQ(station.ExitCode(), 0);
    }
    folder.SetSetting("LastLayout", QString());
    StationProcess station(folder.Session.ProgramFolder);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    int number = 0;
    for (const QString& program : Senders()) {
        QProcess process;
        process.start(program, record);
        ASSERT_TRUE(process.waitForFinished(Patience)) << program.toStdString();
        EXPECT_EQ(process.readAllStandardOutput(),
                  "ERR " + QByteArray::number(++number) + " No layout is open.\n")
            << program.toStdString();
        EXPECT_EQ(process.exitCode(), 1) << program.toStdString();
    }
}

TEST(Sender, OfManyRecordsSendsThemInOneConnectionAndTellsTheirAnswers)
{
    StationFolder folder;
    folder.SetOption("AnswerHost", QStringLiteral("True"));
    folder.SetOption("KeepEveryRecord", QStringLiteral("True"));
    const int port = folder.WithCapture();
    StationProcess station(folder.Session.ProgramFolder);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    QProcess sender;
    sender.start(QStringLiteral(VANTREL_DOCS "/senders/send_many.py"),
                 {QStringLiteral("127.0.0.1"), QString::number(port)});
    constexpr int count = 50;
    QByteArray answers;
    for (int number = 1; number <= count; ++number) {
        sender.write("Anna\t" + QByteArray::number(number) + '\n');
        answers += QByteArray::number(number) + " OK " + QByteArray::number(number) + " 1\n";
    }
    sender.closeWriteChannel();
    ASSERT_TRUE(sender.waitForFinished(Patience));
    EXPECT_EQ(sender.readAllStandardOutput(), answers);
    EXPECT_EQ(sender.readAllStandardError(), QByteArray());
    EXPECT_EQ(sender.exitCode(), 0);
    EXPECT_EQ(folder.Cards().size(), count);
    EXPECT_EQ(folder.TextOfCard(count), QStringLiteral("Anna %1").arg(count));
}

TEST(Sender, TheSampleInEachLanguageReportsWhatItCannotSend)
{
    struct Refusal
    {
        QStringList Values;
        int ExitCode;
        QByteArray Told;
    };
    const Refusal refusals[] = {{{}, 2, "usage: "},
                                {{QStringLiteral("A"), QString()}, 1, "cannot be sent"},
                                {{QStringLiteral("A<")}, 1, "cannot be sent"},
                                {{QStringLiteral("A+B")}, 1, "cannot be sent"},
                                {{QStringLiteral(">")}, 1, "cannot be sent"},
                                // Nobody listens.
                                {{QStringLiteral("A")}, 1, "refused"}};
    QTcpServer gone;
    ASSERT_TRUE(gone.listen(QHostAddress::LocalHost));
    const QString port = QString::number(gone.serverPort());
    gone.close();
    auto english = QProcessEnvironment::systemEnvironment();
    english.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    for (const QString& program : Senders()) {
        for (const Refusal& refusal : refusals) {
            QProcess process;
            process.setProcessEnvironment(english);
            process.start(program, QStringList{QStringLiteral("127.0.0.1"), port} + refusal.Values);
            ASSERT_TRUE(process.waitForFinished(Patience)) << program.toStdString();
            const QByteArray said = process.readAllStandardError();
            EXPECT_EQ(process.exitCode(), refusal.ExitCode) << program.toStdString();
            EXPECT_TRUE(said.contains(refusal.Told)) << program.toStdString() << said.constData();
        }
    }
}

TEST(SettingsPage, DocumentsTheKeysAsTheyAreRead)
{
    EXPECT_EQ(Document("settings.md"), SettingsGuide());
}

/// The home of a reader, in which he types commands.
class ReaderHome
{
public:
    ReaderHome() = default;
    /// The station in it is a folder of the test's.
    explicit ReaderHome(const StationFolder& folder)
    {
        EXPECT_TRUE(
            QFile::link(folder.Session.ProgramFolder, m_home.filePath(QStringLiteral("station"))));
    }

    /// Runs the commands that a page asks the reader to type. @return their output
    QString Type(const QString& lines) const
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), m_home.path());
        environment.insert(QStringLiteral("PATH"),
                           QFileInfo(QStringLiteral(VANTREL_ADMIN_PROGRAM)).path() +
                               QLatin1Char(':') + environment.value(QStringLiteral("PATH")));
        return RunToEnd(QStringLiteral("bash"), {QStringLiteral("-ec"), lines}, environment);
    }

    QString PathOf(const char* name) const { return m_home.filePath(QLatin1StringView(name)); }

private:
    QTemporaryDir m_home;
};

TEST(AdministratorsGuide, BringsTheDatabaseBackAsItWas)
{
    const QStringList commands = CommandsOf(Document("administrators-guide.md"));
    ASSERT_EQ(commands.size(), 5);
    StationFolder folder;
    folder.AddAutoNumber(100);
    const int port = folder.WithCapture();
    folder.Session.LayoutDb.Close();
    const ReaderHome home(folder);
    const auto cardOf = [&](int number) {
        SendRecord(port, "<Ada+1>");
        return folder.TextOfCard(number);
    };
    {
        StationProcess station(folder.Session.ProgramFolder);
        ASSERT_TRUE(station.WaitUntilItListens(port));
        EXPECT_EQ(cardOf(1), QStringLiteral("Ada 1 101"));
        EXPECT_EQ(home.Type(commands.at(3)), QStringLiteral("ok\n"));
        EXPECT_EQ(cardOf(2), QStringLiteral("Ada 1 102"));
        station.SendSignal(SIGTERM);
        EXPECT_EQ(station.ExitCode(), 0);
    }
    home.Type(commands.at(4));
    StationProcess station(folder.Session.ProgramFolder);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    EXPECT_EQ(cardOf(3), QStringLiteral("Ada 1 102"));
}

TEST(AdministratorsGuide, PutsAnAutomaticNumberOntoAPageAndSetsIt)
{
    const QStringList commands = CommandsOf(Document("administrators-guide.md"));
    ASSERT_EQ(commands.size(), 5);
    StationFolder folder;
    const int port = folder.WithCapture();
    folder.Session.LayoutDb.Close();
    const ReaderHome home(folder);
    home.Type(commands.at(1));
    StationProcess station(folder.Session.ProgramFolder);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    SendRecord(port, "<Ada+1>");
    EXPECT_EQ(folder.TextOfCard(1), QStringLiteral("Ada 1 1001"));
    home.Type(commands.at(2));
    SendRecord(port, "<Ada+1>");
    EXPECT_EQ(folder.TextOfCard(2), QStringLiteral("Ada 1 5001"));
}

TEST(QuickStart, ItsCommandsMakeACard)
{
    const QStringList commands = CommandsOf(Document("quick-start.md"));
    ASSERT_EQ(commands.size(), 6);
    // The clone is built already: this is what it would build.
    EXPECT_EQ(commands.at(0), QStringLiteral("scripts/run.sh\n"
                                             "export PATH=$PWD/build/release/bin:$PATH\n"));
    EXPECT_EQ(commands.at(2), QStringLiteral("VANTREL_HOME=~/station vantrel\n"));

    const QTemporaryDir home;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), home.path());
    environment.insert(QStringLiteral("PATH"),
                       QFileInfo(QStringLiteral(VANTREL_ADMIN_PROGRAM)).path() + QLatin1Char(':') +
                           environment.value(QStringLiteral("PATH")));
    StationFolder designed;
    const int port = designed.WithCapture();
    const auto type = [&](QString lines) {
        EXPECT_TRUE(!lines.contains(QStringLiteral("tcp")) ||
                    lines.contains(QStringLiteral("/10001")));
        lines.replace(QStringLiteral("/10001"), QStringLiteral("/%1").arg(port));
        lines.replace(QStringLiteral(" 10001 "), QStringLiteral(" %1 ").arg(port));
        return RunToEnd(QStringLiteral("bash"), {QStringLiteral("-ec"), lines}, environment);
    };

    type(commands.at(1));
    const QString station = home.filePath(QStringLiteral("station"));
    const QString store = LayoutDatabasePath(station);
    ASSERT_TRUE(QFileInfo::exists(store));
    // The layout that the reader makes with the mouse is copied from a station that has it.
    designed.Session.LayoutDb.Close();
    ASSERT_TRUE(QFile::remove(store));
    ASSERT_TRUE(QFile::copy(LayoutDatabasePath(designed.Session.ProgramFolder), store));
    // Its settings are added to those of the new folder.
    QFile settings(designed.Session.PathInFolder(QStringLiteral("Vantrel 6.ini")));
    QFile own(station + QStringLiteral("/Vantrel 6.ini"));
    ASSERT_TRUE(settings.open(QIODevice::ReadOnly));
    ASSERT_TRUE(own.open(QIODevice::Append));
    own.write(settings.readAll());
    own.close();
    StationProcess process(station);
    ASSERT_TRUE(process.WaitUntilItListens(port));

    type(commands.at(3));
    const QString card = station + QStringLiteral("/Printed/Session 1/card-000001.pdf");
    ASSERT_TRUE(EventsUntil([&] { return QFileInfo::exists(card); }));
    EXPECT_EQ(TextOfPdf(card), QStringLiteral("Ada Lovelace 40012345"));
    const QString second = station + QStringLiteral("/Printed/Session 1/card-000002.pdf");
    type(QStringLiteral("cd '" VANTREL_DOCS "/..'\n") + commands.at(4));
    ASSERT_TRUE(EventsUntil([&] { return QFileInfo::exists(second); }));
    EXPECT_EQ(TextOfPdf(second), QString::fromUtf8("Zo\u00EB M\u00FCller 40012346"));
    EXPECT_TRUE(type(commands.at(5)).contains(QStringLiteral("card-000002.pdf")));
}

TEST(CardsFromAFile, TheirCommandsMakeTheCards)
{
    const QString page = Document("cards-from-a-file.md");
    const QStringList commands = CommandsOf(page);
    ASSERT_EQ(commands.size(), 7);
    const ReaderHome home;
    EXPECT_EQ(
        home.Type(commands.at(0)),
        QStringLiteral("2 rows would print\n2 rows printed: %1\n").arg(home.PathOf("members.pdf")));
    EXPECT_EQ(PagesOfPdf(home.PathOf("members.pdf")), 4);
    EXPECT_TRUE(TextOfPdf(home.PathOf("members.pdf")).contains(QStringLiteral("Okafor, Miriam")));
    home.Type(commands.at(1));
    const QString card = TextOfPdf(home.PathOf("library/card-000002.pdf"));
    EXPECT_TRUE(card.contains(QStringLiteral("Okafor, Miriam"))) << card.toStdString();
    EXPECT_FALSE(card.contains(QStringLiteral("Silver"))) << card.toStdString();
    home.Type(commands.at(2));
    EXPECT_TRUE(TextOfPdf(home.PathOf("record.pdf")).contains(QStringLiteral("Ada Lovelace")));
    const QString told =
        home.Type(QStringLiteral("exec 2>&1\n") + commands.at(3)).section(QLatin1Char('\n'), 0, 0);
    EXPECT_TRUE(told.startsWith(QStringLiteral("vantrel-print: Line 3: "))) << told.toStdString();
    EXPECT_TRUE(page.contains(told)) << told.toStdString();
    // The second card lacks its photo.
    EXPECT_EQ(PictureObjectsOfPdf(home.PathOf("photos.pdf")).size() + 1,
              PictureObjectsOfPdf(home.PathOf("members.pdf")).size());
    EXPECT_EQ(home.Type(commands.at(4)).section(QLatin1Char('\n'), 1),
              QStringLiteral("card-000001.pdf\ncard-000002.pdf\ncard-000003.pdf\n"
                             "card-000004.pdf\n"));
    const QString entries = home.Type(commands.at(5));
    EXPECT_EQ(entries.count(QStringLiteral("members.csv:3")), 4) << entries.toStdString();
    const QString withoutCard = home.Type(commands.at(6));
    EXPECT_FALSE(withoutCard.contains(QStringLiteral("members.csv"))) << withoutCard.toStdString();
}

} // namespace
} // namespace vantrel::test
