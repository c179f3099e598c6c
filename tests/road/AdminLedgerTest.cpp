#include "AdminLedger.h"
#include "road/TestedProgram.h"
#include "support/Memory.h"
#include <QDateTime>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <sys/resource.h>

namespace vantrel::test {

namespace {

const QString Json = QStringLiteral("--json");
const QString Limit = QStringLiteral("--limit");
const QString All = QStringLiteral("0");

class AdminLedgerReading : public AdminLedger
{
protected:
    QJsonObject Parsed(const char* verb, const QStringList& further = {}) const
    {
        QJsonParseError error;
        const QJsonDocument document =
            QJsonDocument::fromJson(Output(verb, further + QStringList{Json}).toUtf8(), &error);
        EXPECT_EQ(error.error, QJsonParseError::NoError);
        return document.object();
    }
    /// The numbers of the entries that `list` shows.
    std::vector<int> Listed(const QStringList& options = {}) const
    {
        std::vector<int> ids;
        const QJsonArray entries = Parsed("list", options).value(u"entries").toArray();
        for (const auto& entry : entries)
            ids.push_back(entry[u"id"].toInt());
        return ids;
    }
    /// The local time of an entry, as tables show it.
    static QString Shown(qint64 time)
    {
        return QDateTime::fromMSecsSinceEpoch(time).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    }
};

using Ids = std::vector<int>;

TEST_F(AdminLedgerReading, AListIsATableForPeople)
{
    Add(PrintedEntry({QStringLiteral("Ada"), QStringLiteral("Gold")}, {QStringLiteral("1001")}));
    LedgerEntry failed = PrintedEntry({QStringLiteral("Grace")});
    failed.State = LedgerState::Failed;
    failed.Reason = QStringLiteral("No layout is open");
    failed.Source = QStringLiteral("COM1");
    failed.ReprintOf = 1;
    failed.Cards.clear();
    Add(failed);
    const QString at = Shown(failed.Received);
    EXPECT_EQ(Lines("list"),
              QStringList(
                  {QStringLiteral("ID  State    Received             Session  Source          "
                                  "    Layout  Reprint of  Cards  Numbers  Values      Reason"),
                   QStringLiteral(" 2  failed   %1        1  COM1                Badge            1"
                                  "      0           Grace       No layout is open")
                       .arg(at),
                   QStringLiteral(" 1  printed  %1        1  192.168.7.10:51234  Badge             "
                                  "      1  1001     Ada | Gold")
                       .arg(at)}));
}

TEST_F(AdminLedgerReading, AnEmptyLedgerIsATableOfTitlesAndAnEmptyList)
{
    EXPECT_EQ(Lines("list").size(), 1);
    EXPECT_EQ(Output("list", {Json}), QStringLiteral("{\"entries\": []}\n"));
    EXPECT_EQ(Output("counts", {Json}), QStringLiteral("{\"counts\": []}\n"));
}

TEST_F(AdminLedgerReading, ColumnsStandBelowEachOtherWhateverTheWidthOfCharacters)
{
    // Two wide characters, an accent that combines, and plain letters take four columns each.
    for (const char* layout : {"\u65E5\u672C", "ae\u0301io", "Card"}) {
        LedgerEntry entry = PrintedEntry({QStringLiteral("x")});
        entry.Layout = QString::fromUtf8(layout);
        Add(entry);
    }
    const QStringList lines = Lines("list");
    ASSERT_EQ(lines.size(), 4);
    const auto row = [](const char* layout) -> QString {
        return QStringLiteral("  ") + QString::fromUtf8(layout) + QString(20, u' ') +
               QStringLiteral("1  ");
    };
    EXPECT_TRUE(lines.at(1).contains(row("Card"))) << lines.join(u'\n').toStdString();
    EXPECT_TRUE(lines.at(2).contains(row("ae\u0301io"))) << lines.join(u'\n').toStdString();
    EXPECT_TRUE(lines.at(3).contains(row("\u65E5\u672C"))) << lines.join(u'\n').toStdString();
}

TEST_F(AdminLedgerReading, ControlCharactersOfAValueReachNoTerminal)
{
    const auto id = AddPrinted("a\x1B[2J\r\n\x07\x7F\u009B\u202E"
                               "b");
    const QString shown = QString::fromUtf8("a\u241B[2J\u240D\u240A\u2407\u2421\uFFFD\uFFFDb");
    EXPECT_TRUE(Lines("list").at(1).endsWith(shown)) << Lines("list").at(1).toStdString();
    EXPECT_TRUE(Output("show", {QString::number(id)}).contains(shown));
}

TEST_F(AdminLedgerReading, ALongValueIsCutInTheListAndWholeWhenShown)
{
    const auto id = AddPrinted(QByteArray(5000, 'x').constData());
    EXPECT_TRUE(Lines("list").at(1).endsWith(QString(QString(47, u'x') + QChar(u'\u2026'))));
    EXPECT_TRUE(Output("show", {QString::number(id)}).contains(QString(5000, u'x')));
}

TEST_F(AdminLedgerReading, AListHasAHundredEntriesUnlessTold)
{
    Database().Execute(QStringLiteral("BEGIN"));
    for (int i = 0; i < 1200; ++i)
        AddPrinted("Ada");
    Database().Execute(QStringLiteral("COMMIT"));
    EXPECT_EQ(Listed().size(), 100U);
    EXPECT_EQ(Listed().front(), 1200);
    EXPECT_EQ(Listed({Limit, QStringLiteral("7")}).size(), 7U);
    EXPECT_EQ(Listed({QStringLiteral("--limit=0")}).size(), 1200U);
    EXPECT_EQ(Lines("list", {Limit, All}).size(), 1201);
}

TEST_F(AdminLedgerReading, OptionsChooseTheEntries)
{
    AddPrinted("Ada");
    LedgerEntry failed = PrintedEntry({QStringLiteral("-x Grace")});
    failed.State = LedgerState::Failed;
    Add(failed);
    AddPrinted("Ada Lovelace");
    EXPECT_EQ(Listed({QStringLiteral("--state"), QStringLiteral("failed")}), Ids({2}));
    EXPECT_EQ(Listed({QStringLiteral("--text"), QStringLiteral("ada")}), Ids({3, 1}));
    EXPECT_EQ(Listed({QStringLiteral("--text"), QStringLiteral("-x")}), Ids({2}));
    EXPECT_EQ(Listed({QStringLiteral("--before"), QStringLiteral("3")}), Ids({2, 1}));
    EXPECT_EQ(Listed({QStringLiteral("--text=ada"), QStringLiteral("--before=3")}), Ids({1}));
}

TEST_F(AdminLedgerReading, ATimeIsADateOrATimeOrSoLongAgo)
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    LedgerEntry entry = PrintedEntry({QStringLiteral("Ada")});
    for (const double hours : {100 * 24.0, 6.9 * 24, 11.9, 0.4}) {
        entry.Received = now - static_cast<qint64>(hours * 3600000);
        Add(entry);
    }
    const QString since = QStringLiteral("--since");
    EXPECT_EQ(Listed({since, QStringLiteral("7d")}), Ids({4, 3, 2}));
    EXPECT_EQ(Listed({since, QStringLiteral("12h")}), Ids({4, 3}));
    EXPECT_EQ(Listed({since, QStringLiteral("30m")}), Ids({4}));
    const QDateTime seventh = QDateTime::fromMSecsSinceEpoch(now - 7LL * 24 * 3600000);
    EXPECT_EQ(Listed({since, seventh.date().toString(Qt::ISODate)}), Ids({4, 3, 2}));
    for (const QString& time :
         {seventh.toString(Qt::ISODate), seventh.toUTC().toString(Qt::ISODateWithMs),
          seventh.toString(QStringLiteral("yyyy-MM-dd HH:mm"))}) {
        EXPECT_EQ(Listed({since, time}), Ids({4, 3, 2})) << time.toStdString();
        EXPECT_EQ(Listed({QStringLiteral("--until"), time}), Ids({1})) << time.toStdString();
    }
}

TEST_F(AdminLedgerReading, AnEntryIsShownWithItsRecordValuesAndCards)
{
    LedgerEntry entry =
        PrintedEntry({QStringLiteral("Ada"), QStringLiteral("Gold")}, {QStringLiteral("1001")});
    entry.Cards.push_back(CardIn(LedgerState::Failed));
    entry.Cards[1].Job = 12;
    entry.Cards[1].Reason = QStringLiteral("canceled");
    Add(entry);
    entry.ReprintOf = 1;
    Add(entry);
    const QString shown = Output("show", {QStringLiteral("1")});
    for (const char* line :
         {"Entry         1\n", "State         printed\n", "Record        <Ada+Gold>\n",
          "Reprinted as  2\n", "1  Ada\n", "2  Gold\n", "  1001     card-000001.pdf  printed",
          "job 12           failed ", "  canceled\n"})
        EXPECT_TRUE(shown.contains(QLatin1StringView(line))) << line << shown.toStdString();
    EXPECT_TRUE(
        Output("show", {QStringLiteral("2")}).contains(QStringLiteral("Reprint of    1\n")));
    const QJsonObject json = Parsed("show", {QStringLiteral("1")});
    EXPECT_EQ(QByteArray::fromBase64(json.value(u"raw").toString().toLatin1()), entry.Raw);
}

TEST_F(AdminLedgerReading, BytesOfARecordAreShownAsCharacters)
{
    LedgerEntry entry = PrintedEntry({QString::fromUtf8("Zo\u00EB")});
    Add(entry);
    entry.Raw = "<Zo\xEB>";
    Add(entry);
    for (const char* id : {"1", "2"})
        EXPECT_TRUE(Output("show", {QLatin1StringView(id)})
                        .contains(QString::fromUtf8("Record        <Zo\u00EB>\n")));
}

TEST_F(AdminLedgerReading, CountsAreATableAndJson)
{
    LedgerEntry entry = PrintedEntry({QStringLiteral("Ada")}, {QStringLiteral("1001")});
    entry.Cards.push_back(CardIn(LedgerState::Void, {QStringLiteral("1002")}));
    Add(entry);
    const QString day = QDateTime::fromMSecsSinceEpoch(entry.Received).date().toString(Qt::ISODate);
    EXPECT_EQ(Lines("counts"),
              QStringList(
                  {QStringLiteral("Day         Layout  Issued  Failed  Doubtful  Void  Reprinted  "
                                  "Void numbers"),
                   QStringLiteral("%1  Badge        1       0         0     1          0  1002")
                       .arg(day)}));
    const QJsonObject row = Parsed("counts").value(u"counts")[0].toObject();
    EXPECT_EQ(row.value(u"day").toString(), day);
    EXPECT_EQ(row.value(u"issued").toInt(), 1);
    EXPECT_EQ(row.value(u"void_numbers")[0].toString(), QStringLiteral("1002"));
    EXPECT_EQ(Output("counts", {QStringLiteral("--since"), QStringLiteral("2100-01-01"), Json}),
              QStringLiteral("{\"counts\": []}\n"));
}

TEST_F(AdminLedgerReading, EntriesAreExportedToAFileOrTheOutput)
{
    AddPrinted("Ada");
    AddPrinted("Grace");
    const QString text = Output("export");
    EXPECT_EQ(text.count(QStringLiteral("\r\n")), 3);
    EXPECT_EQ(Output("export", {QStringLiteral("-")}), text);
    const QString path = Folder.filePath(QStringLiteral("ledger.csv"));
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(Output("export", {path}), QString());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll()), text);
    EXPECT_EQ(file.permissions() & (QFile::ReadOther | QFile::WriteOther | QFile::WriteGroup),
              QFile::Permissions());
    EXPECT_EQ(Output("export", {QStringLiteral("--text=grace")}).count(QStringLiteral("\r\n")), 2);
    ExpectOneLine(1, Command("export", {Folder.filePath(QStringLiteral("none/ledger.csv"))}));
}

TEST_F(AdminLedgerReading, OutputThatCannotBeWrittenIsReported)
{
    AddPrinted("Ada");
    QProcess program;
    program.setStandardOutputFile(QStringLiteral("/dev/full"));
    program.start(TestedProgram(VANTREL_ADMIN_PROGRAM), Command("list"));
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_EQ(program.readAllStandardError().count('\n'), 1);
}

TEST_F(AdminLedgerReading, AStationThatIsWritingHoldsUpNoReader)
{
    AddPrinted("Ada");
    Store.BeginTrans();
    AddPrinted("Grace");
    EXPECT_EQ(Listed(), Ids({1}));
    Store.CommitTrans();
    EXPECT_EQ(Listed(), Ids({2, 1}));
}

/// The most memory that a program started by this process has had, in bytes.
qint64 MostMemoryOfAProgram()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    return qint64{usage.ru_maxrss} * 1024;
}

TEST_F(AdminLedgerReading, AListOfAllEntriesTakesLittleMemory)
{
    LedgerEntry entry = PrintedEntry({QString(2000, u'x')});
    Database().Execute(QStringLiteral("BEGIN"));
    for (int i = 0; i < 30000; ++i)
        Add(entry);
    Database().Execute(QStringLiteral("COMMIT"));
    const auto run = [&](const QStringList& options) {
        QProcess program;
        program.setStandardOutputFile(QStringLiteral("/dev/null"));
        program.start(TestedProgram(VANTREL_ADMIN_PROGRAM), Command("list", options));
        ASSERT_TRUE(program.waitForFinished(60000));
        EXPECT_EQ(program.exitCode(), 0);
    };
    run({});
    const qint64 before = MostMemoryOfAProgram();
    run({Limit, All});
    run({Limit, All, Json});
    EXPECT_LT(MostMemoryOfAProgram() - before, 16 * MiB + SanitizerRoom);
}

} // namespace

} // namespace vantrel::test
