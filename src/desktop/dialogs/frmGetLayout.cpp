#include "desktop/dialogs/frmGetLayout.h"
#include "base/Skip.h"
#include "desktop/controls/DesktopChoices.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/RunTimeError.h"
#include "station/layout/Navigation.h"
#include "station/session/Session.h"
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace vantrel {

namespace {
constexpr QSize FirstSize{320, 300};
}

frmGetLayout::frmGetLayout(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session),
      m_layouts(MakeControl<DesktopChoices>("lstLayouts", this))
{
    setObjectName(QStringLiteral("frmGetLayout"));
    setWindowTitle(QStringLiteral(" Select a layout"));

    m_layouts->setAccessibleName(QStringLiteral("Layouts"));
    // Without a database there is no layout to choose.
    Skip("layout names", [&] { m_layouts->addItems(LayoutNames(session.LayoutDb)); });
    auto* load = MakeControl<QPushButton>("cmdLoad", QStringLiteral("Load"), this);
    load->setDefault(true);
    load->setEnabled(false);
    auto* cancel = MakeControl<QPushButton>("cmdCancel", QStringLiteral("Cancel"), this);

    connect(m_layouts, &QListWidget::itemSelectionChanged, load,
            [this, load] { load->setEnabled(!ChosenLayout().isEmpty()); });
    connect(m_layouts, &QListWidget::itemDoubleClicked, this, &frmGetLayout::LoadChosen);
    connect(load, &QPushButton::clicked, this, &frmGetLayout::LoadChosen);
    connect(cancel, &QPushButton::clicked, this, &QDialog::close);

    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(load);
    row->addWidget(cancel);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_layouts);
    column->addLayout(row);
    resize(FirstSize);
}

QString frmGetLayout::ChosenLayout() const
{
    const auto chosen = m_layouts->selectedItems();
    return chosen.isEmpty() ? QString() : chosen.constFirst()->text();
}

void frmGetLayout::LoadChosen()
{
    const QString chosen = ChosenLayout();
    if (chosen.isEmpty())
        return;
    RunOrEnd([&] { OpenLayout(m_session, chosen); });
    close();
}

} // namespace vantrel
