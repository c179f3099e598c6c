#pragma once

#include "base/Color.h"
#include "base/Font.h"
#include "drawing/FilledBox.h"
#include "drawing/Picture.h"
#include "drawing/PictureFit.h"
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

struct ShapedLine;

/// A line of text at its position on a page, in points from the top left corner.
struct PlacedLine
{
    std::shared_ptr<const ShapedLine> Line;
    ColorValue Color = ColorBlack;
    double X = 0;
    double Baseline = 0;
};

/// A picture stretched into its box, in points from the top left corner.
struct PlacedPicture
{
    Picture Content;
    double X = 0;
    double Y = 0;
    double Width = 0;
    double Height = 0;
    /// What of it is drawn; all of it if there is none.
    std::optional<FilledBox> Window = {};
};

/// Boxes filled together with one colour, in points from the top left corner.
struct PlacedBoxes
{
    std::vector<FilledBox> Boxes;
    ColorValue Color = ColorBlack;
};

/// A page to draw on. Paper and screen share the same rules and the same text shaping, so the
/// screen shows what will be printed. All lengths are twips from the page's top left corner. Text
/// is measured and drawn unhinted at the page's own scale, independent of the resolution of the
/// output.
class PageCanvas
{
public:
    /// Receives the bytes of a PDF in order; returns false if it cannot store them.
    using Sink = std::function<bool(const char* bytes, std::size_t count)>;

    /// Creates a one-page PDF of the given size in twips and writes it to `sink`. Its text can be
    /// searched and copied.
    static std::unique_ptr<PageCanvas> OnPdf(double width, double height, Sink sink);
    /// Draws on an image (format ARGB32_Premultiplied or RGB32), which must outlive the canvas.
    /// `pixelsPerTwip` scales the page onto it.
    static std::unique_ptr<PageCanvas> OnImage(QImage& image, double pixelsPerTwip);

    PageCanvas(const PageCanvas&) = delete;
    PageCanvas& operator=(const PageCanvas&) = delete;
    virtual ~PageCanvas() = default;

    /// Draws text with the top of its first line at `y`. A carriage return, a line feed or both
    /// together begin a new line; other control characters draw nothing and have no width. Of a
    /// line that is longer than any card only the part that reaches the card is drawn.
    void DrawText(const QString& text, const Font& font, ColorValue color, double x, double y);
    /// Draws a picture stretched into the rectangle. Fails with `InvalidPicture` for an empty one.
    void PaintPicture(const Picture& picture, double x, double y, double width, double height);
    /// Draws a picture in the rectangle as `fit` says. Fails like `PaintPicture`.
    void PaintFitted(const Picture& picture, PictureFit fit, double x, double y, double width,
                     double height);
    /// Fills boxes with one colour, as one drawing of lines and not as a picture, so that no seam
    /// shows where they touch. Boxes without a side, and those far from any card, are left out.
    void FillBoxes(const std::vector<FilledBox>& boxes, ColorValue color);
    /// Ends the page and writes the last bytes. Fails with `PrinterError` if the sink refused any
    /// bytes.
    virtual void Finish() = 0;

    /// Width of the widest line of a text and height of all its lines, in twips.
    static double TextWidth(const QString& text, const Font& font);
    static double TextHeight(const QString& text, const Font& font);
    /// Name of an installed font family. `index` counts from 1 in the order of the font system.
    /// Fails with `SubscriptOutOfRange`.
    static QString FontFamily(int index);
    /// Names of all installed font families, in the order of the font system.
    static const QStringList& FontFamilies();

protected:
    PageCanvas() = default;

    /// Width of the page in points.
    virtual double Width() const = 0;
    virtual void Set(const PlacedLine& placed) = 0;
    /// @param placed  a picture that is not empty, in a box of positive size
    virtual void Set(const PlacedPicture& placed) = 0;
    /// @param placed  at least one box, each of positive sides
    virtual void Set(const PlacedBoxes& placed) = 0;

private:
    void DrawLine(const QString& line, const Font& font, ColorValue color, double x,
                  double baseline);
};

} // namespace vantrel
