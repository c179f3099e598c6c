#pragma once

#include "station/commands/HistoryCommands.h"
#include "station/ledger/HistoryReader.h"
#include <QDialog>
#include <memory>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QListWidget;
class QMessageBox;
class QPushButton;
class QTableView;
class QTableWidget;
class QTimer;

namespace vantrel {

class DesktopRecordParts;
class HistoryModel;
class Session;
struct CardAsPrinted;

/// The history: every record that the station has taken, as its ledger keeps it, with what framing
/// made of it and the cards as they were printed. It follows the ledger while it is open.
class frmHistory : public QDialog
{
    Q_OBJECT

public:
    frmHistory(Session& session, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    QLayout* MakeFilters();
    QWidget* MakeList();
    QWidget* MakeRecordPage();
    QWidget* MakeValuesPage();
    QWidget* MakeCardsPage();
    QLayout* MakeButtons();

    LedgerFilter Filter() const;
    void Search();
    void Find(const std::vector<qlonglong>& ids);
    void AppendWaiting();
    void Arrive(const std::vector<qlonglong>& ids);
    void FollowChange();
    void GoToNewest();
    void TellFound();

    qlonglong ChosenId() const;
    void Choose();
    void ShowEntry(const std::optional<HistoryEntry>& entry);
    void ShowRecord(const HistoryEntry& entry);
    void ShowCards(const HistoryEntry& entry);
    void ShowValues(const HistoryEntry& entry, const std::vector<CardAsPrinted>& cards);
    void ShowCard(int row);
    void ShowLegend();

    /// Shows a question whose default answer is No, and runs `act` if it is Yes.
    void Ask(const QString& title, const QString& text, std::function<void()> act);
    /// Runs what an operator has asked for and shows what it tells, or why it was refused.
    void Act(const std::function<QString()>& act);
    void Reprint();
    void Void();
    void SaveAsCsv();

    Session& m_session;
    HistoryReader m_reader;
    HistoryModel* m_model;
    /// Writes a file; null if none is being written.
    std::unique_ptr<HistoryReader> m_export;
    QTimer* m_typing;
    /// What was found and is not in the list yet.
    std::vector<qlonglong> m_waiting;
    bool m_isSearching = false;
    bool m_hasFailed = false;
    int m_newAbove = 0;
    std::optional<HistoryEntry> m_entry;

    QLineEdit* m_text;
    QComboBox* m_state;
    QCheckBox* m_useDay;
    QDateEdit* m_day;
    QTableView* m_list;
    QLabel* m_found;
    DesktopRecordParts* m_asText;
    DesktopRecordParts* m_asHex;
    QLabel* m_atCursor;
    QTableWidget* m_values;
    QListWidget* m_cards;
    QLabel* m_picture;
    QLabel* m_cardNote;
    QLabel* m_told;
    QPushButton* m_newest;
    QPushButton* m_reprint;
    QPushButton* m_void;
    QPushButton* m_save;
};

} // namespace vantrel
