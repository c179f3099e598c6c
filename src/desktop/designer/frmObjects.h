#pragma once

#include <QDialog>

class QLabel;
class QTableView;

namespace vantrel {

class ObjectsModel;
class Session;

/// The objects of the page in a list, the topmost first. What is chosen in it is selected on the
/// card, and the other way round. It stays open beside the card and follows it; the menu's keys
/// work in it too.
class frmObjects : public QDialog
{
    Q_OBJECT

public:
    frmObjects(Session& session, QWidget* parent);

protected:
    /// Keys in the list: Delete deletes what is chosen, as the menu does; Home and End go to the
    /// first and last row, and an arrow key to one of them where none is chosen.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeList();
    void FollowSoon();
    void Follow();
    /// Chooses the rows of the objects that are selected on the card.
    void ChooseSelected();
    /// Selects the objects of the chosen rows on the card.
    void SelectChosen();
    void Delete();

    Session& m_session;
    ObjectsModel* m_model;
    QTableView* m_list;
    QLabel* m_told;
    bool m_followAsked = false;
    /// The list is being made to show the card's selection.
    bool m_isFollowing = false;
};

} // namespace vantrel
