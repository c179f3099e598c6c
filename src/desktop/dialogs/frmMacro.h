#pragma once

#include "station/macro/MacroChoice.h"
#include <QDialog>

class QPushButton;
class QTreeWidget;

namespace vantrel {

class Session;

class DesktopLayoutList;

/// Sets the layouts of a macro and the macro that records run. With the design tools macros are
/// also made, renamed and removed here. It is open without blocking the station.
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
    /// The buttons that make, rename and remove macros.
    QLayout* MakeTools();
    void FillMacros();
    void SelectActive();
    void Select(const QString& name);
    /// Lists the macros again and selects one, unless the name is empty.
    void ShowAgain(const QString& name);
    /// The row that turns macros off where none is selected.
    MacroRow SelectedMacro() const;
    void ShowMarks();

    Session& m_session;
    DesktopLayoutList* m_layouts;
    QTreeWidget* m_macros;
    QPushButton* m_rename = nullptr;
    QPushButton* m_remove = nullptr;
    bool m_wasShown = false;
};

} // namespace vantrel
