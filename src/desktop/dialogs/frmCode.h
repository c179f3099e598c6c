#pragma once

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;

namespace vantrel {

class CardObject;
class Session;

/// Asks which bar code or shape the selected text is to be, and shows it as it would print.
class frmCode : public QDialog
{
    Q_OBJECT

public:
    frmCode(Session& session, QWidget* parent);

private:
    void ShowPreview();
    void Save();

    Session& m_session;
    /// The object for which the window was opened; looked into only while it is selected.
    const CardObject* m_label;
    QListWidget* m_kinds;
    QLabel* m_preview;
    QPushButton* m_save;
};

} // namespace vantrel
