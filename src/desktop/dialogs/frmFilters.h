#pragma once

#include <QDialog>

class QLineEdit;

namespace vantrel {

class DesktopSample;
class Session;

/// Asks which characters are removed from the values of the selected object. With design tools it
/// shows what the last record's value prints as while they are typed.
class frmFilters : public QDialog
{
    Q_OBJECT

public:
    frmFilters(Session& session, QWidget* parent);

private:
    void Save();
    void ShowSample();

    Session& m_session;
    QLineEdit* m_chars;
    /// Null without design tools.
    DesktopSample* m_sample = nullptr;
};

} // namespace vantrel
