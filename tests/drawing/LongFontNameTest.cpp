#include "PageTest.h"
#include "support/Memory.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

class LongFontName : public PageTest
{};

TEST_F(LongFontName, IsNotKeptWithEveryLine)
{
    const auto draw = [](int card) {
        return [card](PageCanvas& page) {
            // Each card reads it from the store anew.
            const Font font{QString(qsizetype{1} << 20, QLatin1Char('x')), 10};
            const QString text = QStringLiteral("card %1").arg(card);
            page.DrawText(text, font, ColorBlack, 200 + PageCanvas::TextWidth(text, font), 600);
        };
    };
    Pdf(draw(0));
    const qint64 before = UsedMemory();
    for (int card = 1; card <= 10; ++card)
        Pdf(draw(card));
    EXPECT_LT(UsedMemory() - before, 4 * MiB);
}

} // namespace
} // namespace vantrel::test
