#pragma once

#include <QWidget>

class QLabel;
class QMenu;
class QToolButton;

namespace vantrel {

class Session;
class frmDocument;

/// The part of the status bar that tells about the designer's view: where the pointer is, or place
/// and size of what is selected, and the zoom with a menu to choose another one.
class DesktopViewBar : public QWidget
{
    Q_OBJECT

public:
    DesktopViewBar(Session& session, frmDocument& form, QWidget* parent);

private:
    void FollowView();
    void FillZooms();
    QString PlaceText() const;

    Session& m_session;
    frmDocument& m_form;
    QLabel* m_place;
    QToolButton* m_zoom;
    QMenu* m_zooms;
};

} // namespace vantrel
