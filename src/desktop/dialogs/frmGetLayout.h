#pragma once

#include <QDialog>

class QListWidget;

namespace vantrel {

class Session;

/// The picker of layouts. It is open without blocking the station.
class frmGetLayout : public QDialog
{
    Q_OBJECT

public:
    /// Fails like `LayoutNames`.
    frmGetLayout(Session& session, QWidget* parent);

private:
    QString ChosenLayout() const;
    void LoadChosen();

    Session& m_session;
    QListWidget* m_layouts;
};

} // namespace vantrel
