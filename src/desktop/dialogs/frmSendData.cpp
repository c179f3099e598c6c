#include "desktop/dialogs/frmSendData.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopUpDown.h"
#include <QButtonGroup>
#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>

namespace vantrel {

namespace {

constexpr int MostDigits = 99;
constexpr int FirstDigits = 4;
constexpr int NumberCharacters = 20;
const QString Ready = QStringLiteral("Ready");

struct Scheme
{
    SequenceDigit Digit;
    const char* Name;
    const char* Caption;
};

constexpr Scheme Schemes[] = {
    {SequenceDigit::Mod10, "rdoType(0)", "Mod 10"},
    {SequenceDigit::Codabar, "rdoType(1)", "CodaBar"},
};

} // namespace

frmSendData::frmSendData(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session), m_start(MakeControl<QLineEdit>("txtStart", this)),
      m_end(MakeControl<QLineEdit>("txtEnd", this)),
      m_checkDigit(
          MakeControl<QCheckBox>("chkGenCheckDigit", QStringLiteral("Generate Check Digit"), this)),
      m_schemes(new QButtonGroup(this)),
      m_spacing(MakeControl<QCheckBox>("chkSpacing", QStringLiteral("Generate Spacing"), this)),
      m_digitCount(MakeControl<QLineEdit>("txtDigitCount", QString::number(FirstDigits), this)),
      m_out(MakeControl<QLabel>("lblOut", Ready, this)),
      m_print(MakeControl<QPushButton>("cmdPrint", QStringLiteral("Print"), this))
{
    setObjectName(QStringLiteral("frmSendData"));
    setWindowTitle(QStringLiteral("Card Number Sequence Generator"));
    auto* column = new QVBoxLayout(this);
    column->addLayout(MakeNumbers());
    column->addLayout(MakeCheckDigit());
    column->addLayout(MakeSpacing());
    column->addWidget(m_out);
    column->addLayout(MakeButtons());
    column->addStrut(WidthForTitle(windowTitle()));
    column->setSizeConstraint(QLayout::SetFixedSize);
    OnCheckDigit(false);
    CentreOver(*this, parent);
}

QLayout* frmSendData::MakeNumbers()
{
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Starting Number"), m_start);
    form->addRow(QStringLiteral("Ending Number"), m_end);
    for (QLineEdit* number : {m_start, m_end})
        number->setMinimumWidth(number->fontMetrics().averageCharWidth() * NumberCharacters);
    return form;
}

QLayout* frmSendData::MakeCheckDigit()
{
    auto* row = new QHBoxLayout;
    row->addWidget(m_checkDigit);
    row->addStretch();
    QWidget* before = m_checkDigit;
    for (const Scheme& scheme : Schemes) {
        auto* option =
            MakeControl<QRadioButton>(scheme.Name, QLatin1StringView(scheme.Caption), this);
        m_schemes->addButton(option, static_cast<int>(scheme.Digit));
        row->addWidget(option);
        setTabOrder(before, option);
        before = option;
    }
    connect(m_checkDigit, &QCheckBox::toggled, this, &frmSendData::OnCheckDigit);
    return row;
}

QLayout* frmSendData::MakeSpacing()
{
    const QString counted = QStringLiteral("Digits in a group");
    m_digitCount->setAccessibleName(counted);
    m_digitCount->setAlignment(Qt::AlignRight);
    m_digitCount->setFixedWidth(m_digitCount->fontMetrics().averageCharWidth() * 6);
    auto* arrows = MakeControl<DesktopUpDown>("ccrpUpDown1", counted, this);
    arrows->SetRange(1, MostDigits);
    arrows->SetValue(FirstDigits);
    arrows->StandBeside(*m_digitCount);
    setTabOrder(arrows, m_print);
    connect(arrows, &DesktopUpDown::ValueChanged, m_digitCount,
            [this](int digits) { m_digitCount->setText(QString::number(digits)); });
    connect(m_digitCount, &QLineEdit::textChanged, arrows, [arrows](const QString& text) {
        // The typed text stays unchanged; the arrows only continue from it.
        const QSignalBlocker keepText(arrows);
        Skip("count digits", [&] { arrows->SetValue(ToInteger(text)); });
    });
    auto* row = new QHBoxLayout;
    row->addWidget(m_spacing);
    row->addStretch();
    row->addWidget(m_digitCount);
    row->addWidget(arrows);
    return row;
}

QLayout* frmSendData::MakeButtons()
{
    auto* cancel = MakeControl<QPushButton>("cmdCancel", QStringLiteral("&Cancel"), this);
    m_print->setDefault(true);
    cancel->setAutoDefault(false);
    connect(m_print, &QPushButton::clicked, this, &frmSendData::Print);
    connect(cancel, &QPushButton::clicked, this, &QDialog::close);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(m_print);
    row->addWidget(cancel);
    return row;
}

void frmSendData::OnCheckDigit(bool on)
{
    for (QAbstractButton* option : m_schemes->buttons())
        option->setEnabled(on);
    if (on)
        m_schemes->button(static_cast<int>(SequenceDigit::Mod10))->setChecked(true);
}

SequenceOrder frmSendData::Order() const
{
    SequenceOrder order;
    order.Start = m_start->text();
    order.End = m_end->text();
    if (m_checkDigit->isChecked())
        order.CheckDigit = static_cast<SequenceDigit>(m_schemes->checkedId());
    order.Spacing = m_spacing->isChecked();
    order.DigitCount = m_digitCount->text();
    return order;
}

void frmSendData::Print()
{
    // The station may close this window during the run.
    const QPointer<frmSendData> self(this);
    m_print->setEnabled(false);
    RunSequence(m_session, Order(), [&self](double done, double count) {
        if (self.isNull() || !self->isVisible())
            return false;
        self->m_out->setText(QStringLiteral("%1 of %2").arg(NumberText(done), NumberText(count)));
        return true;
    });
    if (self.isNull())
        return;
    m_out->setText(Ready);
    m_print->setEnabled(true);
}

} // namespace vantrel
