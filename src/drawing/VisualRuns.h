#pragma once

#include <QStringView>
#include <vector>

namespace vantrel {

/// A part of a line whose characters have one direction; `End` is one past its last character.
struct VisualRun
{
    qsizetype Begin = 0;
    qsizetype End = 0;
    bool IsRightToLeft = false;
};

/// @return the runs of a line in visual order, from left to right
std::vector<VisualRun> VisualRunsOf(QStringView line);

/// @return the nearest index at or before `at` where a line may be split without separating a
/// letter from its combining marks. After very many marks on one letter it is `at` itself, but
/// never inside a surrogate pair.
qsizetype CutBefore(QStringView line, qsizetype at);

} // namespace vantrel
