#pragma once

#include <QFrame>

namespace vantrel {

class Session;

/// The small page navigator on the workspace. It stays at the right of the main window and in front
/// of the document.
class frmNav : public QFrame
{
    Q_OBJECT

public:
    frmNav(Session& session, QWidget* parent);

    /// Moves to its place in a main window, and to the front.
    /// @param mainWidth  in pixels
    /// @param top  of the part of the workspace that shows the card, in pixels
    void KeepPlace(int mainWidth, int top);
    /// Enables the page and save buttons only while a layout is open.
    void SetLayoutCommandsEnabled(bool enabled);

    /// Follows a colour chosen for the workspace.
    void TakeColor(const QColor& color);

protected:
    void enterEvent(QEnterEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void DrawIcons();

    Session& m_session;
};

} // namespace vantrel
