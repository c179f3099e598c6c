#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopUpDown.h"
#include "desktop/controls/ScreenUnits.h"
#include "desktop/dialogs/frmPrinters2.h"
#include <QBoxLayout>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <limits>

namespace vantrel {

namespace {

constexpr int MostCopies = std::numeric_limits<std::int16_t>::max();
constexpr const char* OrientationCaptions[] = {"Portrait", "Landscape", "Default"};

QTreeWidget* MakeList(const char* name, const QString& caption, const QStringList& columns)
{
    auto* list = MakeControl<QTreeWidget>(name);
    list->setAccessibleName(caption);
    list->setHeaderLabels(columns);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    return list;
}

/// A list under its caption.
QWidget* Captioned(QTreeWidget* list)
{
    auto* part = new QWidget;
    auto* caption = new QLabel(list->accessibleName());
    caption->setBuddy(list);
    auto* column = new QVBoxLayout(part);
    column->setContentsMargins({});
    column->addWidget(caption);
    column->addWidget(list);
    return part;
}

} // namespace

QWidget* frmPrinters2::MakePrinterPart()
{
    m_printers = MakeList(
        "lvwPrinters", QStringLiteral("Available Printers"),
        {QStringLiteral("Printer Name"), QStringLiteral("Status"), QStringLiteral("Jobs")});
    connect(m_printers, &QTreeWidget::itemClicked, this,
            [this](const QTreeWidgetItem* row) { m_clicked = row->text(0); });
    // Selected by the keyboard, or by a screen reader for an operator.
    connect(m_printers, &QTreeWidget::itemSelectionChanged, this, [this] {
        for (const QTreeWidgetItem* row : m_printers->selectedItems())
            m_clicked = row->text(0);
    });
    m_printers->setColumnWidth(0, ScreenPixels(NameColumnTwips));
    return Captioned(m_printers);
}

QWidget* frmPrinters2::MakeKindPart()
{
    m_kinds = MakeList(
        "lvwTypes", QStringLiteral("Available Printer Types"),
        {QStringLiteral("Name"), QStringLiteral("Color Capable"), QStringLiteral("Dual Sided")});
    m_kinds->setColumnWidth(0, ScreenPixels(NameColumnTwips));
    return Captioned(m_kinds);
}

QWidget* frmPrinters2::MakeOrientationPart()
{
    auto* group = new QGroupBox(QStringLiteral("Printer Orientation"));
    auto* column = new QVBoxLayout(group);
    for (std::size_t i = 0; i < std::size(m_orientations); ++i) {
        const QByteArray name = "optOrientation(" + QByteArray::number(static_cast<int>(i)) + ')';
        m_orientations[i] = MakeControl<QRadioButton>(name.constData(),
                                                      QString::fromLatin1(OrientationCaptions[i]));
        column->addWidget(m_orientations[i]);
    }
    return group;
}

QWidget* frmPrinters2::MakeCopiesPart()
{
    const QString caption = QStringLiteral("Copies");
    auto* group = new QGroupBox(caption);
    m_copies = MakeControl<QLabel>("lblCopies", QStringLiteral("0"));
    m_copies->setFrameShape(QFrame::StyledPanel);
    m_copies->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_copies->setMinimumWidth(m_copies->fontMetrics().horizontalAdvance(QStringLiteral("000000")));
    m_copiesArrows = MakeControl<DesktopUpDown>("udCopies", caption);
    m_copiesArrows->SetRange(0, MostCopies);
    connect(m_copiesArrows, &DesktopUpDown::ValueChanged, m_copies,
            [this](int value) { m_copies->setNum(value); });
    m_forceResize =
        MakeControl<QCheckBox>("chdForceResize", QStringLiteral("Force Document Resize"));

    auto* row = new QHBoxLayout;
    row->addWidget(m_copies);
    row->addWidget(m_copiesArrows);
    row->addStretch();
    auto* column = new QVBoxLayout(group);
    column->addLayout(row);
    column->addStretch();
    column->addWidget(m_forceResize);
    return group;
}

QWidget* frmPrinters2::MakeButtons()
{
    m_save = MakeControl<QPushButton>("cmdSave", QStringLiteral("Save"));
    m_save->setDefault(true);
    // Until the layout's values are shown there is nothing to save.
    m_save->setEnabled(false);
    auto* close = MakeControl<QPushButton>("cmdCancel", QStringLiteral("Close"));
    auto* refresh = MakeControl<QPushButton>("cmdRefresh", QStringLiteral("&Refresh"));
    m_configure = MakeControl<QPushButton>("cmdConfig", QStringLiteral("&Configure"));
    auto* preferences = MakeControl<QPushButton>("Command1", QStringLiteral("&Preferences"));
    connect(m_save, &QPushButton::clicked, this, &frmPrinters2::Save);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    connect(refresh, &QPushButton::clicked, this, [this] { BuildPrinters(); });
    connect(m_configure, &QPushButton::clicked, this, &frmPrinters2::Configure);

    auto* part = new QWidget;
    auto* column = new QVBoxLayout(part);
    column->setContentsMargins({});
    column->addWidget(m_save);
    column->addWidget(close);
    column->addStretch();
    column->addWidget(refresh);
    column->addWidget(m_configure);
    column->addWidget(preferences);
    return part;
}

} // namespace vantrel
