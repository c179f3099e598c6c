#include "card/FreePlace.h"
#include "card/CardDocument.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <set>

namespace vantrel {

namespace {

/// The card is looked at in cells, so the time does not grow with the square of the objects. A cell
/// of a bank card is about a point wide.
constexpr int Cells = 256;
/// What covers this part of the card is its background.
constexpr double BackgroundPart = 0.75;
/// What is kept free around a new object where there is room, in twips.
constexpr double Margin = 60;

/// Cells from `Left` to before `Right`, and from `Top` to before `Bottom`.
struct CellBox
{
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;

    int Width() const { return Right - Left; }
    int Height() const { return Bottom - Top; }
};

/// How many objects cover each cell, summed up from the upper left corner.
class Cover
{
public:
    Cover() : m_sums(std::size_t{Cells + 1} * (Cells + 1), 0) {}

    void Add(const CellBox& box)
    {
        ++At(box.Left, box.Top);
        --At(box.Right, box.Top);
        --At(box.Left, box.Bottom);
        ++At(box.Right, box.Bottom);
    }
    /// Makes of the corners that were added the number of objects on each cell, then their sums.
    void Sum()
    {
        Accumulate();
        Shift();
        Accumulate();
    }
    /// Sum of the objects on the cells of a box.
    qint64 In(const CellBox& box) const
    {
        return Sums(box.Right, box.Bottom) - Sums(box.Left, box.Bottom) - Sums(box.Right, box.Top) +
               Sums(box.Left, box.Top);
    }

private:
    qint64& At(int x, int y)
    {
        return m_sums[static_cast<std::size_t>(y) * (Cells + 1) + static_cast<std::size_t>(x)];
    }
    qint64 Sums(int x, int y) const
    {
        return m_sums[static_cast<std::size_t>(y) * (Cells + 1) + static_cast<std::size_t>(x)];
    }
    void Accumulate()
    {
        for (int y = 0; y <= Cells; ++y) {
            for (int x = 1; x <= Cells; ++x)
                At(x, y) += At(x - 1, y);
        }
        for (int y = 1; y <= Cells; ++y) {
            for (int x = 0; x <= Cells; ++x)
                At(x, y) += At(x, y - 1);
        }
    }
    /// Sums begin with a row and a column of nothing.
    void Shift()
    {
        for (int y = Cells; y >= 0; --y) {
            for (int x = Cells; x >= 0; --x)
                At(x, y) = x == 0 || y == 0 ? 0 : At(x - 1, y - 1);
        }
    }

    std::vector<qint64> m_sums;
};

int CellOf(double length, double whole, double (*toCell)(double))
{
    return static_cast<int>(std::clamp(toCell(length / whole * Cells), 0.0, double{Cells}));
}

double Down(double value)
{
    // A side that lies on the border of two cells covers one of them only.
    constexpr double border = 1e-6;
    return std::floor(value + border);
}

double Up(double value)
{
    return -Down(-value);
}

/// The cells that a box touches.
CellBox CellsOf(const QRectF& box, const QSizeF& card)
{
    return {CellOf(box.left(), card.width(), Down), CellOf(box.top(), card.height(), Down),
            CellOf(box.right(), card.width(), Up), CellOf(box.bottom(), card.height(), Up)};
}

Cover CoverOf(const QSizeF& card, const std::vector<QRectF>& taken)
{
    Cover cover;
    const QRectF whole(QPointF(0, 0), card);
    for (const QRectF& box : taken) {
        const QRectF inside = box & whole;
        if (inside.isEmpty() ||
            inside.width() * inside.height() > BackgroundPart * card.width() * card.height())
            continue;
        cover.Add(CellsOf(inside, card));
    }
    cover.Sum();
    return cover;
}

bool IsLarger(const CellBox& box, const CellBox& best)
{
    const int area = box.Width() * box.Height();
    const int bestArea = best.Width() * best.Height();
    if (area != bestArea)
        return area > bestArea;
    return box.Top != best.Top ? box.Top < best.Top : box.Left < best.Left;
}

/// The largest free rectangle of at least that size, in cells: row by row the columns of free cells
/// above it are widened as far as they are high enough.
std::optional<CellBox> LargestFree(const Cover& cover, int leastWidth, int leastHeight)
{
    struct Column
    {
        int Left;
        int Height;
    };
    std::optional<CellBox> best;
    std::array<int, Cells> heights{};
    for (int y = 0; y < Cells; ++y) {
        std::vector<Column> open;
        for (int x = 0; x <= Cells; ++x) {
            int height = 0;
            if (x < Cells) {
                int& column = heights.at(static_cast<std::size_t>(x));
                column = cover.In({x, y, x + 1, y + 1}) == 0 ? column + 1 : 0;
                height = column;
            }
            int left = x;
            for (; !open.empty() && open.back().Height >= height; open.pop_back()) {
                left = open.back().Left;
                const CellBox box{left, y + 1 - open.back().Height, x, y + 1};
                if (box.Width() >= leastWidth && box.Height() >= leastHeight && box.Height() > 0 &&
                    (!best || IsLarger(box, *best)))
                    best = box;
            }
            open.push_back({left, height});
        }
    }
    return best;
}

QPointF MiddleOf(const CellBox& box, const QSizeF& card, const QSizeF& object)
{
    const double across = (box.Left + box.Right) * card.width() / Cells;
    const double down = (box.Top + box.Bottom) * card.height() / Cells;
    return {(across - object.width()) / 2, (down - object.height()) / 2};
}

/// The place where the object covers the least.
QPointF LeastCovered(const Cover& cover, const QSizeF& card, const QSizeF& object)
{
    const int width = std::min(CellOf(object.width(), card.width(), Up), Cells);
    const int height = std::min(CellOf(object.height(), card.height(), Up), Cells);
    QPointF best;
    qint64 least = std::numeric_limits<qint64>::max();
    int nearest = 0;
    for (int top = 0; top <= Cells - height; ++top) {
        for (int left = 0; left <= Cells - width; ++left) {
            const CellBox box{left, top, left + width, top + height};
            const qint64 covered = cover.In(box);
            const int away =
                std::abs(box.Left + box.Right - Cells) + std::abs(box.Top + box.Bottom - Cells);
            if (covered > least || (covered == least && away >= nearest))
                continue;
            least = covered;
            nearest = away;
            best = MiddleOf(box, card, object);
        }
    }
    return best;
}

double OnCard(double place, double object, double card)
{
    return std::max(0.0, std::min(std::round(place), card - object));
}

} // namespace

QPointF FreePlace(const QSizeF& card, const std::vector<QRectF>& taken, const QSizeF& object)
{
    if (card.isEmpty())
        return {0, 0};
    const Cover cover = CoverOf(card, taken);
    std::optional<QPointF> place;
    for (const double margin : {2 * Margin, 0.0}) {
        const double width = object.width() + margin;
        const double height = object.height() + margin;
        if (place || width > card.width() || height > card.height())
            continue;
        if (const auto free = LargestFree(cover, CellOf(width, card.width(), Up),
                                          CellOf(height, card.height(), Up)))
            place = MiddleOf(*free, card, object);
    }
    const QPointF found = place ? *place : LeastCovered(cover, card, object);
    return {OnCard(found.x(), object.width(), card.width()),
            OnCard(found.y(), object.height(), card.height())};
}

void MoveToFreePlace(const CardDocument& document, CardObject& object)
{
    std::vector<QRectF> taken;
    for (const auto& other : document.Objects()) {
        if (other.get() != &object && other->IsContent() && other->Visible)
            taken.emplace_back(other->Left, other->Top, other->Width, other->Height);
    }
    const QSizeF card(static_cast<double>(document.Width), static_cast<double>(document.Height));
    const QSizeF size(static_cast<double>(object.Width), static_cast<double>(object.Height));
    const QPointF place = FreePlace(card, taken, size);
    object.Left = static_cast<float>(place.x());
    object.Top = static_cast<float>(place.y());
}

std::int16_t NextFreeField(const CardDocument& document)
{
    std::set<int> used;
    for (int index = 1; index <= document.HighestIndex(Family::lbl_DATA); ++index) {
        if (const CardObject* field = document.Find(Family::lbl_DATA, index))
            used.insert(field->DataField.toInt());
    }
    std::int16_t number = 1;
    while (used.contains(number) && number < std::numeric_limits<std::int16_t>::max())
        ++number;
    return number;
}

} // namespace vantrel
