#pragma once

#include "base/Color.h"
#include "base/Font.h"
#include "drawing/Picture.h"
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

namespace vantrel {

struct ShapedLine;

/// A line of text in its place on a page, in points from the top left corner.
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
};

/// What a page is drawn on: one set of rules and one way to shape text for paper and screen, so
/// that what is seen is what prints. All lengths are twips from the page's top left corner. Text is
/// measured and drawn unhinted at the page's own scale, whatever the scale of the picture it goes
/// to.
class PageCanvas
{
public:
    /// Receives the bytes of a PDF as they are made; returns false when it cannot take them.
    using Sink = std::function<bool(const char* bytes, std::size_t count)>;

    /// A one-page PDF of that size in twips, streamed into `sink`. Text in it is real text.
    static std::unique_ptr<PageCanvas> OnPdf(double width, double height, Sink sink);
    /// Draws on an image (format ARGB32_Premultiplied or RGB32), which must outlive the canvas.
    /// `pixelsPerTwip` scales the page onto it.
    static std::unique_ptr<PageCanvas> OnImage(QImage& image, double pixelsPerTwip);

    PageCanvas(const PageCanvas&) = delete;
    PageCanvas& operator=(const PageCanvas&) = delete;
    virtual ~PageCanvas() = default;

    /// Draws text with its first line's top at `y`. A carriage return, a line feed or both together
    /// begin a new line below; other control characters draw nothing and take no width. Of a line
    /// that is longer than any card only what reaches the card is drawn, from wherever it begins.
    void DrawText(const QString& text, const Font& font, ColorValue color, double x, double y);
    /// Draws a picture stretched into the rectangle. Fails with `InvalidPicture` for an empty one.
    void PaintPicture(const Picture& picture, double x, double y, double width, double height);
    /// Ends the page and hands out the last bytes. Fails with `PrinterError` if the sink did not
    /// take them all.
    virtual void Finish() = 0;

    /// Width of the widest line of a text, and height of all of them.
    static double TextWidth(const QString& text, const Font& font);
    static double TextHeight(const QString& text, const Font& font);
    /// Name of an installed font family, counted from 1, in the order of the font system. Fails
    /// with `SubscriptOutOfRange`.
    static QString FontFamily(int index);
    /// All of them, by name.
    static const QStringList& FontFamilies();

protected:
    PageCanvas() = default;

    /// Of what is seen, in points.
    virtual double Width() const = 0;
    virtual void Set(const PlacedLine& placed) = 0;
    /// @param placed  a picture that holds something, in a box with a size
    virtual void Set(const PlacedPicture& placed) = 0;

private:
    void DrawLine(const QString& line, const Font& font, ColorValue color, double x,
                  double baseline);
};

} // namespace vantrel
