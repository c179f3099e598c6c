#include "drawing/pdf/PdfContent.h"
#include "drawing/PictureData.h"
#include "drawing/TextShaper.h"
#include "drawing/pdf/PdfSyntax.h"
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

/// In thousandths of the font size: smaller deviations of a glyph's position are not corrected,
/// since no printer can show them.
constexpr double LeastMove = 0.5;

/// @return the position of `wanted` in `all`, counted from 1; appends it if it is missing
template <typename T>
std::size_t NumberIn(std::vector<T>& all, const T& wanted)
{
    const auto found = std::find(all.begin(), all.end(), wanted);
    const auto number = static_cast<std::size_t>(found - all.begin()) + 1;
    if (found == all.end())
        all.push_back(wanted);
    return number;
}

/// Writes one run. Glyphs follow each other by their advance widths; only deviations are written.
class RunSpeller
{
public:
    RunSpeller(QByteArray& out, const PdfFace& face, const GlyphRun& run, double x, double baseline)
        : m_out(out), m_face(face), m_run(run), m_x(x), m_baseline(baseline)
    {}

    void Spell(const GlyphCluster& cluster)
    {
        const auto glyphs = m_run.GlyphsIn(cluster);
        const QStringView text = m_run.TextIn(cluster);
        const bool isOneToOne = glyphs.size() == 1 && m_face.TextOf(glyphs.front().Id) == text;
        if (!isOneToOne) {
            Close();
            m_out += "/Span<</ActualText<FEFF";
            AppendHex(m_out, text);
            m_out += ">>>BDC ";
        }
        for (const PlacedGlyph& glyph : glyphs)
            Spell(glyph);
        if (!isOneToOne) {
            Close();
            m_out += "EMC ";
        }
    }

    void Close()
    {
        if (m_isOpen)
            m_out += ">]TJ ";
        m_isOpen = false;
    }

private:
    void Spell(const PlacedGlyph& glyph)
    {
        if (!m_isOpen || glyph.Y != m_row)
            Open(glyph);
        const double tooFar = (m_next - glyph.X) * 1000 / m_run.Size;
        if (std::abs(tooFar) > LeastMove) {
            m_out += '>';
            AppendNumber(m_out, tooFar);
            m_out += '<';
            m_next = glyph.X;
        }
        AppendHex(m_out, glyph.Id);
        m_next += m_face.AdvanceOf(glyph.Id) * m_run.Size / 1000;
    }

    void Open(const PlacedGlyph& glyph)
    {
        Close();
        m_out += "1 0 0 1 ";
        AppendNumbers(m_out, m_x + glyph.X, m_baseline + glyph.Y);
        m_out += "Tm[<";
        m_isOpen = true;
        m_next = glyph.X;
        m_row = glyph.Y;
    }

    QByteArray& m_out;
    const PdfFace& m_face;
    const GlyphRun& m_run;
    double m_x;
    double m_baseline;
    bool m_isOpen = false;
    /// Where the next glyph is drawn without a correction.
    double m_next = 0;
    double m_row = 0;
};

} // namespace

void PdfContent::Add(const PlacedLine& placed)
{
    AddColor(placed.Color);
    const double baseline = m_pageHeight - placed.Baseline;
    for (const GlyphRun& run : placed.Line->Glyphs.Runs)
        AddRun(run, placed.X, baseline);
    for (const LineBar& bar : placed.Line->Glyphs.Bars) {
        AppendNumbers(m_operators, placed.X + bar.X, baseline + bar.Y - bar.Height, bar.Width,
                      bar.Height);
        m_operators += "re f\n";
    }
}

void PdfContent::AddColor(ColorValue color)
{
    const ColorParts parts = PartsOfColor(color);
    AppendNumbers(m_operators, parts.Red / 255.0, parts.Green / 255.0, parts.Blue / 255.0);
    m_operators += "rg\n";
}

void PdfContent::Add(const PlacedBoxes& placed)
{
    AddColor(placed.Color);
    for (const FilledBox& box : placed.Boxes) {
        if (box.IsRounded()) {
            AddRoundedBox(box);
            continue;
        }
        AppendNumbers(m_operators, box.X, m_pageHeight - box.Y - box.Height, box.Width, box.Height);
        m_operators += "re\n";
    }
    m_operators += "f\n";
}

void PdfContent::AddRoundedBox(const FilledBox& box)
{
    // Where the handles of a curve stand that comes nearest to a quarter of a circle, from its
    // ends.
    constexpr double reach = 0.5523;
    const double left = box.X;
    const double right = box.X + box.Width;
    const double top = m_pageHeight - box.Y;
    const double bottom = top - box.Height;
    const double x = box.RadiusX;
    const double y = box.RadiusY;
    const double dx = x * (1 - reach);
    const double dy = y * (1 - reach);
    const auto line = [this](double toX, double toY) {
        AppendNumbers(m_operators, toX, toY);
        m_operators += "l\n";
    };
    const auto curve = [this](double x1, double y1, double x2, double y2, double x3, double y3) {
        AppendNumbers(m_operators, x1, y1, x2, y2, x3, y3);
        m_operators += "c\n";
    };
    AppendNumbers(m_operators, left + x, top);
    m_operators += "m\n";
    line(right - x, top);
    curve(right - dx, top, right, top - dy, right, top - y);
    line(right, bottom + y);
    curve(right, bottom + dy, right - dx, bottom, right - x, bottom);
    line(left + x, bottom);
    curve(left + dx, bottom, left, bottom + dy, left, bottom + y);
    line(left, top - y);
    curve(left, top - dy, left + dx, top, left + x, top);
    m_operators += "h\n";
}

void PdfContent::AddForm(int form, double x, double y)
{
    m_operators += "q 1 0 0 1 ";
    AppendNumbers(m_operators, x, m_pageHeight - y);
    m_operators += "cm/X" + QByteArray::number(NumberIn(m_forms, form)) + " Do Q\n";
}

void PdfContent::AddRun(const GlyphRun& run, double x, double baseline)
{
    const std::shared_ptr<PdfFace>& face = m_provided.at(run.Face);
    m_operators += "BT/F" + QByteArray::number(NumberIn(m_faces, face)) + ' ';
    AppendNumbers(m_operators, run.Size);
    m_operators += "Tf ";
    RunSpeller speller(m_operators, *face, run, x, baseline);
    for (const GlyphCluster& cluster : run.Clusters)
        speller.Spell(cluster);
    speller.Close();
    m_operators += "ET\n";
}

void PdfContent::Add(const PlacedPicture& placed)
{
    const PictureData& data = *placed.Content.Data();
    const QSizeF stored = data.StoredSize();
    const QSizeF upright = data.UprightSize();
    // PDF maps a picture to the unit square with the y axis upwards; pixels count downwards.
    cairo_matrix_t matrix;
    cairo_matrix_init(&matrix, stored.width(), 0, 0, -stored.height(), 0, stored.height());
    cairo_matrix_multiply(&matrix, &matrix, &data.ToUpright);
    cairo_matrix_t onPage;
    cairo_matrix_init(&onPage, placed.Width / upright.width(), 0, 0,
                      -placed.Height / upright.height(), placed.X, m_pageHeight - placed.Y);
    cairo_matrix_multiply(&matrix, &matrix, &onPage);
    m_operators += "q ";
    if (const auto& window = placed.Window) {
        AppendNumbers(m_operators, window->X, m_pageHeight - window->Y - window->Height,
                      window->Width, window->Height);
        m_operators += "re W n ";
    }
    AppendNumbers(m_operators, matrix.xx, matrix.yx, matrix.xy, matrix.yy, matrix.x0, matrix.y0);
    m_operators += "cm/I" + QByteArray::number(NumberIn(m_pictures, placed.Content)) + " Do Q\n";
}

} // namespace vantrel
