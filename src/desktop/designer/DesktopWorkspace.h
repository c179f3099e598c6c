#pragma once

#include <QMdiArea>

class QLabel;

namespace vantrel {

class DesktopRuler;
class Session;
class frmDocument;

/// The workspace on which the card lies. At a station with design tools it has rulers above and at
/// the left while a card is shown.
class DesktopWorkspace : public QMdiArea
{
    Q_OBJECT

public:
    explicit DesktopWorkspace(QWidget* parent);

    /// Gives the workspace rulers for that card.
    void AddRulers(Session& session, frmDocument& form);

Q_SIGNALS:
    /// The rulers have come or gone, and with them the place of what lies beside them.
    void RulersChanged();

protected:
    bool viewportEvent(QEvent* event) override;

private:
    void FollowView();
    void ShowRulers(bool show);
    void PlaceRulers();

    Session* m_session = nullptr;
    frmDocument* m_form = nullptr;
    DesktopRuler* m_across = nullptr;
    DesktopRuler* m_down = nullptr;
    QLabel* m_unit = nullptr;
};

} // namespace vantrel
