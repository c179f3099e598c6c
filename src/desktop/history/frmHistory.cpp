#include "desktop/history/frmHistory.h"
#include "base/Failure.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopFileDialog.h"
#include "desktop/history/HistoryModel.h"
#include "station/session/Session.h"
#include "station/session/StoreLocation.h"
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTimer>

namespace vantrel {

LedgerFilter frmHistory::Filter() const
{
    LedgerFilter filter;
    filter.Text = m_text->text();
    filter.State = LedgerStateOf(m_state->currentText());
    if (m_useDay->isChecked()) {
        filter.Since = m_day->date().startOfDay().toMSecsSinceEpoch();
        filter.Until = m_day->date().addDays(1).startOfDay().toMSecsSinceEpoch();
    }
    return filter;
}

void frmHistory::Search()
{
    m_typing->stop();
    m_isSearching = true;
    m_hasFailed = false;
    m_newAbove = 0;
    m_waiting.clear();
    m_model->Clear();
    // A list that is emptied does not tell that nothing is chosen any more.
    Choose();
    m_told->clear();
    TellFound();
    m_reader.Search(Filter());
}

void frmHistory::Find(const std::vector<qlonglong>& ids)
{
    // A long list takes its time for each addition, so it is made longer in few of them.
    constexpr qsizetype longList = 20000;
    m_waiting.insert(m_waiting.end(), ids.begin(), ids.end());
    const qsizetype listed = m_model->rowCount();
    if (listed < longList || qsizetype{std::ssize(m_waiting)} >= listed)
        AppendWaiting();
}

void frmHistory::AppendWaiting()
{
    m_model->Append(std::exchange(m_waiting, {}));
    TellFound();
}

void frmHistory::Arrive(const std::vector<qlonglong>& ids)
{
    QScrollBar& bar = *m_list->verticalScrollBar();
    // At the top, with nothing chosen, the list follows what comes; else everything stays where the
    // operator looks at it.
    const bool follows = bar.value() == 0 && ChosenId() == 0;
    const int top = m_list->rowAt(0);
    const int above = m_model->Merge(ids, std::max(top, 0));
    if (above > 0 && !follows) {
        // This brings the range of the scroll bar up to date.
        m_list->visualRect(m_model->index(0, 0));
        bar.setValue(bar.value() + above);
        m_newAbove += above;
    }
    TellFound();
}

void frmHistory::FollowChange()
{
    if (m_hasFailed) {
        Search();
        return;
    }
    const int first = m_list->rowAt(0);
    const int last = m_list->rowAt(m_list->viewport()->height() - 1);
    m_model->Refresh(first, last < 0 ? m_model->rowCount() - 1 : last);
    if (const int chosen = m_model->RowAt(ChosenId()); chosen >= 0)
        m_model->Refresh(chosen, chosen);
}

void frmHistory::GoToNewest()
{
    m_list->clearSelection();
    m_list->setCurrentIndex({});
    m_list->scrollToTop();
    m_newAbove = 0;
    TellFound();
}

void frmHistory::TellFound()
{
    const int count = m_model->rowCount();
    QString text = count == 1 ? QStringLiteral("1 entry")
                              : QStringLiteral("%1 entries").arg(QLocale().toString(count));
    if (m_isSearching)
        text += QStringLiteral(", searching ...");
    if (m_newAbove > 0)
        text += QStringLiteral(", %1 new above").arg(m_newAbove);
    m_found->setText(text);
    m_newest->setEnabled(count > 0);
}

qlonglong frmHistory::ChosenId() const
{
    const QModelIndexList rows = m_list->selectionModel()->selectedRows();
    return rows.isEmpty() ? 0 : m_model->IdAt(rows.constFirst().row());
}

void frmHistory::Choose()
{
    const qlonglong id = ChosenId();
    m_reprint->setEnabled(id != 0);
    m_void->setEnabled(id != 0);
    if (id == 0)
        ShowEntry(std::nullopt);
    else
        m_reader.ReadEntry(id);
}

void frmHistory::Ask(const QString& title, const QString& text, std::function<void()> act)
{
    auto* box = MakeControl<QMessageBox>("Question", QMessageBox::Question, title, text,
                                         QMessageBox::Yes | QMessageBox::No, this);
    box->setTextFormat(Qt::PlainText);
    box->setDefaultButton(QMessageBox::No);
    box->setEscapeButton(QMessageBox::No);
    box->setAttribute(Qt::WA_DeleteOnClose);
    connect(box, &QDialog::finished, this, [act = std::move(act)](int answer) {
        if (answer == QMessageBox::Yes)
            act();
    });
    // Records go on printing while it is open.
    box->open();
}

void frmHistory::Act(const std::function<QString()>& act)
{
    try {
        m_told->setText(act());
    } catch (const Failure& failure) {
        m_told->setText(failure.Text());
    }
    m_reader.Look();
}

void frmHistory::Reprint()
{
    const qlonglong id = ChosenId();
    if (id == 0)
        return;
    Act([&] {
        const ReprintQuestion question = AskBeforeReprint(m_session, id);
        if (question.Text.isEmpty())
            return ReprintFromHistory(m_session, id, question.Mode);
        Ask(QStringLiteral("Print Again"), question.Text, [this, id, mode = question.Mode] {
            Act([&] { return ReprintFromHistory(m_session, id, mode); });
        });
        return QString();
    });
}

void frmHistory::Void()
{
    const qlonglong id = ChosenId();
    if (id == 0)
        return;
    Act([&] {
        Ask(QStringLiteral("Declare Void"), AskBeforeVoid(m_session, id),
            [this, id] { Act([&] { return VoidFromHistory(m_session, id); }); });
        return QString();
    });
}

void frmHistory::SaveAsCsv()
{
    const LedgerFilter filter = Filter();
    const QString path =
        DesktopFileDialog::AskFileToSave(*this, QStringLiteral("Save as CSV"),
                                         QStringLiteral("history.csv"), QStringLiteral("*.csv"));
    if (path.isEmpty())
        return;
    m_save->setEnabled(false);
    m_told->setText(QStringLiteral("The entries are being saved ..."));
    // A reader of its own, so that the list goes on.
    m_export = std::make_unique<HistoryReader>(StoreLocation(m_session.ProgramFolder),
                                               m_session.Options.Encoding);
    connect(m_export.get(), &HistoryReader::Exported, this,
            [this](const QString& file, const QString& problem) {
                m_save->setEnabled(true);
                m_told->setText(problem.isEmpty()
                                    ? QStringLiteral("Saved as ") + file
                                    : QStringLiteral("The file cannot be written: ") + problem);
            });
    m_export->Export(filter, path);
}

} // namespace vantrel
