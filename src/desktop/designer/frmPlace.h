#pragma once

#include "card/ObjectPlace.h"
#include <QDialog>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;

namespace vantrel {

class Session;

/// The exact places and sizes of the selected objects, typed in the unit of the operator's choice.
/// A typed length is taken with Enter or when its field is left. The window stays open and follows
/// the selection.
class frmPlace : public QDialog
{
    Q_OBJECT

public:
    frmPlace(Session& session, QWidget* parent);
    ~frmPlace() override;
    frmPlace(const frmPlace&) = delete;
    frmPlace& operator=(const frmPlace&) = delete;

protected:
    /// The arrow keys step the field that has the focus.
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// Leaves the window without taking what was typed last.
    void reject() override;

private:
    QWidget* MakeFields();
    void MakeUnits();
    void FollowSoon();
    void Follow();
    void Show(PlaceSide side);
    void Take(PlaceSide side);
    void Step(PlaceSide side, int steps);
    void ChooseUnit(int unit);

    Session& m_session;
    std::array<QLineEdit*, PlaceSideCount> m_fields{};
    QLabel* m_object;
    QLabel* m_told;
    QComboBox* m_units;
    /// The objects whose lengths the fields show; not looked into.
    std::vector<CardObject*> m_shown;
    bool m_followAsked = false;
};

} // namespace vantrel
