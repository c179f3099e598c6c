#pragma once

#include "station/commands/LayoutWizard.h"
#include <QDialog>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QStackedWidget;
class QToolButton;

namespace vantrel {

class Session;

class DesktopUpDown;

/// The card design wizard. It has six pages and makes a layout from their answers when the last one
/// is finished. It has no close box; "Cancel" makes no layout.
class frmWizard : public QDialog
{
    Q_OBJECT

public:
    frmWizard(Session& session, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;
    /// Ignores the close of a window manager, which can close windows without a close box, for
    /// example by a key.
    void closeEvent(QCloseEvent* event) override;

private:
    /// The check boxes for the style of a font.
    struct StyleBox
    {
        const char* Name;
        const char* Caption;
        bool Font::*Flag;
    };
    static constexpr StyleBox StyleBoxes[] = {
        {"chkB", "B&old", &Font::Bold},
        {"chkI", "&Italic", &Font::Italic},
        {"chkU", "&Underline", &Font::Underline},
        {"chkS", "&Strikethrough", &Font::Strikethrough},
    };

    QWidget* MakePage(WizardStep step);
    QWidget* MakeNamePage();
    QWidget* MakeFontPage();
    QWidget* MakeOrientationPage();
    QWidget* MakePrinterPage();
    QWidget* MakeFieldsPage();
    QWidget* MakeSummaryPage();
    void MakeButtons();
    QCheckBox* MakeStyleBox(const char* name, const QString& caption, QWidget* page);

    void DrawCards();

    void GoTo(int step);
    void Enter(WizardStep step);
    void CheckConditions();
    void UpdateSample();
    void ChooseOrientation(int orientation, const QString& name);
    void OnEnableFields(bool on);
    void OnAutoAdd(bool on);
    void FillSummary();
    void Finish();

    Session& m_session;
    WizardAnswers m_answers;
    int m_step = 1;

    QLabel* m_prompt;
    QStackedWidget* m_pages;
    QPushButton* m_back = nullptr;
    QPushButton* m_next = nullptr;
    QLineEdit* m_name;
    QComboBox* m_fonts;
    QComboBox* m_sizes;
    QCheckBox* m_styles[std::size(StyleBoxes)];
    QLabel* m_sample;
    QToolButton* m_portrait = nullptr;
    QToolButton* m_landscape = nullptr;
    QLabel* m_orientation;
    QListWidget* m_printers;
    QListWidget* m_kinds;
    QCheckBox* m_enableFields;
    QCheckBox* m_autoAdd;
    QLabel* m_fieldsCaption;
    QLabel* m_fieldCount;
    DesktopUpDown* m_fields;
    QGridLayout* m_summary;
};

} // namespace vantrel
