#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include "support/Host.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A station whose hosts send UTF-8.
class Utf8Hosts : public ::testing::Test
{
protected:
    Utf8Hosts()
    {
        Folder.SetOption("Encoding", QStringLiteral("utf-8"));
        Port = Folder.WithCapture();
    }

    StationFolder Folder;
    int Port = 0;
};

TEST_F(Utf8Hosts, NamesInPolishGreekAndArabicPrintAsTheyWereSent)
{
    StationProcess station(Folder.Session.ProgramFolder);
    ASSERT_TRUE(station.WaitUntilItListens(Port));
    const struct
    {
        const char* Name;
        const char* Alphabet;
    } rows[] = {{"Świętosława Żółć", "Polish"},
                {"Ελένη Παπαδοπούλου", "Greek"},
                {"محمد", "Arabic"},
                {"Zoë Müller €", "the code page's own"}};
    int card = 0;
    for (const auto& row : rows) {
        ++card;
        SendRecord(Port,
                   QByteArray("\xEF\xBB\xBF<") + row.Name + "+" + QByteArray::number(card) + ">");
        QString text = Folder.TextOfCard(card);
        // The reader marks the direction of text that is written from right to left.
        text.remove(QChar(0x202A)).remove(QChar(0x202B)).remove(QChar(0x202C));
        EXPECT_EQ(text, QString::fromUtf8(row.Name) + QStringLiteral(" %1").arg(card))
            << row.Alphabet;
    }
    EXPECT_EQ(station.ErrorLines(), QStringList());
}

TEST_F(Utf8Hosts, AByteThatIsNoCharacterPrintsAsTheReplacementAndIsLogged)
{
    StationProcess station(Folder.Session.ProgramFolder);
    ASSERT_TRUE(station.WaitUntilItListens(Port));
    SendRecord(Port, "<Ren\xE9+1>");
    EXPECT_EQ(Folder.TextOfCard(1), QStringLiteral("Ren\uFFFD 1"));
    EXPECT_TRUE(station.WaitUntilItTells(QStringLiteral("sent bytes that are no UTF-8")));
    EXPECT_EQ(station.ErrorLines().size(), 1);
}

} // namespace
} // namespace vantrel::test
