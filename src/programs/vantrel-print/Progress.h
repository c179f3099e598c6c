#pragma once

#include <QElapsedTimer>
#include <QString>

namespace vantrel::print {

/// How much of a run is done.
struct RunShare
{
    qint64 Rows = 0;
    /// Of the whole run, from 0 to 1; negative if that is not known.
    double Share = -1;
};

/// The line that shows a run's progress, such as
/// "[#########           ]  45 %  4512 rows, 812/s, 0:07 left". It is cut to the given width.
QString ProgressLine(const RunShare& done, double seconds, int columns);

/// A bar with rate and time left on the last line of a terminal's standard error, and the messages
/// above it. Elsewhere messages only.
class Progress
{
public:
    /// @param wanted  false for no bar, also on a terminal
    explicit Progress(bool wanted);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    /// Draws the bar again, at most some times a second.
    void Show(const RunShare& done);
    /// Writes one line, in which no value moves the cursor; the bar stays below it.
    void Tell(const QString& line);

private:
    void Draw();
    void Erase();

    bool m_isShown;
    QElapsedTimer m_begun;
    QElapsedTimer m_drawn;
    RunShare m_done;
    bool m_hasBar = false;
};

} // namespace vantrel::print
