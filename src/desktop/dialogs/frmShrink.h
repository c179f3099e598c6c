#pragma once

#include <QDialog>

class QCheckBox;
class QDoubleSpinBox;

namespace vantrel {

class CardObject;
class Session;

/// Asks whether the selected text shrinks until it fits its box, and the smallest size for that.
class frmShrink : public QDialog
{
    Q_OBJECT

public:
    frmShrink(Session& session, QWidget* parent);

private:
    void Save();

    Session& m_session;
    /// The object for which the window was opened; looked into only while it is selected.
    const CardObject* m_label;
    QCheckBox* m_shrinks;
    QDoubleSpinBox* m_least;
};

} // namespace vantrel
