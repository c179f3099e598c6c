#include "layout/frmGetLayout.h"
#include "app/RunTimeError.h"
#include "layout/Navigation.h"
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace vantrel {

namespace {
constexpr QSize FirstSize{320, 300};
}

frmGetLayout::frmGetLayout(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session), m_layouts(new QListWidget(this))
{
    setObjectName(QStringLiteral("frmGetLayout"));
    setWindowTitle(QStringLiteral(" Select a layout"));
    setAttribute(Qt::WA_DeleteOnClose);

    m_layouts->setObjectName(QStringLiteral("lstLayouts"));
    m_layouts->setAccessibleName(QStringLiteral("Layouts"));
    m_layouts->addItems(LayoutNames(session));
    auto* load = new QPushButton(QStringLiteral("Load"), this);
    load->setObjectName(QStringLiteral("cmdLoad"));
    load->setDefault(true);
    load->setEnabled(false);
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
    cancel->setObjectName(QStringLiteral("cmdCancel"));

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

void frmGetLayout::Open(Session& session, QWidget* parent)
{
    auto* picker = parent->findChild<frmGetLayout*>();
    if (picker == nullptr)
        picker = new frmGetLayout(session, parent);
    picker->show();
    picker->raise();
    picker->activateWindow();
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
