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
    /// Whether it is a static text; otherwise it is a value of the record.
    bool IsLabel = false;
};

/// A picture for the bare drawing: its pixels, and the bytes of its file if it is a JPEG.
struct PictureOnCard
{
    QImage Pixels;
    QByteArray Jpeg;
    double X = 0;
    double Y = 0;
    double Width = 0;
    double Height = 0;
};

/// The reference for measurements: a card drawn into a file with cairo and Pango only. Surfaces,
/// font descriptions and the text context are prepared once, as a program that draws many cards
/// would do.
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
