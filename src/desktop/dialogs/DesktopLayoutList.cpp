#include "desktop/dialogs/DesktopLayoutList.h"
#include "base/Skip.h"
#include "desktop/controls/DesktopControls.h"
#include "station/layout/Navigation.h"
#include "station/session/Session.h"

namespace vantrel {

namespace {

/// The name of a layout that is not in the store.
constexpr int GoneRole = Qt::UserRole;

bool IsGone(const QListWidgetItem& layout)
{
    return layout.data(GoneRole).isValid();
}

} // namespace

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
        const QListWidgetItem& layout = *item(row);
        if (layout.checkState() == Qt::Checked)
            marked.append(IsGone(layout) ? layout.data(GoneRole).toString() : layout.text());
    }
    return marked;
}

void DesktopLayoutList::RemoveGone()
{
    for (int row = count() - 1; row >= 0; --row) {
        if (IsGone(*item(row)))
            delete takeItem(row);
    }
}

void DesktopLayoutList::AddGone(const QString& layout)
{
    auto* gone = new QListWidgetItem(ShownLine(layout) + QStringLiteral(" (gone)"), this);
    gone->setData(GoneRole, layout);
    gone->setCheckState(Qt::Checked);
    QFont slanted = font();
    slanted.setItalic(true);
    gone->setFont(slanted);
    gone->setToolTip(
        QStringLiteral("There is no such layout any more. Without its mark it is taken out."));
}

void DesktopLayoutList::SetMarked(const QStringList& layouts)
{
    RemoveGone();
    QStringList gone = layouts;
    for (int row = 0; row < count(); ++row) {
        QListWidgetItem* const layout = item(row);
        const bool isMarked = layouts.contains(layout->text());
        layout->setCheckState(isMarked ? Qt::Checked : Qt::Unchecked);
        if (isMarked)
            gone.removeAll(layout->text());
    }
    gone.removeDuplicates();
    gone.removeAll(QString());
    if (!m_showsGone)
        return;
    for (const QString& layout : std::as_const(gone))
        AddGone(layout);
}

} // namespace vantrel
