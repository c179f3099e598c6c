#pragma once

#include <QAbstractItemView>
#include <QHeaderView>
#include <QListWidget>

namespace vantrel {

/// The height that lists give to their rows.
inline int RowHeightOfLists(QWidget& window)
{
    QListWidget list(&window);
    list.addItem(QStringLiteral("0"));
    return list.sizeHintForRow(0);
}

/// Makes a table look like the station's lists: whole rows are chosen and nothing is edited.
/// @param table  a `QTableView` or `QTableWidget`
template <typename Table>
void PrepareTable(Table& table, QWidget& window)
{
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    table.setSelectionMode(QAbstractItemView::SingleSelection);
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table.setShowGrid(false);
    table.setWordWrap(false);
    table.setTabKeyNavigation(false);
    table.setCornerButtonEnabled(false);
    table.verticalHeader()->hide();
    const int height = RowHeightOfLists(window);
    table.verticalHeader()->setMinimumSectionSize(height);
    table.verticalHeader()->setDefaultSectionSize(height);
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.horizontalHeader()->setHighlightSections(false);
    table.horizontalHeader()->setStretchLastSection(true);
    table.horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

} // namespace vantrel
