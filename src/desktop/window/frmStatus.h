#pragma once

#include <QDialog>

class QLabel;

namespace vantrel {

class Session;

/// "Layout Status": the printer of the open layout, looked at twenty times a second. An aid for
/// whoever tends the station's code; no command opens it.
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
