#pragma once

#include <QDialog>

class QCheckBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace vantrel {

class DesktopUpDown;
class Session;
struct PrinterChoice;
struct PrinterKindRow;
struct PrinterListRow;

/// Printer, kind of printer, orientation and copies of the open layout. It is open without blocking
/// the station and has no close box.
class frmPrinters2 : public QDialog
{
    Q_OBJECT

public:
    frmPrinters2(Session& session, QWidget* parent);

    /// Builds both lists and shows the layout's values, the first time only. Events run meanwhile,
    /// so the dialog may be gone afterwards.
    void Fill();

protected:
    void changeEvent(QEvent* event) override;
    /// Ignores the close of a window manager, which can close windows without a close box, for
    /// example by a key.
    void closeEvent(QCloseEvent* event) override;

private:
    static constexpr double NameColumnTwips = 3160;

    QWidget* MakePrinterPart();
    QWidget* MakeKindPart();
    QWidget* MakeOrientationPart();
    QWidget* MakeCopiesPart();
    QWidget* MakeButtons();
    void StartTimers();

    /// These let events run. @return whether the dialog is still there
    bool BuildKinds();
    bool BuildPrinters();
    void AddKind(const PrinterKindRow& row);
    void AddPrinter(const PrinterListRow& row);

    void ShowSavedValues();
    /// Enables the button for the kind "serialized", the only one that can be configured.
    void CheckConfigurable();
    void Configure();
    PrinterChoice Choice() const;
    void Save();

    Session& m_session;
    QTreeWidget* m_printers = nullptr;
    QTreeWidget* m_kinds = nullptr;
    QRadioButton* m_orientations[3] = {};
    QLabel* m_copies = nullptr;
    DesktopUpDown* m_copiesArrows = nullptr;
    QCheckBox* m_forceResize = nullptr;
    QPushButton* m_configure = nullptr;
    QPushButton* m_save = nullptr;
    /// The printer chosen last by mouse or key; a refresh keeps it selected.
    QString m_clicked;
    /// Number of the present build: one that begins while another lets events run replaces it.
    int m_builds = 0;
    bool m_filled = false;
};

/// Opens the printer selection over the main window, with the hourglass until it is shown.
void OpenPrinterSelection(Session& session, QWidget* parent);

} // namespace vantrel
