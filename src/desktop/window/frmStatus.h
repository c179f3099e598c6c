#pragma once

#include <QDialog>

class QLabel;

namespace vantrel {

class Session;

/// "Layout Status": shows the printer of the open layout, read twenty times a second. It helps
/// developers of the station; no command opens it.
class frmStatus : public QDialog
{
    Q_OBJECT

public:
    frmStatus(Session& session, QWidget* parent);

private:
    void OnTick();

    Session& m_session;
    QLabel* m_out;
};

} // namespace vantrel
