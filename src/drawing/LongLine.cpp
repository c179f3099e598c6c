#include "drawing/LongLine.h"
#include "drawing/PairWidths.h"
#include <algorithm>

namespace vantrel {

namespace {

/// The most characters that are shaped at once. For large fonts the limit is lower, because Pango's
/// coordinates overflow at about two million points.
constexpr qsizetype LongestShaped = 4096;
constexpr double WidestShaped = 200'000.0;
constexpr qsizetype LongestBlock = 256;
/// Number of characters on either side that can influence the shape of a letter.
constexpr qsizetype Neighbours = 16;
/// The most characters of one line that are drawn.
constexpr qsizetype MostDrawn = 1 << 18;

double SizeOf(const Font& font)
{
    return std::clamp(font.Size, 0.1, 2160.0);
}

qsizetype MostShaped(const Font& font)
{
    const auto fitting = static_cast<qsizetype>(WidestShaped / SizeOf(font));
    return std::min(LongestShaped, fitting);
}

/// @return the horizontal position in points of the character at index `at` of the shaped text
double PlaceIn(const ShapedLine& line, QStringView text, qsizetype at, bool isRightToLeft)
{
    if (at <= 0)
        return isRightToLeft ? line.Width : 0.0;
    if (at >= text.size())
        return isRightToLeft ? 0.0 : line.Width;
    int x = 0;
    pango_layout_line_index_to_x(pango_layout_get_line_readonly(line.Layout.get(), 0),
                                 static_cast<int>(text.first(at).toUtf8().size()), FALSE, &x);
    return static_cast<double>(x) / PANGO_SCALE;
}

} // namespace

bool LongLine::IsLong(QStringView text, const Font& font)
{
    return text.size() > MostShaped(font);
}

LongLine::LongLine(QStringView text, const Font& font)
    : m_text(text), m_font(font), m_runs(VisualRunsOf(text)),
      m_blockLength(std::min(LongestBlock, MostShaped(font) / 2))
{}

double LongLine::Width()
{
    double width = 0;
    Walk([&width](const Block& block) {
        width = block.X + block.Width;
        return true;
    });
    return width;
}

std::vector<LinePiece> LongLine::PiecesWithin(double from, double to)
{
    // Glyphs may extend beyond their advance width.
    const double margin = 2 * SizeOf(m_font);
    std::vector<LinePiece> pieces;
    qsizetype drawn = 0;
    Block open;
    const auto close = [&] {
        if (open.Begin < open.End)
            pieces.push_back(PieceOf(open));
        drawn += open.End - open.Begin;
        open = {};
    };
    Walk([&](const Block& block) {
        if (block.X > to + margin || drawn > MostDrawn)
            return false;
        const bool showsNothing = block.IsPlain && block.Width == 0;
        if (block.X + block.Width < from - margin || showsNothing)
            return true;
        const bool fits = open.End - open.Begin + m_blockLength <= MostShaped(m_font);
        if (!fits || !open.IsLeftOf(block))
            close();
        open.Take(block);
        return true;
    });
    close();
    return pieces;
}

template <typename Visit>
void LongLine::Walk(Visit visit)
{
    double x = 0;
    for (const VisualRun& run : m_runs) {
        Block block;
        block.Run = &run;
        block.Begin = block.End = run.IsRightToLeft ? run.End : run.Begin;
        for (qsizetype left = run.End - run.Begin; left > 0; left -= block.End - block.Begin) {
            block = BlockBehind(block);
            Measure(block);
            block.X = x;
            if (!visit(static_cast<const Block&>(block)))
                return;
            x += block.Width;
        }
    }
}

LongLine::Block LongLine::BlockBehind(const Block& before) const
{
    const VisualRun& run = *before.Run;
    Block block;
    block.Run = before.Run;
    if (run.IsRightToLeft) {
        block.End = before.Begin;
        block.Begin = std::max(run.Begin, CutBefore(m_text, block.End - m_blockLength));
    } else {
        block.Begin = before.End;
        const qsizetype wanted = block.Begin + m_blockLength;
        const qsizetype cut = wanted < run.End ? CutBefore(m_text, wanted) : run.End;
        block.End = cut > block.Begin ? cut : wanted;
    }
    return block;
}

void LongLine::Measure(Block& block)
{
    const QStringView text = m_text.sliced(block.Begin, block.End - block.Begin);
    block.IsPlain = std::all_of(text.begin(), text.end(), PairWidths::IsPlain);
    block.Width = block.IsPlain ? WidthOfPlain(block) : WidthOfShaped(block);
}

double LongLine::WidthOfPlain(const Block& block)
{
    PairWidths& pairs = TextShaper::Get().Pairs(m_font);
    double width = 0;
    for (qsizetype at = block.Begin; at < block.End; ++at) {
        const bool hasNext = at + 1 < block.Run->End && PairWidths::IsPlain(m_text[at + 1]);
        width +=
            pairs.Advance(m_text[at], hasNext ? m_text[at + 1] : QChar(), block.Run->IsRightToLeft);
    }
    return width;
}

double LongLine::WidthOfShaped(const Block& block) const
{
    const qsizetype from = std::max(block.Run->Begin, CutBefore(m_text, block.Begin - Neighbours));
    const qsizetype behind = std::min(block.Run->End, block.End + Neighbours);
    const qsizetype to = std::max(block.End, CutBefore(m_text, behind));
    const QStringView text = m_text.sliced(from, to - from);
    const bool isRightToLeft = block.Run->IsRightToLeft;
    const auto shaped = TextShaper::Get().Stretch(text, m_font, isRightToLeft);
    const double begin = PlaceIn(*shaped, text, block.Begin - from, isRightToLeft);
    const double end = PlaceIn(*shaped, text, block.End - from, isRightToLeft);
    return std::max(0.0, isRightToLeft ? begin - end : end - begin);
}

/// The last piece of the line is aligned by its own shaped width to the line's end, not by the sum
/// of the widths before it.
LinePiece LongLine::PieceOf(const Block& block) const
{
    LinePiece piece;
    piece.Shaped = TextShaper::Get().Stretch(m_text.sliced(block.Begin, block.End - block.Begin),
                                             m_font, block.Run->IsRightToLeft);
    const VisualRun& run = *block.Run;
    const bool hasLast = run.IsRightToLeft ? block.Begin == run.Begin : block.End == run.End;
    const bool hasFirst = run.IsRightToLeft ? block.End == run.End : block.Begin == run.Begin;
    piece.X = hasLast && !hasFirst ? block.X + block.Width - piece.Shaped->Width : block.X;
    return piece;
}

bool LongLine::Block::IsLeftOf(const Block& next) const
{
    return Run == next.Run && (Run->IsRightToLeft ? next.End == Begin : next.Begin == End);
}

void LongLine::Block::Take(const Block& next)
{
    if (Run == nullptr) {
        *this = next;
        return;
    }
    Begin = std::min(Begin, next.Begin);
    End = std::max(End, next.End);
    Width += next.Width;
}

} // namespace vantrel
