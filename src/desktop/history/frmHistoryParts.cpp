#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopTable.h"
#include "desktop/history/DesktopRecordParts.h"
#include "desktop/history/HistoryModel.h"
#include "desktop/history/frmHistory.h"
#include "station/session/Session.h"
#include "station/session/StoreLocation.h"
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QTabWidget>
#include <QTableView>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <array>

// How the controls of the history are made and stand.

namespace vantrel {

namespace {

constexpr int TypingPause = 200;
constexpr int LookInterval = 400;
constexpr QSize FirstSize{980, 680};
/// Of the screen, with room for the frame.
constexpr double LargestShare = 0.9;
/// Widths of the columns in average characters, in their order.
constexpr std::array<int, HistoryColumnCount> ColumnWidths{9, 23, 25, 16, 34, 14, 10, 8};

} // namespace

frmHistory::frmHistory(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session),
      m_reader(StoreLocation(session.ProgramFolder), session.Options.Encoding),
      m_model(new HistoryModel(m_reader, this)), m_typing(new QTimer(this))
{
    setObjectName(QStringLiteral("frmHistory"));
    setWindowTitle(QStringLiteral("History"));
    setWindowFlag(Qt::WindowMinMaxButtonsHint);
    auto* column = new QVBoxLayout(this);
    column->addLayout(MakeFilters());
    auto* split = new QSplitter(Qt::Vertical, this);
    split->setChildrenCollapsible(false);
    split->addWidget(MakeList());
    auto* tabs = MakeControl<QTabWidget>("TabStrip", this);
    tabs->addTab(MakeRecordPage(), QStringLiteral("Record"));
    tabs->addTab(MakeValuesPage(), QStringLiteral("Values"));
    tabs->addTab(MakeCardsPage(), QStringLiteral("Cards"));
    split->addWidget(tabs);
    split->setStretchFactor(0, 3);
    split->setStretchFactor(1, 2);
    column->addWidget(split, 1);
    m_told = MakeControl<QLabel>("lblTold", this);
    m_told->setTextFormat(Qt::PlainText);
    m_told->setWordWrap(true);
    column->addWidget(m_told);
    column->addLayout(MakeButtons());
    resize(FirstSize.boundedTo(screen()->availableSize() * LargestShare));
    CentreOver(*this, parent);

    connect(&m_reader, &HistoryReader::Found, this, &frmHistory::Find);
    connect(&m_reader, &HistoryReader::SearchEnded, this, [this] {
        m_isSearching = false;
        AppendWaiting();
    });
    connect(&m_reader, &HistoryReader::Arrived, this, &frmHistory::Arrive);
    connect(&m_reader, &HistoryReader::Changed, this, &frmHistory::FollowChange);
    connect(&m_reader, &HistoryReader::EntryRead, this, [this](const auto& entry) {
        if (!entry || entry->Entry.Id == ChosenId())
            ShowEntry(entry);
    });
    connect(&m_reader, &HistoryReader::Failed, this, [this](const QString& problem) {
        m_hasFailed = true;
        m_told->setText(problem);
    });
    connect(m_model, &HistoryModel::EntryChanged, this, [this](qlonglong id) {
        if (id == ChosenId())
            m_reader.ReadEntry(id);
    });
    m_typing->setSingleShot(true);
    m_typing->setInterval(TypingPause);
    connect(m_typing, &QTimer::timeout, this, &frmHistory::Search);
    auto* look = new QTimer(this);
    look->setObjectName(QStringLiteral("tmrLook"));
    connect(look, &QTimer::timeout, this, [this] { m_reader.Look(); });
    look->start(LookInterval);
    Choose();
    Search();
}

QLayout* frmHistory::MakeFilters()
{
    m_text = MakeControl<QLineEdit>("txtFind", this);
    m_text->setPlaceholderText(QStringLiteral("in source, layout, values and numbers"));
    m_text->setClearButtonEnabled(false);
    m_text->setMaxLength(static_cast<int>(LongestSearchText));
    connect(m_text, &QLineEdit::textChanged, m_typing, qOverload<>(&QTimer::start));
    connect(m_text, &QLineEdit::returnPressed, this, &frmHistory::Search);
    m_state = MakeControl<QComboBox>("cboState", this);
    m_state->addItem(QStringLiteral("any"));
    m_state->addItems(LedgerStateNames());
    connect(m_state, &QComboBox::currentIndexChanged, this, &frmHistory::Search);
    m_useDay = MakeControl<QCheckBox>("chkDay", QStringLiteral("&Day"), this);
    m_day = MakeControl<QDateEdit>("dtpDay", QDate::currentDate(), this);
    m_day->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
    m_day->setAccessibleName(QStringLiteral("Day"));
    m_day->setEnabled(false);
    connect(m_useDay, &QCheckBox::toggled, this, [this](bool on) {
        m_day->setEnabled(on);
        Search();
    });
    connect(m_day, &QDateEdit::dateChanged, m_typing, qOverload<>(&QTimer::start));
    m_found = MakeControl<QLabel>("lblFound", this);

    auto* row = new QHBoxLayout;
    const auto add = [&](const QString& caption, QWidget* control) {
        auto* label = new QLabel(caption, this);
        label->setBuddy(control);
        control->setAccessibleName(QString(caption).remove(u'&').remove(u':'));
        row->addWidget(label);
        row->addWidget(control);
    };
    add(QStringLiteral("&Find:"), m_text);
    add(QStringLiteral("S&tate:"), m_state);
    row->addWidget(m_useDay);
    row->addWidget(m_day);
    row->addWidget(m_found);
    row->setStretch(1, 1);
    return row;
}

QWidget* frmHistory::MakeList()
{
    m_list = MakeControl<QTableView>("lstEntries", this);
    m_list->setAccessibleName(QStringLiteral("Entries"));
    m_list->setModel(m_model);
    PrepareTable(*m_list, *this);
    m_list->setAlternatingRowColors(false);
    for (int section = 0; section < HistoryColumnCount; ++section)
        m_list->setColumnWidth(section, ColumnWidths[static_cast<std::size_t>(section)] *
                                            fontMetrics().averageCharWidth());
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &frmHistory::Choose);
    // Where the list has one row only, no arrow key chooses it.
    connect(m_list, &QTableView::activated, m_list,
            [this](const QModelIndex& index) { m_list->selectRow(index.row()); });
    return m_list;
}

QWidget* frmHistory::MakeRecordPage()
{
    auto* page = new QWidget(this);
    auto* legend = new QHBoxLayout;
    for (int number = 0; number < RecordPartCount; ++number) {
        auto* label = MakeControl<QLabel>("lblPart", page);
        label->setProperty("part", number);
        label->setAutoFillBackground(true);
        label->setMargin(3);
        legend->addWidget(label);
    }
    legend->addStretch();
    m_atCursor = MakeControl<QLabel>("lblAtCursor", page);
    legend->addWidget(m_atCursor);
    using Form = DesktopRecordParts::Form;
    m_asText = MakeControl<DesktopRecordParts>("txtRecord", Form::Text, page);
    m_asText->setAccessibleName(QStringLiteral("Record as text"));
    m_asHex = MakeControl<DesktopRecordParts>("txtHex", Form::Hex, page);
    m_asHex->setAccessibleName(QStringLiteral("Record as codes"));
    for (DesktopRecordParts* view : {m_asText, m_asHex})
        connect(view, &QPlainTextEdit::cursorPositionChanged, this,
                [this, view] { m_atCursor->setText(view->ToldAtCursor()); });
    auto* views = new QHBoxLayout;
    views->addWidget(m_asText, 2);
    views->addWidget(m_asHex, 3);
    auto* column = new QVBoxLayout(page);
    column->addLayout(legend);
    column->addLayout(views, 1);
    ShowLegend();
    return page;
}

QWidget* frmHistory::MakeValuesPage()
{
    m_values = MakeControl<QTableWidget>("tblValues", this);
    m_values->setAccessibleName(QStringLiteral("Values"));
    m_values->setColumnCount(4);
    m_values->setHorizontalHeaderLabels({QStringLiteral("Value"), QStringLiteral("As it came"),
                                         QStringLiteral("Object"), QStringLiteral("On the card")});
    PrepareTable(*m_values, *this);
    const int character = fontMetrics().averageCharWidth();
    for (const auto& [section, width] : {std::pair(0, 8), std::pair(1, 40), std::pair(2, 30)})
        m_values->setColumnWidth(section, width * character);
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    column->addWidget(m_values);
    return page;
}

QWidget* frmHistory::MakeCardsPage()
{
    auto* page = new QWidget(this);
    m_cards = MakeControl<QListWidget>("lstCards", page);
    m_cards->setAccessibleName(QStringLiteral("Cards"));
    connect(m_cards, &QListWidget::currentRowChanged, this, &frmHistory::ShowCard);
    m_picture = MakeControl<QLabel>("imgCard", page);
    m_picture->setFrameStyle(QFrame::Box | QFrame::Plain);
    m_cardNote = MakeControl<QLabel>("lblCardNote", page);
    m_cardNote->setTextFormat(Qt::PlainText);
    m_cardNote->setWordWrap(true);
    m_cardNote->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto* row = new QHBoxLayout(page);
    row->addWidget(m_cards, 3);
    row->addWidget(m_picture, 0, Qt::AlignTop);
    row->addWidget(m_cardNote, 2);
    return page;
}

QLayout* frmHistory::MakeButtons()
{
    auto* row = new QHBoxLayout;
    const auto add = [&](const char* name, const QString& caption, auto&& press) {
        auto* button = MakeControl<QPushButton>(name, caption, this);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, press);
        row->addWidget(button);
        return button;
    };
    m_newest = add("cmdNewest", QStringLiteral("&Newest"), &frmHistory::GoToNewest);
    row->addStretch();
    m_reprint = add("cmdReprint", QStringLiteral("&Reprint ..."), &frmHistory::Reprint);
    m_void = add("cmdVoid", QStringLiteral("&Void ..."), &frmHistory::Void);
    m_save = add("cmdSaveCsv", QStringLiteral("&Save as CSV ..."), &frmHistory::SaveAsCsv);
    add("cmdClose", QStringLiteral("&Close"), &QDialog::close);
    return row;
}

} // namespace vantrel
