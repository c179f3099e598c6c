#pragma once

#include "base/Font.h"
#include "drawing/TextShaper.h"
#include "drawing/VisualRuns.h"
#include <memory>
#include <vector>

namespace vantrel {

/// A part of a line to draw; `X` is its left edge in points from the line's left edge.
struct LinePiece
{
    std::shared_ptr<const ShapedLine> Shaped;
    double X = 0;
};

/// A line that is longer than any card. Where its characters allow, it is measured by pair widths
/// instead of being shaped, and only the visible part is shaped for drawing. Time is linear in its
/// length; memory is small. It refers to the text and the font it was made from, which must outlive
/// it.
class LongLine
{
public:
    /// Whether a line must be split before it is shaped. Shorter lines are shaped as a whole.
    static bool IsLong(QStringView text, const Font& font);

    LongLine(QStringView text, const Font& font);

    /// Width of the whole line in points.
    double Width();
    /// @return the pieces that cover the visible range
    /// @param from,to  the visible range, in points from the left edge of the line
    std::vector<LinePiece> PiecesWithin(double from, double to);

private:
    struct Block
    {
        qsizetype Begin = 0;
        qsizetype End = 0;
        const VisualRun* Run = nullptr;
        bool IsPlain = false;
        double X = 0;
        double Width = 0;

        /// Whether `next` is the right neighbour of this block in the same run.
        bool IsLeftOf(const Block& next) const;
        void Take(const Block& next);
    };

    Block BlockBehind(const Block& before) const;
    void Measure(Block& block);
    double WidthOfPlain(const Block& block);
    double WidthOfShaped(const Block& block) const;
    LinePiece PieceOf(const Block& block) const;
    /// @param visit  receives the blocks from left to right and returns false to stop
    template <typename Visit>
    void Walk(Visit visit);

    QStringView m_text;
    const Font& m_font;
    std::vector<VisualRun> m_runs;
    qsizetype m_blockLength;
};

} // namespace vantrel
