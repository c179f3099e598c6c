#include "desktop/dialogs/frmCheck.h"
#include "desktop/controls/DesktopControls.h"
#include "station/commands/CheckCommands.h"
#include "station/session/Session.h"
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace vantrel {

namespace {

/// Pause behind the last change of the page, in milliseconds.
constexpr int PauseBehindChange = 300;
constexpr QSize FirstSize{720, 420};
/// Of the screen, with room for the frame.
constexpr double LargestShare = 0.9;
/// Lines of the advice that stay in sight.
constexpr int AdviceLines = 3;

enum Column { WeightColumn, PageColumn, WhereColumn, WhatColumn, ColumnCount };

QString WeightText(FindingWeight weight)
{
    return weight == FindingWeight::Error ? QStringLiteral("Error") : QStringLiteral("Warning");
}

QStyle::StandardPixmap WeightIcon(FindingWeight weight)
{
    return weight == FindingWeight::Error ? QStyle::SP_MessageBoxCritical
                                          : QStyle::SP_MessageBoxWarning;
}

QString Counted(qsizetype count, const QString& what)
{
    return count == 1 ? QStringLiteral("1 ") + what : QStringLiteral("%1 %2s").arg(count).arg(what);
}

QString SummaryOf(const Session& session, const Findings& findings)
{
    if (session.CurrentLayoutName.isEmpty())
        return QStringLiteral("No layout is open.");
    const auto errors = std::ranges::count_if(findings, [](const Finding& finding) {
        return RowOf(finding.Kind).Weight == FindingWeight::Error;
    });
    const QString found =
        findings.empty() ? QStringLiteral("Nothing found")
                         : Counted(errors, QStringLiteral("error")) + QStringLiteral(" and ") +
                               Counted(std::ssize(findings) - errors, QStringLiteral("warning"));
    const QString values = session.FieldValues.Count() > 0
                               ? QStringLiteral("with the values of the last record")
                               : QStringLiteral("with the names of the fields, as no record came");
    return QStringLiteral("%1 on the layout %2, %3.")
        .arg(found, ShownLine(session.CurrentLayoutName), values);
}

QString WhatText(const Finding& finding)
{
    return finding.Detail.isEmpty() ? finding.What
                                    : finding.What + QStringLiteral(": ") + finding.Detail;
}

/// Whether both tell of the same thing, whatever exactly they tell.
bool SameSubject(const Finding& one, const Finding& other)
{
    return one.Kind == other.Kind && one.Page == other.Page && one.Object == other.Object &&
           one.Where == other.Where;
}

} // namespace

frmCheck::frmCheck(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session), m_summary(MakeControl<QLabel>("lblSummary", this)),
      m_list(MakeControl<QTreeWidget>("lstFindings", this)),
      m_advice(MakeControl<QLabel>("lblAdvice", this)), m_pause(new QTimer(this))
{
    setObjectName(QStringLiteral("frmCheck"));
    setWindowTitle(QStringLiteral("Check Layout"));
    for (QLabel* label : {m_summary, m_advice}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    m_advice->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_advice->setMinimumHeight(AdviceLines * fontMetrics().lineSpacing());
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_summary);
    column->addWidget(MakeList(), 1);
    column->addWidget(m_advice);
    column->addLayout(MakeButtons());
    resize(FirstSize.boundedTo(screen()->availableSize() * LargestShare));
    CentreOver(*this, parent);

    m_pause->setSingleShot(true);
    m_pause->setInterval(PauseBehindChange);
    connect(m_pause, &QTimer::timeout, this, &frmCheck::CheckAgain);
    connect(&session.Document, &CardDocument::Changed, this, &frmCheck::CheckSoon);
    CheckAgain();
}

QWidget* frmCheck::MakeList()
{
    m_list->setAccessibleName(QStringLiteral("Findings"));
    m_list->setColumnCount(ColumnCount);
    m_list->setHeaderLabels({QStringLiteral("Weight"), QStringLiteral("Page"),
                             QStringLiteral("Object"), QStringLiteral("Finding")});
    m_list->setRootIsDecorated(false);
    m_list->setAllColumnsShowFocus(true);
    m_list->setUniformRowHeights(true);
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_list->header()->setStretchLastSection(true);
    connect(m_list, &QTreeWidget::currentItemChanged, this, &frmCheck::ShowAdvice);
    connect(m_list, &QTreeWidget::itemClicked, this, &frmCheck::ShowOnCard);
    connect(m_list, &QTreeWidget::itemActivated, this, &frmCheck::ShowOnCard);
    return m_list;
}

QLayout* frmCheck::MakeButtons()
{
    auto* again = MakeControl<QPushButton>("cmdAgain", QStringLiteral("Check &Again"), this);
    again->setShortcut(Qt::Key_F5);
    again->setToolTip(QStringLiteral("F5"));
    again->setAutoDefault(false);
    connect(again, &QPushButton::clicked, this, &frmCheck::CheckAgain);
    auto* show = MakeControl<QPushButton>("cmdShow", QStringLiteral("&Show on Card"), this);
    show->setAutoDefault(false);
    show->setEnabled(false);
    connect(show, &QPushButton::clicked, this, &frmCheck::ShowOnCard);
    auto* close = MakeControl<QPushButton>("cmdClose", QStringLiteral("&Close"), this);
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(again);
    buttons->addWidget(show);
    buttons->addWidget(close);
    return buttons;
}

void frmCheck::CheckSoon()
{
    m_pause->start();
}

void frmCheck::CheckAgain()
{
    // While a record prints, or the mouse holds an object, the page is about to change anyway.
    if (m_session.Road.IsBusy() || m_session.Document.Drag.Mode != DragMode::None) {
        m_pause->start();
        return;
    }
    m_pause->stop();
    Findings findings = CheckOpenLayout(m_session);
    m_summary->setText(SummaryOf(m_session, findings));
    if (findings == m_findings && m_list->topLevelItemCount() == std::ssize(findings))
        return;
    const Finding* chosen = Chosen();
    const auto before = chosen == nullptr ? std::nullopt : std::optional(*chosen);
    m_findings = std::move(findings);
    ShowFindings(before);
}

void frmCheck::ShowFindings(const std::optional<Finding>& chosen)
{
    const QSignalBlocker quiet(m_list);
    m_list->clear();
    QList<QTreeWidgetItem*> rows;
    QTreeWidgetItem* current = nullptr;
    for (const Finding& finding : m_findings) {
        const FindingWeight weight = RowOf(finding.Kind).Weight;
        auto* row = new QTreeWidgetItem({WeightText(weight), QString::number(finding.Page),
                                         ShownLine(finding.Where), ShownLine(WhatText(finding))});
        row->setIcon(WeightColumn, style()->standardIcon(WeightIcon(weight)));
        rows.append(row);
        if (current == nullptr && chosen && SameSubject(finding, *chosen))
            current = row;
    }
    m_list->addTopLevelItems(rows);
    m_list->setCurrentItem(current != nullptr || rows.isEmpty() ? current : rows.constFirst());
    ShowAdvice();
}

const Finding* frmCheck::Chosen() const
{
    const int row = m_list->indexOfTopLevelItem(m_list->currentItem());
    return row < 0 || row >= std::ssize(m_findings) ? nullptr
                                                    : &m_findings[static_cast<std::size_t>(row)];
}

void frmCheck::ShowAdvice()
{
    const Finding* finding = Chosen();
    findChild<QPushButton*>(QStringLiteral("cmdShow"))->setEnabled(finding != nullptr);
    m_advice->setText(finding == nullptr
                          ? QString()
                          : ShownLine(finding->Where + QStringLiteral(". ") + WhatText(*finding)) +
                                QStringLiteral(". ") + finding->Advice);
}

void frmCheck::ShowOnCard()
{
    const Finding* finding = Chosen();
    if (finding == nullptr)
        return;
    // A copy, because the list may be filled anew while the operator is asked.
    const Finding shown = *finding;
    if (!ShowFinding(m_session, shown))
        CheckSoon();
}

} // namespace vantrel
