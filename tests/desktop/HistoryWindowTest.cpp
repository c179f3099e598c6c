#include "desktop/DesktopStation.h"
#include "desktop/StationOptionsOf.h"
#include "desktop/history/DesktopRecordParts.h"
#include "desktop/history/frmHistory.h"
#include "ledger/LedgerReading.h"
#include "ledger/LedgerTables.h"
#include "station/capture/StoredRecords.h"
#include "station/ledger/StationLedger.h"
#include "support/Events.h"
#include "support/LedgerFill.h"
#include <QComboBox>
#include <QDateEdit>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTableWidget>
#include <QTimer>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

class HistoryWindow : public ::testing::Test
{
protected:
    HistoryWindow() { MakeLedgerTables(Store()); }

    StoreDatabase& Store() { return Station.Session.LayoutDb.Database(); }
    void Fill(int count)
    {
        Store().Execute(QStringLiteral("BEGIN"));
        for (int number = 1; number <= count; ++number)
            Add(QStringLiteral("Ada %1").arg(number));
        Store().Execute(QStringLiteral("COMMIT"));
    }
    qlonglong Add(const QString& value, LedgerState state = LedgerState::Printed)
    {
        LedgerEntry entry = PrintedEntry({value}, {QStringLiteral("1001")});
        entry.State = state;
        entry.Cards[0].State = state;
        return AddLedgerEntry(Store(), entry);
    }
    void Open()
    {
        Station.Choose("cmdHistory");
        Window = &Station.Get<frmHistory>("frmHistory");
        ASSERT_TRUE(EventsUntil([&] { return !Found().contains(QStringLiteral("searching")); }));
    }
    template <typename Control>
    Control& Get(const char* name)
    {
        return DesktopStation::Named<Control>(*Window, name);
    }
    QTableView& List() { return Get<QTableView>("lstEntries"); }
    QString Found() { return Get<QLabel>("lblFound").text(); }
    int Rows() { return List().model()->rowCount(); }
    QString Cell(int row, int column)
    {
        return List().model()->index(row, column).data().toString();
    }
    /// Lets the window read what stands in a row.
    void Await(int row, int column, const char* text)
    {
        EXPECT_TRUE(EventsUntil([&] { return Cell(row, column) == QLatin1StringView(text); }))
            << Cell(row, column).toStdString();
    }
    void ChooseRow(int row)
    {
        List().selectRow(row);
        ASSERT_TRUE(EventsUntil([&] { return Get<QListWidget>("lstCards").count() > 0; }));
    }
    void Press(const char* name) { Get<QAbstractButton>(name).click(); }
    QMessageBox* Question() { return Window->findChild<QMessageBox*>(); }
    QString Told() { return Get<QLabel>("lblTold").text(); }

    DesktopStation Station{true, WithLedger()};
    QPointer<frmHistory> Window;
};

TEST_F(HistoryWindow, ShowsTheNewestEntriesFirst)
{
    Fill(3);
    Open();
    ASSERT_EQ(Rows(), 3);
    Await(0, 4, "Ada 3");
    EXPECT_EQ(Cell(0, 0), QStringLiteral("3"));
    EXPECT_EQ(Cell(0, 2), QStringLiteral("192.168.7.10:51234"));
    EXPECT_EQ(Cell(0, 3), QStringLiteral("Badge"));
    EXPECT_EQ(Cell(0, 5), QStringLiteral("1001"));
    EXPECT_EQ(Cell(0, 6), QStringLiteral("printed"));
    EXPECT_EQ(Found(), QStringLiteral("3 entries"));
}

TEST_F(HistoryWindow, FindsByTextStateAndDay)
{
    Fill(5);
    Add(QStringLiteral("Grace"), LedgerState::Failed);
    Open();
    Get<QLineEdit>("txtFind").setText(QStringLiteral("gRACE"));
    ASSERT_TRUE(EventsUntil([&] { return Rows() == 1; }));
    Await(0, 4, "Grace");
    Get<QLineEdit>("txtFind").clear();
    ASSERT_TRUE(EventsUntil([&] { return Rows() == 6; }));
    Get<QComboBox>("cboState").setCurrentText(QStringLiteral("failed"));
    ASSERT_TRUE(EventsUntil([&] { return Rows() == 1; }));
    Get<QComboBox>("cboState").setCurrentIndex(0);
    ASSERT_TRUE(EventsUntil([&] { return Rows() == 6; }));
    const QDate day = QDateTime::fromMSecsSinceEpoch(PrintedEntry({}).Received).date();
    Get<QDateEdit>("dtpDay").setDate(day.addDays(-1));
    Press("chkDay");
    ASSERT_TRUE(EventsUntil([&] { return Rows() == 0; }));
    Get<QDateEdit>("dtpDay").setDate(day);
    EXPECT_TRUE(EventsUntil([&] { return Rows() == 6; }));
}

TEST_F(HistoryWindow, AtTheTopItFollowsWhatArrives)
{
    Fill(100);
    Open();
    Add(QStringLiteral("Grace"));
    ASSERT_TRUE(EventsUntil([&] { return Rows() == 101; }));
    EXPECT_EQ(List().verticalScrollBar()->value(), 0);
    Await(0, 4, "Grace");
}

TEST_F(HistoryWindow, WhatArrivesMovesNothingThatIsLookedAt)
{
    Fill(500);
    Open();
    List().verticalScrollBar()->setValue(200);
    const QString seen = Cell(List().rowAt(0), 0);
    Add(QStringLiteral("Grace"));
    Add(QStringLiteral("Joan"));
    ASSERT_TRUE(EventsUntil([&] { return Rows() == 502; }));
    EXPECT_EQ(Cell(List().rowAt(0), 0), seen);
    EXPECT_TRUE(Found().contains(QStringLiteral("2 new above"))) << Found().toStdString();
    Press("cmdNewest");
    EXPECT_EQ(List().rowAt(0), 0);
    EXPECT_EQ(Found(), QStringLiteral("502 entries"));
}

TEST_F(HistoryWindow, AChosenEntryStaysInItsPlaceAtTheTopToo)
{
    Fill(100);
    Open();
    ChooseRow(0);
    const int place = List().visualRect(List().currentIndex()).top();
    Add(QStringLiteral("Grace"));
    ASSERT_TRUE(EventsUntil([&] { return Rows() == 101; }));
    EXPECT_EQ(Cell(List().currentIndex().row(), 0), QStringLiteral("100"));
    EXPECT_EQ(List().visualRect(List().currentIndex()).top(), place);
}

TEST_F(HistoryWindow, AStateThatChangesIsShown)
{
    Add(QStringLiteral("Ada"), LedgerState::Printing);
    Open();
    Await(0, 6, "printing");
    Store().Change(
        QStringLiteral("UPDATE LedgerEntries SET State = 'failed', Reason = 'No paper'"));
    Await(0, 6, "failed");
    EXPECT_EQ(Cell(0, 7), QStringLiteral("No paper"));
}

TEST_F(HistoryWindow, ReadsOnlyWhatIsLookedAt)
{
    Fill(3000);
    Open();
    Await(0, 4, "Ada 3000");
    QAbstractItemModel& model = *List().model();
    // A row that nobody looked at shows its number only.
    EXPECT_EQ(model.index(2500, 0).data().toString(), QStringLiteral("500"));
    List().scrollTo(model.index(1500, 0), QAbstractItemView::PositionAtTop);
    Await(1500, 4, "Ada 1500");
}

TEST_F(HistoryWindow, ShowsTheRecordWithAMarkForEachByte)
{
    Add(QStringLiteral("Ada"));
    Open();
    ChooseRow(0);
    EXPECT_EQ(Get<QPlainTextEdit>("txtRecord").toPlainText(), QStringLiteral("<Ada>"));
    const QString hex = Get<QPlainTextEdit>("txtHex").toPlainText();
    EXPECT_TRUE(hex.startsWith(QStringLiteral("0000  3C 41 64 61 3E"))) << hex.toStdString();
    EXPECT_TRUE(hex.endsWith(QStringLiteral("S...E"))) << hex.toStdString();
    auto& text = Get<QPlainTextEdit>("txtRecord");
    text.moveCursor(QTextCursor::Right);
    EXPECT_EQ(Get<QLabel>("lblAtCursor").text(), QStringLiteral("value, in value 1"));
}

TEST_F(HistoryWindow, DoubtfulCardsArePrintedAgainOnlyAfterAYes)
{
    Add(QStringLiteral("Ada"), LedgerState::Doubtful);
    Open();
    ChooseRow(0);
    Press("cmdReprint");
    ASSERT_NE(Question(), nullptr);
    EXPECT_TRUE(Question()->text().contains(QStringLiteral("not known")));
    EXPECT_EQ(Question()->standardButton(Question()->defaultButton()), QMessageBox::No);
    Question()->button(QMessageBox::No)->click();
    EventsUntil([&] { return Question() == nullptr; });
    EXPECT_EQ(CountEntries(Store(), {}), 1);
    Press("cmdReprint");
    ASSERT_NE(Question(), nullptr);
    Question()->button(QMessageBox::Yes)->click();
    EXPECT_EQ(Told(), QStringLiteral("Entry 1 is printed again as entry 2."));
    EXPECT_EQ(FindEntry(Store(), 2)->ReprintOf, 1);
    EXPECT_TRUE(EventsUntil([&] { return Rows() == 2; }));
}

TEST_F(HistoryWindow, AReprintThatIsAskedForPrints)
{
    OpenLedger(Station.Session);
    TendLedger(Station.Session);
    Add(QStringLiteral("Ada"), LedgerState::Printed);
    // A card is printed again from the page that was kept of it.
    Store().Change(QStringLiteral("INSERT INTO LedgerPages (Hash, Content) VALUES ('page', '{}')"));
    Store().Change(QStringLiteral("UPDATE LedgerCards SET PageHash = 'page'"));
    Open();
    ChooseRow(0);
    Press("cmdReprint");
    ASSERT_NE(Question(), nullptr);
    Question()->button(QMessageBox::Yes)->click();
    ASSERT_TRUE(EventsUntil([&] {
        const auto reprint = FindEntry(Store(), 2);
        return reprint && reprint->State != LedgerState::Received &&
               reprint->State != LedgerState::Printing;
    }));
    EXPECT_EQ(FindEntry(Store(), 2)->Cards.size(), 1U);
}

TEST_F(HistoryWindow, AReprintNamesTheFirstEntry)
{
    LedgerEntry again = PrintedEntry({QStringLiteral("Ada")});
    again.ReprintOf = Add(QStringLiteral("Ada"));
    AddLedgerEntry(Store(), again);
    Open();
    Await(0, 6, "printed (reprint of 1)");
    Await(1, 6, "printed");
}

TEST_F(HistoryWindow, NothingCanBeDoneWhereASearchHasLeftNothingChosen)
{
    Fill(3);
    Open();
    ChooseRow(0);
    EXPECT_TRUE(Get<QAbstractButton>("cmdReprint").isEnabled());
    Get<QLineEdit>("txtFind").setText(QStringLiteral("Ada 2"));
    ASSERT_TRUE(EventsUntil([&] { return Rows() == 1; }));
    EXPECT_FALSE(Get<QAbstractButton>("cmdReprint").isEnabled());
    EXPECT_FALSE(Get<QAbstractButton>("cmdVoid").isEnabled());
}

TEST_F(HistoryWindow, ACardWhoseValuesWereNotKeptIsNotShown)
{
    LedgerEntry entry = PrintedEntry({QStringLiteral("Ada")});
    entry.HasValues = false;
    AddLedgerEntry(Store(), entry);
    Open();
    ChooseRow(0);
    const QString note = Get<QListWidget>("lstCards").item(0)->data(Qt::UserRole).toString();
    EXPECT_TRUE(note.contains(
        QStringLiteral("The values of the record were not kept, so its card cannot be shown.")))
        << note.toStdString();
}

TEST_F(HistoryWindow, VoidNamesWhatItVoidsAndAsks)
{
    Add(QStringLiteral("Ada"), LedgerState::Doubtful);
    Open();
    ChooseRow(0);
    Press("cmdVoid");
    ASSERT_NE(Question(), nullptr);
    EXPECT_TRUE(Question()->text().contains(QStringLiteral("1001")));
    EXPECT_EQ(Question()->standardButton(Question()->defaultButton()), QMessageBox::No);
    Question()->button(QMessageBox::Yes)->click();
    EXPECT_EQ(FindEntry(Store(), 1)->State, LedgerState::Void);
    Await(0, 6, "void");
}

TEST_F(HistoryWindow, ARefusalIsToldInTheWindow)
{
    Add(QStringLiteral("Ada"), LedgerState::Printing);
    Open();
    ChooseRow(0);
    Press("cmdReprint");
    EXPECT_EQ(Told(), QStringLiteral("Entry 1 is being printed."));
}

TEST_F(HistoryWindow, SavesWhatIsFound)
{
    Add(QStringLiteral("Ada"));
    Open();
    const QString path = Station.Session.PathInFolder(QStringLiteral("saved.csv"));
    QTimer::singleShot(0, Window, [&] {
        auto* dialog = Window->findChild<QFileDialog*>();
        ASSERT_NE(dialog, nullptr);
        dialog->selectFile(path);
        QMetaObject::invokeMethod(dialog, "accept");
    });
    Press("cmdSaveCsv");
    ASSERT_TRUE(EventsUntil([&] { return Told().startsWith(QStringLiteral("Saved as")); }))
        << Told().toStdString();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("Ada"));
}

TEST_F(HistoryWindow, AStationWithoutALedgerSaysSo)
{
    Store().Execute(QStringLiteral("DROP TABLE LedgerCards"));
    Open();
    EXPECT_EQ(Told(), QStringLiteral("No ledger is kept here yet."));
    MakeLedgerTables(Store());
    Add(QStringLiteral("Ada"));
    EXPECT_TRUE(EventsUntil([&] { return Rows() == 1; }));
}

TEST_F(HistoryWindow, ClosesWhileItSearches)
{
    Fill(2000);
    Station.Choose("cmdHistory");
    Window = &Station.Get<frmHistory>("frmHistory");
    Window->close();
    EXPECT_TRUE(EventsUntil([&] { return Window.isNull(); }));
}

} // namespace
} // namespace vantrel::test
