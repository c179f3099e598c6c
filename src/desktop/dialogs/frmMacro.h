#pragma once

#include "station/macro/MacroChoice.h"
#include <QDialog>

class QTreeWidget;

namespace vantrel {

class Session;

class DesktopLayoutList;

/// Sets the layouts of a macro and the macro that records run. It is open without blocking the
/// station.
class frmMacro : public QDialog
{
    Q_OBJECT

public:
    frmMacro(Session& session, QWidget* parent);

protected:
    /// Selects the active macro whenever the dialog becomes active.
    bool event(QEvent* event) override;

private:
    void MakeControls();
    void FillMacros();
    void SelectActive();
    /// The row that turns macros off where none is selected.
    MacroRow SelectedMacro() const;
    void ShowMarks();

    Session& m_session;
    DesktopLayoutList* m_layouts;
    QTreeWidget* m_macros;
};

} // namespace vantrel
