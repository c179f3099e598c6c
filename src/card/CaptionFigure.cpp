#include "card/CaptionFigure.h"
#include "base/Twips.h"
#include "card/CardObject.h"
#include "drawing/CodeLayout.h"
#include "drawing/CodePattern.h"
#include "drawing/PageCanvas.h"
#include <algorithm>
#include <array>
#include <optional>

namespace vantrel {

namespace {

constexpr QLatin1StringView CodePrefix{"Barcode "};
constexpr QLatin1StringView ShapePrefix{"Shape "};

/// Of a notice, in twips.
constexpr double FrameThickness = 15;
constexpr double NoticeMargin = 40;
/// Of a notice, in points.
constexpr double LargestNotice = 10;
constexpr double SmallestNotice = 3;
constexpr double NoticeStep = 0.5;

/// Of the corners of a rounded rectangle, in its shorter side.
constexpr double CornerShare = 0.2;
/// Of a line, in twips: it shows even in a box without height.
constexpr double ThinnestLine = 5;

FilledBox BoxOf(const CardObject& label)
{
    return {.X = static_cast<double>(label.Left),
            .Y = static_cast<double>(label.Top),
            .Width = static_cast<double>(label.Width),
            .Height = static_cast<double>(label.Height)};
}

/// A text in lines that are no wider than a place, if its words allow.
class WrappedNotice
{
public:
    explicit WrappedNotice(const QString& text) : m_words(text.split(QLatin1Char(' ')))
    {
        m_font.Size = LargestNotice;
        m_blank = PageCanvas::TextWidth(QStringLiteral("n n"), m_font) -
                  2 * PageCanvas::TextWidth(QStringLiteral("n"), m_font);
        for (const QString& word : m_words)
            m_widths.push_back(PageCanvas::TextWidth(word, m_font));
    }

    /// Wraps the text in the largest letters that fit, or in the smallest.
    void Fit(const FilledBox& place, CaptionFigure& figure)
    {
        const double width = place.Width - 2 * NoticeMargin;
        const double height = place.Height - 2 * NoticeMargin;
        double size = LargestNotice;
        while (!Wrap(width, height, size) && size > SmallestNotice)
            size -= NoticeStep;
        m_font.Size = size;
        figure.NoticeFont = m_font;
        const double line = LineHeight(size);
        const double total = line * static_cast<double>(m_lines.size());
        double y = place.Y + NoticeMargin + std::max(0.0, (height - total) / 2);
        for (const QString& text : m_lines) {
            figure.Notice.push_back({text, place.X + NoticeMargin, y});
            y += line;
        }
    }

private:
    double LineHeight(double size)
    {
        m_font.Size = size;
        return PageCanvas::TextHeight(QStringLiteral("X"), m_font);
    }

    /// @return whether the lines fit
    bool Wrap(double width, double height, double size)
    {
        const double scale = size / LargestNotice;
        bool fits = true;
        double used = 0;
        m_lines.clear();
        for (qsizetype i = 0; i < m_words.size(); ++i) {
            const double word = m_widths[static_cast<std::size_t>(i)] * scale;
            fits = fits && word <= width;
            if (!m_lines.isEmpty() && used + m_blank * scale + word <= width) {
                m_lines.back() += QLatin1Char(' ') + m_words[i];
                used += m_blank * scale + word;
            } else {
                m_lines.append(m_words[i]);
                used = word;
            }
        }
        return fits && LineHeight(size) * static_cast<double>(m_lines.size()) <= height;
    }

    Font m_font;
    QStringList m_words;
    std::vector<double> m_widths;
    double m_blank = 0;
    QStringList m_lines;
};

std::vector<FilledBox> FrameOf(const FilledBox& box)
{
    const double thick = std::min({FrameThickness, box.Width / 2, box.Height / 2});
    const double inner = box.Height - 2 * thick;
    return {{.X = box.X, .Y = box.Y, .Width = box.Width, .Height = thick},
            {.X = box.X, .Y = box.Y + box.Height - thick, .Width = box.Width, .Height = thick},
            {.X = box.X, .Y = box.Y + thick, .Width = thick, .Height = inner},
            {.X = box.X + box.Width - thick, .Y = box.Y + thick, .Width = thick, .Height = inner}};
}

CaptionFigure NoticeOf(const QString& trouble, const FilledBox& box)
{
    CaptionFigure figure;
    figure.Trouble = trouble;
    figure.Boxes = FrameOf(box);
    WrappedNotice(trouble).Fit(box, figure);
    return figure;
}

CaptionFigure CodeFigure(CodeKind kind, const CardObject& label, int dotsPerInch)
{
    CaptionFigure figure;
    if (label.Caption().isEmpty())
        return figure;
    const FilledBox box = BoxOf(label);
    const double ratio = box.Height > 0 ? box.Width / box.Height : 1;
    const auto pattern = CodePatternOf(kind, label.Caption(), ratio);
    if (!pattern->Trouble.isEmpty())
        return NoticeOf(pattern->Trouble, box);
    CodeLayout layout = LayOutCode(*pattern, box, dotsPerInch);
    if (layout.Module == 0) {
        figure = NoticeOf(RowOf(kind).Name + QStringLiteral(": a larger box is wanted"), box);
        figure.NeedsLargerBox = true;
        return figure;
    }
    figure.Module = layout.Module;
    figure.Boxes = std::move(layout.Boxes);
    return figure;
}

FilledBox Rectangle(FilledBox box)
{
    return box;
}

FilledBox RoundedRectangle(FilledBox box)
{
    box.RadiusX = box.RadiusY = CornerShare * std::min(box.Width, box.Height);
    return box;
}

FilledBox Ellipse(FilledBox box)
{
    box.RadiusX = box.Width / 2;
    box.RadiusY = box.Height / 2;
    return box;
}

/// Along the longer side, as thick as the shorter one.
FilledBox Line(FilledBox box)
{
    double& thickness = box.Width < box.Height ? box.Width : box.Height;
    thickness = std::max(thickness, ThinnestLine);
    return box;
}

struct ShapeRow
{
    QLatin1StringView Name;
    FilledBox (*Make)(FilledBox box);
};

constexpr std::array<ShapeRow, 4> ShapeTable = {{
    {QLatin1StringView{"Rectangle"}, Rectangle},
    {QLatin1StringView{"Rounded Rectangle"}, RoundedRectangle},
    {QLatin1StringView{"Ellipse"}, Ellipse},
    {QLatin1StringView{"Line"}, Line},
}};

/// The code that a font shows, or nothing.
std::optional<CodeKind> CodeOf(const Font& font)
{
    return font.Name.startsWith(CodePrefix)
               ? CodeKindNamed(QStringView(font.Name).sliced(CodePrefix.size()))
               : std::nullopt;
}

/// The shape that a font shows, or null.
const ShapeRow* ShapeOf(const Font& font)
{
    if (!font.Name.startsWith(ShapePrefix))
        return nullptr;
    const QStringView name = QStringView(font.Name).sliced(ShapePrefix.size());
    const auto* const row = std::find_if(ShapeTable.begin(), ShapeTable.end(),
                                         [&](const ShapeRow& one) { return one.Name == name; });
    return row == ShapeTable.end() ? nullptr : row;
}

} // namespace

bool IsFigureFont(const Font& font)
{
    return CodeOf(font) || ShapeOf(font) != nullptr;
}

bool IsCodeFont(const Font& font)
{
    return CodeOf(font).has_value();
}

bool IsShapeFont(const Font& font)
{
    return ShapeOf(font) != nullptr;
}

QStringList FigureFontNames()
{
    QStringList names;
    for (int kind = 0; kind < CodeKindCount; ++kind)
        names.append(CodePrefix + RowOf(static_cast<CodeKind>(kind)).Name);
    for (const ShapeRow& row : ShapeTable)
        names.append(ShapePrefix + row.Name);
    return names;
}

CaptionFigure FigureOf(const CardObject& label, int dotsPerInch)
{
    CaptionFigure figure;
    if (const auto kind = CodeOf(label.Font()))
        figure = CodeFigure(*kind, label, dotsPerInch);
    else if (const ShapeRow* shape = ShapeOf(label.Font()))
        figure.Boxes = {shape->Make(BoxOf(label))};
    return figure;
}

} // namespace vantrel
