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

/// The card design wizard: six pages, and the layout made of their answers when the last one is
/// left. It has no close box; "Cancel" makes nothing.
class frmWizard : public QDialog
{
    Q_OBJECT

public:
    frmWizard(Session& session, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;
    /// A window manager can close windows without a close box, by a key for example: not this one.
    void closeEvent(QCloseEvent* event) override;

private:
    /// The check boxes of a font's style.
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
