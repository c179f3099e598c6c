#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include "support/Layouts.h"
#include "support/PdfReading.h"
#include <gtest/gtest.h>

// Stations on machines whose number format is another than that of most tests.

namespace vantrel::test {
namespace {

/// The environment of a machine that writes its numbers in the German way.
class GermanMachine
{
public:
    GermanMachine()
    {
        OutputOf(QStringLiteral("localedef"),
                 {QStringLiteral("--no-archive"), QStringLiteral("-i"), QStringLiteral("de_DE"),
                  QStringLiteral("-f"), QStringLiteral("UTF-8"),
                  m_locales.filePath(QLatin1StringView(Name))});
    }

    /// @param variable  the variable that names that format; others are absent, or name another one
    QMap<QString, QString> SaidBy(const char* variable) const
    {
        QMap<QString, QString> environment{{QStringLiteral("LC_ALL"), QString()},
                                           {QStringLiteral("LC_NUMERIC"), QString()},
                                           {QStringLiteral("LANG"), QStringLiteral("C.UTF-8")},
                                           {QStringLiteral("LOCPATH"), m_locales.path()}};
        environment.insert(QLatin1StringView(variable), QLatin1StringView(Name));
        return environment;
    }

private:
    static constexpr const char* Name = "de_DE.UTF-8";
    QTemporaryDir m_locales;
};

/// The words on the card that a station in such an environment makes of the record "1234": a field
/// and the stripe, each with its check digit.
QStringList WordsOnCard(const QMap<QString, QString>& environment)
{
    StationFolder folder;
    folder.Session.Document.Find(Family::lbl_DATA, 1)->DataMember = QStringLiteral("EBT");
    folder.Session.CurrentParams.PrinterType = PrinterTypeCode::Fargo;
    folder.Session.CurrentParams.Track2 = QStringLiteral("DAT1~EBT");
    SavePage(folder.Session);
    const int port = folder.WithCapture();
    StationProcess station(folder.Session.ProgramFolder, {.Environment = environment});
    EXPECT_TRUE(station.WaitUntilItListens(port));
    SendRecord(port, "<1234+A>");
    QStringList words = folder.TextOfCard(1).split(QLatin1Char(' '));
    words.sort();
    EXPECT_EQ(station.ErrorLines(), QStringList());
    return words;
}

TEST(StationLocale, EbtDigitsGoByTheMachinesDecimalSeparator)
{
    const QStringList byComma{QStringLiteral("12349"), QStringLiteral("A"),
                              QStringLiteral("~2;12349?")};
    const QStringList byPoint{QStringLiteral("12346"), QStringLiteral("A"),
                              QStringLiteral("~2;12346?")};
    const GermanMachine machine;
    for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LANG"})
        EXPECT_EQ(WordsOnCard(machine.SaidBy(variable)), byComma) << variable;
    // German dates alone do not make German numbers.
    EXPECT_EQ(WordsOnCard(machine.SaidBy("LC_TIME")), byPoint);
}

} // namespace
} // namespace vantrel::test
