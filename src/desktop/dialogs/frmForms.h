#pragma once

#include "station/compose/DocumentGenerator.h"
#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;

namespace vantrel {

class Session;

class DesktopLayoutList;

/// The document generator: the kept records, and the layouts to print one of them on.
class frmForms : public QDialog
{
    Q_OBJECT

public:
    frmForms(Session& session, QWidget* parent);

private:
    QLayout* MakeRecords();
    QLayout* MakeLayouts();
    QLayout* MakeButtons();
    void ShowRecords();
    void Print();

    Session& m_session;
    RecordList m_records;
    /// Raw text of the record last clicked.
    QString m_chosen;
    QListWidget* m_objects;
    QLabel* m_viewField;
    DesktopLayoutList* m_layouts;
    QPushButton* m_print;
};

} // namespace vantrel
