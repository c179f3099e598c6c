#pragma once

#include "card/CardObject.h"
#include <QAccessibleWidget>
#include <QRect>
#include <map>
#include <utility>
#include <vector>

namespace vantrel {

class frmDocument;

/// An object of the card by its family and index.
using ObjectKey = std::pair<Family, int>;

/// The card as screen readers see it. Its children are the visible objects, each named by its
/// caption or its kind, at its place on the screen, and behind them the field in which a text is
/// edited. An object keeps its identity while records come
/// and the page is loaded again.
class CardAccess : public QAccessibleWidget
{
public:
    CardAccess(frmDocument* form, QAccessible::Role role);
    ~CardAccess() override;
    CardAccess(const CardAccess&) = delete;
    CardAccess& operator=(const CardAccess&) = delete;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;

    /// Reports to screen readers which objects have appeared, disappeared or changed their text
    /// since the last report.
    /// @param tellsDesign  also which have moved on the screen, which are selected, and which one
    /// the keyboard acts on
    void Follow(bool tellsDesign = false);

private:
    struct Told
    {
        QAccessible::Id Id = 0;
        QString Name;
        bool Announced = false;
        /// On the screen.
        QRect Box;
        bool Selected = false;
        bool Focused = false;
    };

    void List() const;
    QAccessibleInterface* Tell(const ObjectKey& key) const;
    void TellDesign(const ObjectKey& key, QAccessibleInterface& object, Told& told) const;

    frmDocument& m_form;
    /// The objects in their order, as they were when they were last counted.
    mutable std::vector<ObjectKey> m_listed;
    mutable std::map<ObjectKey, int> m_places;
    mutable std::map<ObjectKey, Told> m_told;
};

} // namespace vantrel
