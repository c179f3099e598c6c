#pragma once

#include "card/SizeFields.h"
#include <QDialog>

class QLineEdit;

namespace vantrel {

class Session;

/// The exact geometry of the selected object, in steps of one twip. A typed number has no effect
/// until the next step.
class frmSize : public QDialog
{
    Q_OBJECT

public:
    /// Fails with `ObjectNotSet` where no object is selected.
    frmSize(Session& session, QWidget* parent);

protected:
    /// The arrow keys step the field that has the focus.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Step(SizeField field, void (*step)(QString& text));

    Session& m_session;
    std::array<QLineEdit*, SizeFieldCount> m_fields;
};

} // namespace vantrel
