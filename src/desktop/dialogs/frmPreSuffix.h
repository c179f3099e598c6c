#pragma once

#include <QDialog>

class QLineEdit;

namespace vantrel {

class Session;

/// Asks for the prefix and the suffix of the selected data field.
class frmPreSuffix : public QDialog
{
    Q_OBJECT

public:
    frmPreSuffix(Session& session, QWidget* parent);

private:
    void Save();

    Session& m_session;
    QLineEdit* m_prefix;
    QLineEdit* m_suffix;
};

} // namespace vantrel
