#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include "station/layout/StoredRows.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include "support/StoreFaults.h"
#include <gtest/gtest.h>

// Two stations share a store; a save of one of them fails after its card.

namespace vantrel::test {
namespace {

constexpr int FirstNumber = 1000; // raised before it prints

/// The automatic number of the layout, read from the file.
QString StoredNumber(const StationFolder& folder)
{
    return StoredRows(folder.Session, QStringLiteral("SELECT * FROM Controls WHERE C_Param_1 = "
                                                     "'AUTO'"))
        .value(0)
        .value(QStringLiteral("C_Value"))
        .toString();
}

TEST(FailedSaveOfAStation, DelaysNeitherCardsNorNumbersOfAnotherStation)
{
    StationFolder folder;
    folder.AddAutoNumber(FirstNumber);
    AddText(folder.Session, QStringLiteral("end"), {2100, 300, 300, 2000});
    SavePage(folder.Session);
    folder.SetStatus("Visible", QStringLiteral("False"));
    const int secondPort = folder.WithCapture(2);
    const int firstPort = folder.WithCapture(1);
    StationProcess first(folder.Session.ProgramFolder, {.Arguments = {QStringLiteral("1")}});
    StationProcess second(folder.Session.ProgramFolder, {.Arguments = {QStringLiteral("2")}});
    ASSERT_TRUE(first.WaitUntilItListens(firstPort));
    ASSERT_TRUE(second.WaitUntilItListens(secondPort));

    Execute(
        folder.Session,
        QStringLiteral("CREATE TRIGGER refuse BEFORE UPDATE ON Controls "
                       "WHEN NEW.C_Param_1 = 'AUTO' BEGIN SELECT RAISE(ABORT, 'refused'); END"));
    SendRecord(firstPort, "<Anna+7>");
    EXPECT_EQ(folder.TextOfCard(1), QStringLiteral("Anna 7 1001 end"));
    ASSERT_TRUE(first.WaitUntilItTells(QStringLiteral("refused")));
    EXPECT_FALSE(IsLocked(folder.Session.PathInFolder(QStringLiteral("Vantrel.dat"))));
    Execute(folder.Session, QStringLiteral("DROP TRIGGER refuse"));

    const auto expectCards = [&](int port, int session, int cards, int firstNumber) {
        for (int number = firstNumber; number < firstNumber + cards; ++number) {
            const qsizetype before = folder.Cards(session).size();
            SendRecord(port, "<Bert+8>");
            ASSERT_TRUE(EventsUntil([&] { return folder.Cards(session).size() > before; }));
            EXPECT_EQ(TextOfPdf(folder.Cards(session).last()),
                      QStringLiteral("Bert 8 %1 end").arg(number));
            EXPECT_TRUE(
                EventsUntil([&] { return StoredNumber(folder) == QString::number(number); }));
        }
    };
    expectCards(secondPort, 2, 3, FirstNumber + 1);
    // The first station continues from what the other has saved since.
    expectCards(firstPort, 1, 2, FirstNumber + 4);
    EXPECT_EQ(folder.StoreIntegrity(), QStringLiteral("ok"));
}

} // namespace
} // namespace vantrel::test
