#pragma once

#include <QDialog>

class QLineEdit;

namespace vantrel {

class DesktopSample;
class Session;

/// Asks for the prefix and the suffix of the selected data field. With design tools it shows what
/// the last record's value prints as while they are typed.
class frmPreSuffix : public QDialog
{
    Q_OBJECT

public:
    frmPreSuffix(Session& session, QWidget* parent);

private:
    void Save();
    void ShowSample();

    Session& m_session;
    QLineEdit* m_prefix;
    QLineEdit* m_suffix;
    /// Null without design tools.
    DesktopSample* m_sample = nullptr;
};

} // namespace vantrel
