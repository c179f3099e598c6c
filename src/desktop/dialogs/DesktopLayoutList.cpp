#include "desktop/dialogs/DesktopLayoutList.h"
#include "base/Skip.h"
#include "station/layout/Navigation.h"
#include "station/session/Session.h"

namespace vantrel {

DesktopLayoutList::DesktopLayoutList(Session& session, QWidget* parent) : QListWidget(parent)
{
    QStringList names;
    Skip("layouts", [&] { names = LayoutNames(session.LayoutDb); });
    addItems(names);
    SetMarked({});
}

QStringList DesktopLayoutList::Marked() const
{
    QStringList marked;
    for (int row = 0; row < count(); ++row) {
        if (item(row)->checkState() == Qt::Checked)
            marked.append(item(row)->text());
    }
    return marked;
}

void DesktopLayoutList::SetMarked(const QStringList& layouts)
{
    for (int row = 0; row < count(); ++row) {
        QListWidgetItem* const layout = item(row);
        layout->setCheckState(layouts.contains(layout->text()) ? Qt::Checked : Qt::Unchecked);
    }
}

} // namespace vantrel
