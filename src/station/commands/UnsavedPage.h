#pragma once

#include <QByteArray>
#include <QString>

namespace vantrel {

class Session;

/// Keeps the page on the surface in a file of the program folder while it has changes that are not
/// saved, for a station with design tools. So a station that is ended from outside, where nobody
/// can be asked, or that is killed, offers them at its next start. Each session has a file of its
/// own. None of this fails; a file that cannot be written is told in the log.
class UnsavedPage
{
public:
    explicit UnsavedPage(Session& session);

    /// Writes the file if the page has changed since the last call and is not saved, and removes it
    /// once there is nothing unsaved. To be called from time to time, and when the station ends.
    void Keep();
    /// Removes the file, since the operator has given the changes up. What an earlier run has left
    /// and nobody was asked about stays.
    void GiveUp();
    /// Asks the operator, once in a run, whether to take up what an earlier run has left, if it has
    /// left anything. Yes opens the page as it was left, as one step of the designer behind the
    /// stored page; No gives it up; otherwise it is asked again at the next start.
    void Offer();

    QString Path() const;

private:
    void Remove();

    Session& m_session;
    /// Whether the file is from an earlier run and not yet taken up or given up.
    bool m_isLeft = false;
    bool m_isAsked = false;
    /// What is in the file.
    QByteArray m_kept;
};

} // namespace vantrel
