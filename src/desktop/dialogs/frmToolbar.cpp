#include "desktop/dialogs/frmToolbar.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopToolTip.h"
#include "station/capture/DataSettings.h"
#include "station/session/Session.h"
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace vantrel {

namespace {

/// How far above the middle of the main window's height the dialog is placed, twips.
constexpr int AboveMiddle = 200;

} // namespace

frmToolbar::frmToolbar(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session),
      m_start(MakeDelimiterBox("txtStart", QStringLiteral("Data Start"))),
      m_delimiter(MakeDelimiterBox("txtDelim", QStringLiteral("Seperator"))),
      m_end(MakeDelimiterBox("txtEnd", QStringLiteral("Data End"))),
      m_buffer(MakeControl<QCheckBox>("chkBuffer", QStringLiteral("Buffer Data"), this)),
      m_filters(MakeControl<QListWidget>("lstFilters", this))
{
    setObjectName(QStringLiteral("frmToolbar"));
    setWindowTitle(QStringLiteral("Data Settings"));
    m_filters->setAccessibleName(QStringLiteral("Data Filters"));
    ShowDelimiters(PresentDataSettings(m_session.Settings));
    // Codes are decoded from the first change on.
    for (QLineEdit* box : {m_start, m_delimiter, m_end})
        SetPlainToolTip(*box, WrittenToolTip(box->text()));
    LoadFilterList();
    LayOut();
    PlaceBySizeOf(*this, parent, AboveMiddle);
}

QLineEdit* frmToolbar::MakeDelimiterBox(const char* name, const QString& what)
{
    auto* box = MakeControl<QLineEdit>(name, this);
    box->setAccessibleName(what);
    connect(box, &QLineEdit::textChanged, box,
            [box](const QString& text) { SetPlainToolTip(*box, DecodedToolTip(text)); });
    return box;
}

void frmToolbar::LayOut()
{
    auto* delimiters = new QFormLayout;
    delimiters->addRow(QStringLiteral("Data Start"), m_start);
    delimiters->addRow(QStringLiteral("Seperator"), m_delimiter);
    delimiters->addRow(QStringLiteral("Data End"), m_end);
    delimiters->addRow(QString(), m_buffer);

    auto* filters = new QGroupBox(QStringLiteral("Data Filters"), this);
    auto* filterColumn = new QVBoxLayout(filters);
    filterColumn->addWidget(m_filters);

    auto* buttons = new QDialogButtonBox(this);
    auto* ok = MakeControl<QPushButton>("cmdOk", QStringLiteral("&Save Settings"), this);
    auto* cancel = MakeControl<QPushButton>("cmdCancel", QStringLiteral("&Cancel"), this);
    auto* standard =
        MakeControl<QPushButton>("cmdDefault", QStringLiteral("&Restore Defaults"), this);
    buttons->addButton(standard, QDialogButtonBox::ResetRole);
    buttons->addButton(ok, QDialogButtonBox::AcceptRole);
    buttons->addButton(cancel, QDialogButtonBox::RejectRole);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &frmToolbar::Save);
    connect(cancel, &QPushButton::clicked, this, &QDialog::close);
    connect(standard, &QPushButton::clicked, this,
            [this] { ShowDelimiters(DefaultDataSettings()); });

    auto* column = new QVBoxLayout(this);
    column->addLayout(delimiters);
    column->addWidget(filters);
    column->addWidget(buttons);
}

void frmToolbar::ShowDelimiters(const DataSettings& settings)
{
    m_start->setText(settings.Framing.DataStart);
    m_delimiter->setText(settings.Framing.DataSeperator);
    m_end->setText(settings.Framing.DataEnd);
    m_buffer->setChecked(settings.BufferData);
}

void frmToolbar::LoadFilterList()
{
    for (const FilterRow& row : FilterTable) {
        auto* item = new QListWidgetItem(QLatin1StringView(row.Caption), m_filters);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(m_session.Settings.Filters.*row.Flag ? Qt::Checked : Qt::Unchecked);
    }
    // All rows are visible at once, so that an operator overlooks none.
    m_filters->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    m_filters->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    m_filters->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(m_filters, &QListWidget::itemChanged, this,
            [this](QListWidgetItem* item) { StoreFilterRow(m_filters->row(item)); });
}

void frmToolbar::StoreFilterRow(int row)
{
    StoreFilter(m_session, FilterTable[static_cast<std::size_t>(row)],
                m_filters->item(row)->checkState() == Qt::Checked);
}

void frmToolbar::Save()
{
    SaveDataSettings(
        m_session, {{m_start->text(), m_delimiter->text(), m_end->text()}, m_buffer->isChecked()});
    close();
}

} // namespace vantrel
