#pragma once

#include <QObject>

namespace vantrel {

class Session;

/// Notes what the operator does to the page in any window of the station: dialogs change the page
/// when their buttons are pressed. What was done between a press and what follows it is one step
/// that can be taken back.
class DesignWatch : public QObject
{
    Q_OBJECT

public:
    /// @param owner  the main window
    DesignWatch(Session& session, QObject& owner);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void NoteSoon();

    Session& m_session;
    bool m_asked = false;
};

} // namespace vantrel
