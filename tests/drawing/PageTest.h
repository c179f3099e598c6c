#pragma once

#include "drawing/PageCanvas.h"
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>

namespace vantrel::test {

/// Cards of 3060 by 4860 twips, drawn on paper and on screen.
class PageTest : public ::testing::Test
{
protected:
    /// @return the path of its PDF
    template <typename Draw>
    QString Pdf(Draw draw, const QString& name = QStringLiteral("card.pdf"))
    {
        QString path = m_folder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        const auto page =
            PageCanvas::OnPdf(3060, 4860, [&file](const char* bytes, std::size_t count) {
                return file.write(bytes, static_cast<qint64>(count)) == static_cast<qint64>(count);
            });
        draw(*page);
        page->Finish();
        return path;
    }

    /// Draws the same on an image.
    template <typename Draw>
    static QImage Screen(double pixelsPerTwip, Draw draw)
    {
        QImage image(static_cast<int>(3060 * pixelsPerTwip), static_cast<int>(4860 * pixelsPerTwip),
                     QImage::Format_RGB32);
        image.fill(Qt::white);
        const auto page = PageCanvas::OnImage(image, pixelsPerTwip);
        draw(*page);
        page->Finish();
        return image;
    }

    /// The smallest rectangle around all pixels that are not white.
    static QRect InkOf(const QImage& image)
    {
        QRect ink;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (qGray(image.pixel(x, y)) < 128)
                    ink |= QRect(x, y, 1, 1);
            }
        }
        return ink;
    }

    /// The share of the ink of two pictures of one size that the other lacks, from 0 for none to 2
    /// for all.
    static double InkApart(const QImage& one, const QImage& other)
    {
        double apart = 0;
        double ink = 0;
        for (int y = 0; y < one.height(); ++y) {
            for (int x = 0; x < one.width(); ++x) {
                const int darkness = 255 - qGray(one.pixel(x, y));
                apart += std::abs(darkness - (255 - qGray(other.pixel(x, y))));
                ink += darkness;
            }
        }
        return ink > 0 ? apart / ink : 2;
    }

    static QImage Solid(QRgb color, int width = 30, int height = 40)
    {
        QImage image(width, height, QImage::Format_ARGB32);
        image.fill(color);
        return image;
    }

    QTemporaryDir m_folder;
};

} // namespace vantrel::test
