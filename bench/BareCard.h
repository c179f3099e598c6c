#pragma once

#include "base/Font.h"
#include <QByteArray>
#include <QImage>
#include <QString>
#include <memory>
#include <vector>

namespace vantrel::bench {

struct TextOnCard
{
    QString Text;
    Font Style;
    double X = 0;
    double Y = 0;
    /// Static on the card; else a value of the record.
    bool IsLabel = false;
};

/// A picture for the bare drawing: its pixels, and its file's bytes where it is a JPEG.
struct PictureOnCard
{
    QImage Pixels;
    QByteArray Jpeg;
    double X = 0;
    double Y = 0;
    double Width = 0;
    double Height = 0;
};

/// The limit: a card drawn with cairo and Pango and nothing else, straight into a file. What a
/// program that draws one card after the other would prepare once is prepared once: surfaces, font
/// descriptions, the context of the text.
class BareCard
{
public:
    /// @param places  fonts and places of the card's texts
    BareCard(const std::vector<TextOnCard>& places, std::vector<PictureOnCard> pictures);
    BareCard(const BareCard&) = delete;
    BareCard& operator=(const BareCard&) = delete;
    ~BareCard();

    /// @param texts  one for each place
    void DrawTo(const QString& path, const std::vector<TextOnCard>& texts) const;

private:
    struct Prepared;
    std::unique_ptr<Prepared> m_prepared;
};

} // namespace vantrel::bench
