#pragma once

#include "station/session/Operator.h"
#include <QDialog>

namespace vantrel {

/// The application's message box: modal over the main window, centred on it, and without a close
/// command, so that only its buttons answer.
class frmMessage : public QDialog
{
    Q_OBJECT

public:
    frmMessage(const QString& text, const QString& title, AppMessageButtons buttons,
               QWidget* parent);

    /// Escape answers No where there is a No, and nothing where there is none.
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    bool m_hasNo;
};

} // namespace vantrel
