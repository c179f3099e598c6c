#include "base/Profile.h"
#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include "station/layout/LoadLayout.h"
#include "station/macro/MacroTable.h"
#include "station/session/Settings.h"
#include "store/Recordset.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include "support/Memory.h"
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>
#include <iostream>

namespace vantrel::test {
namespace {

/// How many records go through; scripts/soak.sh asks for more.
int RecordCount()
{
    constexpr int shortRun = 60;
    const int asked = qEnvironmentVariableIntValue("VANTREL_SOAK_RECORDS");
    return asked > 0 ? asked : shortRun;
}

constexpr int Pages = 2;
constexpr int Copies = 2;
/// Two copies of two pages, then the carrier.
constexpr int CardsOfRecord = Pages * Copies + 1;

/// A chain of a card with two pages, two copies, a stripe and numbers on both pages, and a carrier.
class SoakFolder : public StationFolder
{
public:
    SoakFolder()
    {
        BeginLayout(Session, QStringLiteral("Card"), PrinterTypeCode::Fargo);
        Session.CurrentParams.PrinterCopies = Copies;
        Session.CurrentParams.Track2 = QStringLiteral("DAT2~MOD10");
        AddField(Session, 1, {900, 300, 300, 2000});
        AddNumber(Session, 0, {1500, 300, 300, 2000});
        SavePage(Session);
        BeginPage(Session, 2);
        Session.CurrentParams.Track2.clear();
        AddText(Session, QStringLiteral("Back"), {900, 300, 300, 2000});
        AddNumber(Session, 0, {1500, 300, 300, 2000});
        SavePage(Session);
        BeginLayout(Session, QStringLiteral("Carrier"));
        AddField(Session, 1, {900, 300, 300, 2000});
        SavePage(Session);
        DefineChain();
    }
    /// A start with no layout open: what prints is the chain. The window is hidden, as where nobody
    /// works: a visible one lets events run behind each page, so that a host which goes by the last
    /// file alone can meet the chain's last layout still open, and has a card too many.
    int WithChain()
    {
        const int port = WithCapture();
        SetStatus("Visible", QStringLiteral("False"));
        WriteProfileValue(SettingsPath(Session.ProgramFolder), SessionSection(Session),
                          QStringLiteral("LastLayout"), QString());
        WriteProfileValue(SettingsPath(Session.ProgramFolder), SessionSection(Session),
                          QStringLiteral("ActiveMacro"), QStringLiteral("Chain"));
        return port;
    }

private:
    void DefineChain()
    {
        AddMacro(Session.LayoutDb, QStringLiteral("Chain"));
        Recordset macro(Session.LayoutDb);
        macro.Open(QStringLiteral("SELECT * FROM [Macros]"));
        Recordset rows(Session.LayoutDb);
        rows.Open(QStringLiteral("SELECT * FROM [MacroElements]"), CursorLock::Optimistic);
        for (const char* layout : {"Card", "Carrier"}) {
            rows.AddNew();
            rows.SetValue(QStringLiteral("MacroID"), macro.Value(QStringLiteral("ID")));
            rows.SetValue(QStringLiteral("LayoutName"), QString::fromLatin1(layout));
            rows.Update();
        }
    }
};

/// The texts that the cards of a record must have, in the order in which they print.
QStringList TextsOfRecord(int record)
{
    const QString name = QStringLiteral("Holder%1").arg(record);
    QStringList texts;
    for (int copy = 1; copy <= Copies; ++copy) {
        const int number = (record - 1) * Copies + copy;
        texts += QStringLiteral("%1 %2").arg(name).arg(number);
        texts += QStringLiteral("Back %1").arg(number);
    }
    texts += name;
    return texts;
}

TEST(Soak, EveryRecordComesOutInOrderWithMemoryAndDescriptorsFlat)
{
    SoakFolder folder;
    const int port = folder.WithChain();
    StationProcess station(folder.Session.ProgramFolder);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    const int records = RecordCount();
    // Reading every card of a long run would take longer than the run: one in so many is read.
    const int readEvery = std::max(1, records / 60);
    const int settled = std::max(10, records / 10);
    int memory = 0;
    int descriptors = 0;
    for (int record = 1; record <= records; ++record) {
        SendRecord(port, "<Holder" + QByteArray::number(record) + "+40012345>");
        const int last = record * CardsOfRecord;
        ASSERT_TRUE(EventsUntil([&] { return QFileInfo::exists(folder.PathOfCard(last)); }))
            << "record " << record;
        const QStringList texts = TextsOfRecord(record);
        for (int card = 0; card < CardsOfRecord; ++card) {
            const QString path = folder.PathOfCard(last - CardsOfRecord + 1 + card);
            if (record % readEvery == 0) {
                const QString text = TextOfPdf(path);
                ASSERT_TRUE(text.endsWith(texts[card]))
                    << qPrintable(path) << " says " << qPrintable(text);
                const bool isFront = card < CardsOfRecord - 1 && card % Pages == 0;
                ASSERT_EQ(text.contains(QStringLiteral("400123451?")), isFront) << qPrintable(text);
            }
            // The newest file stays: the station counts on from the highest.
            if (card > 0 || record > 1) {
                ASSERT_TRUE(QFile::remove(folder.PathOfCard(last - CardsOfRecord + card)));
            }
        }
        if (record == settled) {
            memory = station.MemoryMiB();
            descriptors = station.OpenDescriptors();
        }
    }
    EXPECT_EQ(folder.Cards().size(), 1);
    EXPECT_TRUE(EventsUntil([&] { return station.OpenDescriptors() <= descriptors; }));
    constexpr int room = MemoryRoom(16);
    EXPECT_LE(station.MemoryMiB(), memory + room);
    EXPECT_EQ(folder.StoreIntegrity(), QStringLiteral("ok"));
    std::cout << records << " records, " << records * CardsOfRecord << " cards; after " << settled
              << ": " << memory << " MiB, " << descriptors
              << " descriptors; at the end: " << station.MemoryMiB() << " MiB, "
              << station.OpenDescriptors() << " descriptors\n";
}

} // namespace
} // namespace vantrel::test
