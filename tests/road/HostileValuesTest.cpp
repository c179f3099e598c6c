#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include "support/Memory.h"
#include <QFileInfo>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A station whose first field has another alignment.
class AlignedStation : public StationFolder
{
public:
    explicit AlignedStation(std::int16_t alignment)
    {
        Session.Document.Find(Family::lbl_DATA, 1)->Alignment = alignment;
        SavePage(Session);
    }
};

void ExpectTheNextRecordPrints(const StationFolder& folder, int port, int card)
{
    SendRecord(port, "<Anna+" + QByteArray::number(card) + ">");
    EXPECT_EQ(folder.TextOfCard(card), QStringLiteral("Anna %1").arg(card));
}

/// Sends one record between good ones.
/// @param alignment  of the field that shows its first value: 0 left, 1 right, 2 centre
void ExpectOneCardAndNothingLeft(const QByteArray& record, std::int16_t alignment)
{
    AlignedStation folder(alignment);
    const int port = folder.WithCapture();
    StationProcess station(folder.Session.ProgramFolder);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    ExpectTheNextRecordPrints(folder, port, 1);
    // The station may still save the page when its card is there, and notices only then that the
    // host has left; that would drop what the next one has sent so far.
    EXPECT_TRUE(station.WaitUntilHostsHaveLeft(port));
    const int before = station.MemoryMiB();
    SendRecord(port, record);
    ASSERT_TRUE(EventsUntil([&] { return QFileInfo::exists(folder.PathOfCard(2)); }));
    EXPECT_LT(QFileInfo(folder.PathOfCard(2)).size(), MiB);
    EXPECT_TRUE(station.WaitUntilHostsHaveLeft(port));
    ExpectTheNextRecordPrints(folder, port, 3);
    ExpectTheNextRecordPrints(folder, port, 4);
    // What a heap keeps of growing once.
    const int room = 24 + static_cast<int>(SanitizerRoom / MiB);
    EXPECT_TRUE(EventsUntil([&] { return station.MemoryMiB() <= before + room; }))
        << station.MemoryMiB() << " of " << before;
}

TEST(HostileValue, MegabytesAtTheLeftCostOneCardAndNoMemory)
{
    ExpectOneCardAndNothingLeft('<' + QByteArray(4 << 20, 'x') + "+1>", 0);
}

TEST(HostileValue, MegabytesAtTheRightCostOneCardAndNoMemory)
{
    ExpectOneCardAndNothingLeft('<' + QByteArray(4 << 20, 'x') + "+1>", 1);
}

TEST(HostileValue, MegabytesInTheMiddleCostOneCardAndNoMemory)
{
    ExpectOneCardAndNothingLeft('<' + QByteArray(4 << 20, 'x') + "+1>", 2);
}

TEST(HostileValues, AMillionInOneRecordCostOneCardAndNoMemory)
{
    ExpectOneCardAndNothingLeft('<' + QByteArray("A+").repeated(1'000'000) + '>', 0);
}

} // namespace
} // namespace vantrel::test
