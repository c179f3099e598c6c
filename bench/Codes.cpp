// Measures the drawing of bar codes: encoding a text that was not drawn before, laying it out, and
// writing the PDF of a card that holds nothing else; beside it the PDF of an empty card.

#include "card/CaptionFigure.h"
#include "card/CardObject.h"
#include "drawing/CodePattern.h"
#include "drawing/PageCanvas.h"
#include <array>
#include <benchmark/benchmark.h>

namespace vantrel::bench {

namespace {

constexpr double CardWidth = 3060;
constexpr double CardHeight = 4860;

/// Texts of this length with another number in each.
QString TextOf(CodeKind kind, int number)
{
    QString digits = QStringLiteral("%1").arg(number, 11, 10, QLatin1Char('0'));
    switch (kind) {
    case CodeKind::Ean13:
        return digits + u'7';
    case CodeKind::Ean8:
        return digits.right(7);
    case CodeKind::UpcA:
    case CodeKind::Interleaved2Of5:
    case CodeKind::Codabar:
    case CodeKind::Code39:
    case CodeKind::Code128:
        return digits;
    default:
        // Fifty characters.
        return QStringLiteral("https://cards.example/member/check?id=A") + digits;
    }
}

std::size_t DrawCard(const std::vector<FilledBox>& boxes)
{
    std::size_t written = 0;
    const auto page = PageCanvas::OnPdf(CardWidth, CardHeight, [&](const char*, std::size_t count) {
        written += count;
        return true;
    });
    page->FillBoxes(boxes, ColorBlack);
    page->Finish();
    return written;
}

void DrawCodes(benchmark::State& state)
{
    const auto kind = static_cast<CodeKind>(state.range(0));
    const QString name(RowOf(kind).Name);
    state.SetLabel(name.toStdString());
    CardObject label(Family::lbl_TEXT, 1);
    label.SetFont({QStringLiteral("Barcode ") + name, 10});
    label.Left = 100;
    label.Top = 500;
    label.Width = 2860;
    label.Height = 2000;
    int number = 0;
    std::size_t written = 0;
    for (auto _ : state) {
        label.SetCaption(TextOf(kind, ++number));
        const CaptionFigure figure = FigureOf(label, 300);
        if (!figure.Trouble.isEmpty())
            state.SkipWithError(qPrintable(figure.Trouble));
        written += DrawCard(figure.Boxes);
    }
    state.counters["bytes"] =
        benchmark::Counter(static_cast<double>(written), benchmark::Counter::kAvgIterations);
}

void DrawEmptyCard(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(DrawCard({}));
}

BENCHMARK(DrawCodes)->DenseRange(0, CodeKindCount - 1)->Unit(benchmark::kMicrosecond);
BENCHMARK(DrawEmptyCard)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace vantrel::bench

BENCHMARK_MAIN();
