#include "Progress.h"
#include "base/HarmlessText.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <sys/ioctl.h>
#include <unistd.h>

namespace vantrel::print {

namespace {

constexpr int DrawMilliseconds = 100;
constexpr int BarCells = 20;
constexpr int UsualColumns = 80;

QString TimeText(double seconds)
{
    constexpr qint64 minute = 60;
    constexpr qint64 most = 1000 * minute * minute;
    const auto whole = std::min<qint64>(std::llround(std::min(seconds, 1e12)), most);
    const QChar zero(u'0');
    const qint64 hours = whole / (minute * minute);
    const QString minutes = QString::number(whole / minute % minute);
    const QString rest = QStringLiteral("%1").arg(whole % minute, 2, 10, zero);
    if (hours == 0)
        return minutes + u':' + rest;
    return QStringLiteral("%1:%2:%3").arg(hours).arg(minutes, 2, zero).arg(rest);
}

QString Bar(double share)
{
    const int filled = static_cast<int>(share * BarCells);
    return u'[' + QString(filled, u'#') + QString(BarCells - filled, u' ') + u']' +
           QStringLiteral(" %1 %  ").arg(static_cast<int>(share * 100), 3);
}

int TerminalColumns()
{
    winsize size{};
    const bool known = ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? size.ws_col : UsualColumns;
}

} // namespace

QString ProgressLine(const RunShare& done, double seconds, int columns)
{
    QString line;
    const double share = std::min(done.Share, 1.0);
    if (share >= 0)
        line += Bar(share);
    line += QStringLiteral("%1 rows").arg(done.Rows);
    if (seconds > 0)
        line += QStringLiteral(", %1/s").arg(static_cast<double>(done.Rows) / seconds, 0, 'f', 0);
    if (share > 0)
        line += QStringLiteral(", %1 left").arg(TimeText(seconds / share - seconds));
    return line.left(columns);
}

Progress::Progress(bool wanted) : m_isShown(wanted && ::isatty(STDERR_FILENO) != 0)
{
    m_begun.start();
}

Progress::~Progress()
{
    Erase();
}

void Progress::Show(const RunShare& done)
{
    m_done = done;
    if (m_isShown && (!m_drawn.isValid() || m_drawn.elapsed() >= DrawMilliseconds))
        Draw();
}

void Progress::Draw()
{
    // The last column stays free, so that no terminal begins a new line.
    const QString line =
        ProgressLine(m_done, static_cast<double>(m_begun.elapsed()) / 1000, TerminalColumns() - 1);
    std::fprintf(stderr, "\r\033[K%s", qPrintable(line));
    m_hasBar = true;
    m_drawn.start();
}

void Progress::Erase()
{
    if (std::exchange(m_hasBar, false))
        std::fputs("\r\033[K", stderr);
}

void Progress::Tell(const QString& line)
{
    const bool hadBar = m_hasBar;
    Erase();
    std::fprintf(stderr, "%s\n", qPrintable(HarmlessText(line)));
    if (hadBar)
        Draw();
}

} // namespace vantrel::print
