#include "desktop/dialogs/frmOptions.h"
#include "base/Convert.h"
#include "base/Profile.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopFileDialog.h"
#include "desktop/controls/DesktopToolTip.h"
#include "desktop/controls/DesktopWrappedText.h"
#include "station/commands/OptionsCommand.h"
#include "station/session/Session.h"
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <algorithm>

namespace vantrel {

namespace {

/// Width of an explanation in average characters.
constexpr int Columns = 110;
constexpr int ExplanationIndent = 24;
/// A hundred years; a mistyped number should be noticed.
constexpr int MostDays = 36'500;

QString CaptionOf(const StationOptionRow& row)
{
    return QLatin1StringView(row.Caption);
}

QString WhenOf(const StationOptionRow& row)
{
    return row.Effect == OptionEffect::AtOnce ? QStringLiteral(" Takes effect at once.")
                                              : QStringLiteral(" Takes effect at the next start.");
}

bool HasTab(const QTabWidget& tabs, const QString& text)
{
    for (int tab = 0; tab < tabs.count(); ++tab) {
        if (tabs.tabText(tab) == text)
            return true;
    }
    return false;
}

} // namespace

frmOptions::frmOptions(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session), m_told(MakeControl<QLabel>("lblTold", this))
{
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(QStringLiteral("Station Options"));
    QStringList mistakes;
    m_stored = ReadStationOptions(session.ProgramFolder, mistakes);
    m_entered = m_stored;

    auto* tabs = MakeControl<QTabWidget>("TabStrip", this);
    for (const StationOptionRow& row : StationOptionRows()) {
        if (const QString group = QLatin1StringView(row.Group); !HasTab(*tabs, group))
            tabs->addTab(MakePage(group), group);
    }
    m_told->setWordWrap(true);
    m_told->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_told->setMinimumHeight(fontMetrics().lineSpacing() * 2);
    ShowTold();
    auto* column = new QVBoxLayout(this);
    column->addWidget(tabs, 1);
    column->addWidget(m_told);
    column->addLayout(MakeButtons());
    CentreOver(*this, parent);
}

int frmOptions::Widest() const
{
    return fontMetrics().averageCharWidth() * Columns;
}

QWidget* frmOptions::MakePage(const QString& group)
{
    auto* page = new QWidget(this);
    auto* grid = new QGridLayout(page);
    grid->setColumnMinimumWidth(0, ExplanationIndent);
    grid->setColumnStretch(2, 1);
    for (const StationOptionRow& row : StationOptionRows()) {
        if (group == QLatin1StringView(row.Group))
            AddRow(*grid, row);
    }
    grid->setRowStretch(grid->rowCount(), 1);
    return page;
}

void frmOptions::AddRow(QGridLayout& grid, const StationOptionRow& row)
{
    const int line = grid.rowCount();
    QWidget* control = nullptr;
    if (row.Kind == OptionKind::YesOrNo) {
        control = MakeTick(row);
        grid.addWidget(control, line, 0, 1, 3, Qt::AlignLeft);
    } else {
        control = MakeField(row);
        auto* caption = new QLabel(CaptionOf(row), this);
        caption->setBuddy(control);
        auto* beside = new QHBoxLayout;
        beside->addWidget(caption);
        if (row.Kind == OptionKind::Folder) {
            beside->addWidget(control, 1);
            beside->addWidget(MakeBrowse(row, *control));
        } else {
            beside->addWidget(control);
            beside->addStretch();
        }
        grid.addLayout(beside, line, 0, 1, 3);
    }
    const QString explanation = OptionExplanation(row) + WhenOf(row);
    control->setObjectName(QStringLiteral("opt") + QLatin1StringView(row.Key));
    control->setAccessibleName(CaptionOf(row));
    control->setAccessibleDescription(explanation);
    SetPlainToolTip(*control, QStringLiteral("Key %1 in the section [Station] of the settings file")
                                  .arg(QLatin1StringView(row.Key)));
    int next = line;
    for (const QString& sentence : explanation.split(u'\n'))
        grid.addWidget(new DesktopWrappedText(sentence, Widest(), this), ++next, 1, 1, 2);
    grid.setRowMinimumHeight(next + 1, fontMetrics().height() / 2);
}

QWidget* frmOptions::MakeTick(const StationOptionRow& row)
{
    auto* tick = new QCheckBox(CaptionOf(row), this);
    tick->setChecked(row.Text(m_stored) == BooleanText(true));
    connect(tick, &QCheckBox::toggled, this, [this, &row](bool on) { Take(row, BooleanText(on)); });
    return tick;
}

QWidget* frmOptions::MakeNumber(const StationOptionRow& row)
{
    auto* number = new QSpinBox(this);
    const int stored = row.Text(m_stored).toInt();
    number->setRange(0, std::max(stored, MostDays));
    number->setValue(stored);
    connect(number, &QSpinBox::valueChanged, this,
            [this, &row](int value) { Take(row, QString::number(value)); });
    return number;
}

QWidget* frmOptions::MakeChoice(const StationOptionRow& row)
{
    auto* choice = new QComboBox(this);
    for (const char* value : row.Choices)
        choice->addItem(QLatin1StringView(value));
    choice->setCurrentText(row.Text(m_stored));
    connect(choice, &QComboBox::currentTextChanged, this,
            [this, &row](const QString& text) { Take(row, text); });
    return choice;
}

QWidget* frmOptions::MakeFolder(const StationOptionRow& row)
{
    auto* folder = new QLineEdit(row.Text(m_stored), this);
    folder->setMaxLength(ProfileValueLimit);
    connect(folder, &QLineEdit::textChanged, this,
            [this, &row](const QString& text) { Take(row, text.trimmed()); });
    return folder;
}

QWidget* frmOptions::MakeBrowse(const StationOptionRow& row, QWidget& folder)
{
    auto* browse = new QPushButton(QStringLiteral("&Browse ..."), this);
    browse->setObjectName(QStringLiteral("cmdBrowse") + QLatin1StringView(row.Key));
    browse->setAutoDefault(false);
    auto& edit = static_cast<QLineEdit&>(folder);
    connect(browse, &QPushButton::clicked, this, [this, &row, &edit] {
        const QString chosen = DesktopFileDialog::AskFolder(*this, CaptionOf(row), edit.text());
        if (!chosen.isEmpty())
            edit.setText(chosen);
    });
    return browse;
}

QWidget* frmOptions::MakeField(const StationOptionRow& row)
{
    switch (row.Kind) {
    case OptionKind::Folder:
        return MakeFolder(row);
    case OptionKind::Choice:
        return MakeChoice(row);
    default:
        return MakeNumber(row);
    }
}

QLayout* frmOptions::MakeButtons()
{
    auto* save = MakeControl<QPushButton>("cmdSave", QStringLiteral("&Save"), this);
    auto* cancel = MakeControl<QPushButton>("cmdCancel", QStringLiteral("&Cancel"), this);
    save->setDefault(true);
    cancel->setAutoDefault(false);
    connect(save, &QPushButton::clicked, this, &frmOptions::Save);
    connect(cancel, &QPushButton::clicked, this, &QDialog::close);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(save);
    row->addWidget(cancel);
    return row;
}

void frmOptions::ShowTold()
{
    const QString told = ToldOfChanges(m_stored, m_entered);
    m_told->setText(
        told.isEmpty() ? QStringLiteral("What you change here is kept for all sessions.") : told);
}

void frmOptions::Take(const StationOptionRow& row, const QString& text)
{
    row.Read(m_entered, text);
    ShowTold();
}

void frmOptions::Save()
{
    // A field that was emptied would keep the number that was in it before.
    for (auto* number : findChildren<QSpinBox*>()) {
        if (number->cleanText().isEmpty()) {
            m_told->setText(
                QStringLiteral("Enter a number for \"%1\".").arg(number->accessibleName()));
            number->setFocus();
            return;
        }
    }
    if (SaveOptions(m_session, m_stored, m_entered))
        close();
}

} // namespace vantrel
