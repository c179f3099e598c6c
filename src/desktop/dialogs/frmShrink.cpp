#include "desktop/dialogs/frmShrink.h"
#include "card/ObjectExtras.h"
#include "desktop/controls/DesktopControls.h"
#include "station/commands/FigureCommands.h"
#include "station/commands/ShrinkCommands.h"
#include "station/session/Session.h"
#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace vantrel {

namespace {
constexpr double SizeStep = 0.5;
constexpr int SizeDecimals = 2;
} // namespace

frmShrink::frmShrink(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session), m_label(SelectedLabel(session.Document)),
      m_shrinks(MakeControl<QCheckBox>(
          "chkShrink", QStringLiteral("S&hrink the text until it fits its box"), this)),
      m_least(MakeControl<QDoubleSpinBox>("numLeast", this))
{
    setObjectName(QStringLiteral("frmShrink"));
    setWindowTitle(QStringLiteral("Shrink to Fit"));
    setModal(true);
    auto* caption = new QLabel(QStringLiteral("S&mallest size"), this);
    caption->setBuddy(m_least);
    m_least->setAccessibleName(QStringLiteral("Smallest size"));
    m_least->setDecimals(SizeDecimals);
    m_least->setSingleStep(SizeStep);
    m_least->setRange(LeastShrinkTo, MostShrinkTo);
    m_least->setSuffix(QStringLiteral(" points"));
    const double least = m_label == nullptr ? 0 : ShrinkToOf(*m_label);
    m_shrinks->setChecked(least > 0);
    m_least->setValue(least > 0 ? least : UsualShrinkTo);
    m_least->setEnabled(least > 0);
    connect(m_shrinks, &QCheckBox::toggled, m_least, &QWidget::setEnabled);

    auto* save = MakeControl<QPushButton>("cmdSave", QStringLiteral("&Save"), this);
    save->setDefault(true);
    save->setEnabled(m_label != nullptr);
    m_shrinks->setEnabled(m_label != nullptr);
    connect(save, &QPushButton::clicked, this, &frmShrink::Save);
    auto* cancel = MakeControl<QPushButton>("cmdCancel", QStringLiteral("&Cancel"), this);
    connect(cancel, &QPushButton::clicked, this, &QDialog::close);

    auto* size = new QHBoxLayout;
    size->addWidget(caption);
    size->addWidget(m_least);
    size->addStretch();
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(save);
    buttons->addWidget(cancel);
    auto* column = new QVBoxLayout(this);
    if (m_label == nullptr)
        column->addWidget(new QLabel(QStringLiteral("Select a text on the card first."), this));
    column->addWidget(m_shrinks);
    column->addLayout(size);
    column->addStretch();
    column->addLayout(buttons);
}

void frmShrink::Save()
{
    ShrinkSelected(m_session, m_label, m_shrinks->isChecked() ? m_least->value() : 0);
    close();
}

} // namespace vantrel
