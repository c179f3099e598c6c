#pragma once

#include "base/Font.h"
#include "drawing/TextShaper.h"
#include "drawing/VisualRuns.h"
#include <memory>
#include <vector>

namespace vantrel {

/// A part of a line as it is drawn; `X` is its left edge in points from that of the line.
struct LinePiece
{
    std::shared_ptr<const ShapedLine> Shaped;
    double X = 0;
};

/// A line that is longer than any card: it is measured without being shaped where its letters
/// allow, and only what is in sight is shaped for drawing. Takes time by its length and hardly any
/// memory. Refers to the text it is made of.
class LongLine
{
public:
    /// Whether a line is cut before it is shaped. What is shorter is shaped whole.
    static bool IsLong(QStringView text, const Font& font);

    LongLine(QStringView text, const Font& font);

    /// In points.
    double Width();
    /// @param from,to  what is in sight, in points from the left edge of the line
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

        /// Whether a block stands right of this one, in the same stretch.
        bool IsLeftOf(const Block& next) const;
        void Take(const Block& next);
    };

    Block BlockBehind(const Block& before) const;
    void Measure(Block& block);
    double WidthOfPlain(const Block& block);
    double WidthOfShaped(const Block& block) const;
    LinePiece PieceOf(const Block& block) const;
    /// @param visit  is given the blocks from left to right; returns false where it has seen enough
    template <typename Visit>
    void Walk(Visit visit);

    QStringView m_text;
    const Font& m_font;
    std::vector<VisualRun> m_runs;
    qsizetype m_blockLength;
};

} // namespace vantrel
