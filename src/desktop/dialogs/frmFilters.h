#pragma once

#include <QDialog>

class QLineEdit;

namespace vantrel {

class Session;

/// Asks which characters are removed from the values of the selected object.
class frmFilters : public QDialog
{
    Q_OBJECT

public:
    frmFilters(Session& session, QWidget* parent);

private:
    void Save();

    Session& m_session;
    QLineEdit* m_chars;
};

} // namespace vantrel
