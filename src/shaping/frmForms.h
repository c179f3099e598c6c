#pragma once

#include "shaping/DocumentGenerator.h"
#include <QDialog>

class QLabel;
class QListWidget;

namespace vantrel {

/// The document generator: the kept records, and the layouts to print one of them on.
class frmForms : public QDialog
{
    Q_OBJECT

public:
    /// Fails like `LayoutNames`.
    frmForms(Session& session, QWidget* parent);

private:
    QLayout* MakeRecords();
    QLayout* MakeLayouts();
    QLayout* MakeButtons();
    void ShowRecords();
    QStringList MarkedLayouts() const;
    void Print();

    Session& m_session;
    RecordList m_records;
    /// Raw text of the record last clicked.
    QString m_chosen;
    QListWidget* m_objects;
    QLabel* m_viewField;
    QListWidget* m_layouts;
};

} // namespace vantrel
