#include "drawing/VisualRuns.h"
#include <QByteArray>
#include <QString>
#include <QTextBoundaryFinder>
#include <algorithm>
#include <cstdint>
#include <memory>
#include <pango/pango.h>

namespace vantrel {

namespace {

/// The first code of right-to-left scripts; most texts contain lower codes only.
constexpr char16_t FirstRightToLeft = 0x0590;
/// How far the start of a combined character is searched backwards.
constexpr qsizetype LongestCharacter = 64;

struct GlibDeleter
{
    void operator()(void* memory) const { g_free(memory); }
};

bool MayTurn(char32_t code)
{
    switch (QChar::direction(code)) {
    case QChar::DirR:
    case QChar::DirAL:
    case QChar::DirAN:
    case QChar::DirRLE:
    case QChar::DirRLO:
    case QChar::DirRLI:
        return true;
    default:
        return false;
    }
}

/// @return the code point at `at`, which may be a surrogate pair
char32_t CodeAt(QStringView line, qsizetype at)
{
    const QChar first = line[at];
    const bool isPair =
        first.isHighSurrogate() && at + 1 < line.size() && line[at + 1].isLowSurrogate();
    return isPair ? QChar::surrogateToUcs4(first, line[at + 1]) : char32_t{first.unicode()};
}

bool IsFromLeftToRight(QStringView line)
{
    for (qsizetype at = 0; at < line.size(); ++at) {
        if (line[at].unicode() >= FirstRightToLeft && MayTurn(CodeAt(line, at)))
            return false;
    }
    return true;
}

struct LevelRun
{
    VisualRun Run;
    std::uint8_t Level = 0;
};

std::vector<LevelRun> LevelRunsOf(QStringView line)
{
    const QByteArray utf8 = line.toUtf8();
    PangoDirection base = PANGO_DIRECTION_NEUTRAL;
    const std::unique_ptr<guint8, GlibDeleter> levels(
        pango_log2vis_get_embedding_levels(utf8.constData(), static_cast<int>(utf8.size()), &base));
    std::vector<LevelRun> runs;
    qsizetype code = 0;
    for (qsizetype at = 0; at < line.size(); ++code) {
        const qsizetype next = at + (QChar::requiresSurrogates(CodeAt(line, at)) ? 2 : 1);
        const std::uint8_t level = levels.get()[code];
        if (runs.empty() || runs.back().Level != level)
            runs.push_back({{at, at, level % 2 == 1}, level});
        runs.back().Run.End = next;
        at = next;
    }
    return runs;
}

/// Reverses every sequence of runs at or above each level, from the highest level down.
void PutInVisualOrder(std::vector<LevelRun>& runs)
{
    std::uint8_t deepest = 0;
    for (const LevelRun& run : runs)
        deepest = std::max(deepest, run.Level);
    for (std::uint8_t level = deepest; level > 0; --level) {
        const auto isDeep = [level](const LevelRun& run) { return run.Level >= level; };
        for (auto from = runs.begin(); from != runs.end();) {
            from = std::find_if(from, runs.end(), isDeep);
            const auto to = std::find_if_not(from, runs.end(), isDeep);
            std::reverse(from, to);
            from = to;
        }
    }
}

} // namespace

std::vector<VisualRun> VisualRunsOf(QStringView line)
{
    if (IsFromLeftToRight(line))
        return {{0, line.size(), false}};
    std::vector<LevelRun> levels = LevelRunsOf(line);
    PutInVisualOrder(levels);
    std::vector<VisualRun> runs;
    runs.reserve(levels.size());
    for (const LevelRun& run : levels)
        runs.push_back(run.Run);
    return runs;
}

qsizetype CutBefore(QStringView line, qsizetype at)
{
    if (at <= 0 || at >= line.size())
        return std::clamp<qsizetype>(at, 0, line.size());
    const qsizetype from = std::max<qsizetype>(0, at - LongestCharacter);
    const qsizetype to = std::min<qsizetype>(line.size(), at + LongestCharacter);
    const QStringView around = line.sliced(from, to - from);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, around.data(), around.size());
    finder.setPosition(at - from);
    const bool isCut = finder.isAtBoundary() || finder.toPreviousBoundary() > 0;
    if (isCut)
        return from + finder.position();
    return line[at].isLowSurrogate() && line[at - 1].isHighSurrogate() ? at - 1 : at;
}

} // namespace vantrel
