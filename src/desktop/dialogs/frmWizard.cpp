#include "desktop/dialogs/frmWizard.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopUpDown.h"
#include "drawing/ShownFamily.h"
#include "station/session/Session.h"
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace vantrel {

namespace {

constexpr int ConditionsInterval = 50;
constexpr double LiftTwips = 500;
constexpr QSize FirstSize{520, 380};
const QString FirstFont = QStringLiteral("Tahoma");

/// The family that the wizard begins with. With the design tools it is what the machine shows for
/// that family: a layout in a font that is not there would be found fault with by its check.
QString FirstFamily(const StationOptions& options)
{
    if (!options.DesignTools)
        return FirstFont;
    Font first;
    first.Name = FirstFont;
    const QString shown = ShownFamily(first);
    return shown.isEmpty() ? FirstFont : shown;
}

} // namespace

frmWizard::frmWizard(Session& session, QWidget* parent)
    : QDialog(parent, DialogWithoutClose), m_session(session),
      m_prompt(MakeControl<QLabel>("lblPrompt", this)), m_pages(new QStackedWidget(this))
{
    setObjectName(QStringLiteral("frmWizard"));
    setWindowTitle(QStringLiteral("Ostrand Card Design Wizard"));
    m_prompt->setWordWrap(true);
    QFont heading = m_prompt->font();
    heading.setBold(true);
    m_prompt->setFont(heading);
    for (const WizardPage& page : WizardPages)
        m_pages->addWidget(MakePage(page.Step));
    MakeButtons();
    OnEnableFields(false);
    resize(FirstSize);
    CentreOver(*this, parent, LiftTwips);

    auto* conditions = new QTimer(this);
    conditions->setObjectName(QStringLiteral("tmrConditions"));
    connect(conditions, &QTimer::timeout, this, &frmWizard::CheckConditions);
    conditions->start(ConditionsInterval);
    GoTo(m_step);
}

void frmWizard::MakeButtons()
{
    m_back = MakeControl<QPushButton>("cmdBack", QStringLiteral("<< &Back"), this);
    m_next = MakeControl<QPushButton>("cmdNext", this);
    auto* cancel = MakeControl<QPushButton>("cmdCancel", QStringLiteral("Cancel"), this);
    m_next->setDefault(true);
    for (QPushButton* other : {m_back, cancel})
        other->setAutoDefault(false);
    connect(m_back, &QPushButton::clicked, this, [this] {
        if (m_step > 1)
            GoTo(m_step - 1);
    });
    connect(m_next, &QPushButton::clicked, this, [this] { GoTo(m_step + 1); });
    connect(cancel, &QPushButton::clicked, this, &QDialog::close);

    auto* line = new QFrame(this);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(m_back);
    row->addWidget(m_next);
    row->addSpacing(style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing));
    row->addWidget(cancel);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_prompt);
    column->addWidget(m_pages, 1);
    column->addWidget(line);
    column->addLayout(row);
}

void frmWizard::closeEvent(QCloseEvent* event)
{
    if (event->spontaneous())
        event->ignore();
    else
        QDialog::closeEvent(event);
}

void frmWizard::GoTo(int step)
{
    m_step = step;
    Enter(static_cast<WizardStep>(step));
    if (step > static_cast<int>(WizardPages.size()))
        return;
    m_prompt->setText(QLatin1StringView(WizardPages[static_cast<std::size_t>(step) - 1].Prompt));
    m_pages->setCurrentIndex(step - 1);
    m_back->setEnabled(step > 1);
    m_next->setText(step == static_cast<int>(WizardStep::Summary) ? QStringLiteral("Finish")
                                                                  : QStringLiteral("Next >>"));
    CheckConditions();
}

void frmWizard::Enter(WizardStep step)
{
    switch (step) {
    case WizardStep::DefaultFont:
        m_answers.LayoutName = m_name->text();
        m_fonts->setCurrentText(FirstFamily(m_session.Options));
        UpdateSample();
        break;
    case WizardStep::Summary:
        m_answers.FieldCount = static_cast<std::int16_t>(m_fields->Value());
        m_answers.DynamicFields = m_autoAdd->isChecked();
        FillSummary();
        break;
    case WizardStep::Build:
        Finish();
        break;
    default:
        break;
    }
}

void frmWizard::CheckConditions()
{
    const auto complete =
        IsPageComplete(static_cast<WizardStep>(m_step), m_name->text(), m_answers);
    if (complete)
        m_next->setEnabled(*complete);
}

void frmWizard::UpdateSample()
{
    Font chosen;
    chosen.Name = m_fonts->currentText();
    Skip("font size", [&] { chosen.Size = ToDouble(m_sizes->currentText()); });
    for (std::size_t box = 0; box < std::size(StyleBoxes); ++box)
        chosen.*StyleBoxes[box].Flag = m_styles[box]->isChecked();
    m_answers.DefaultFont = chosen;

    QFont sample(chosen.Name);
    if (chosen.Size > 0)
        sample.setPointSizeF(chosen.Size);
    sample.setBold(chosen.Bold);
    sample.setItalic(chosen.Italic);
    sample.setUnderline(chosen.Underline);
    sample.setStrikeOut(chosen.Strikethrough);
    m_sample->setFont(sample);
}

void frmWizard::ChooseOrientation(int orientation, const QString& name)
{
    m_answers.Orientation = orientation;
    m_orientation->setText(name);
}

void frmWizard::OnEnableFields(bool on)
{
    for (QWidget* control :
         {static_cast<QWidget*>(m_autoAdd), static_cast<QWidget*>(m_fields),
          static_cast<QWidget*>(m_fieldCount), static_cast<QWidget*>(m_fieldsCaption)})
        control->setEnabled(on);
}

void frmWizard::OnAutoAdd(bool on)
{
    m_answers.DynamicFields = on;
    m_enableFields->setEnabled(!on);
}

void frmWizard::FillSummary()
{
    int row = 0;
    for (const SummaryLine& line : SummaryOf(m_answers)) {
        auto* value = static_cast<QLabel*>(m_summary->itemAtPosition(row, 1)->widget());
        value->setText(line.Value);
        ++row;
    }
}

void frmWizard::Finish()
{
    // Building the layout lets events run, in which the window may be closed and deleted.
    Session& session = m_session;
    const WizardAnswers answers = m_answers;
    close();
    BuildWizardLayout(session, answers);
}

} // namespace vantrel
