#pragma once

#include <QStringView>
#include <vector>

namespace vantrel {

/// A stretch of a line whose characters follow each other in one direction.
struct VisualRun
{
    qsizetype Begin = 0;
    qsizetype End = 0;
    bool IsRightToLeft = false;
};

/// @return the stretches of a line as they stand on paper, from left to right
std::vector<VisualRun> VisualRunsOf(QStringView line);

/// @return `at`, or the nearest place before it where a line may be cut: between two characters as
/// a reader sees them. Behind very many marks on one letter it is `at`, but never within a code.
qsizetype CutBefore(QStringView line, qsizetype at);

} // namespace vantrel
