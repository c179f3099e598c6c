#pragma once

#include "card/Finding.h"
#include <QDialog>
#include <optional>

class QLabel;
class QTimer;
class QTreeWidget;
class QTreeWidgetItem;

namespace vantrel {

class Session;

/// Lists what would not print as it should on the pages of the open layout. It is checked again
/// shortly after each change of the page, and a press on a finding selects its object on the card.
class frmCheck : public QDialog
{
    Q_OBJECT

public:
    frmCheck(Session& session, QWidget* parent);

private:
    QWidget* MakeList();
    QLayout* MakeButtons();
    void CheckSoon();
    void CheckAgain();
    /// @param chosen  the finding that was chosen before, and stays so if it is still there
    void ShowFindings(const std::optional<Finding>& chosen);
    void ShowAdvice();
    void ShowOnCard();
    const Finding* Chosen() const;

    Session& m_session;
    Findings m_findings;
    QLabel* m_summary;
    QTreeWidget* m_list;
    QLabel* m_advice;
    QTimer* m_pause;
};

} // namespace vantrel
