#pragma once

#include <QFrame>

namespace vantrel {

class Session;

/// The small page navigator on the workspace. It keeps its place at the right of the main window
/// and stays in front of the document.
class frmNav : public QFrame
{
    Q_OBJECT

public:
    frmNav(Session& session, QWidget* parent);

    /// Moves to its place in a main window of that width in pixels, and to the front.
    void KeepPlace(int mainWidth);
    /// The page and save buttons work with an open layout only.
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
