// Measures a repaint of the document window with 200 objects at the size of a 1080p screen: from
// the cached picture, as during a drag, and completely after a change. The reference is the card
// alone, drawn by the same renderer on a picture of the same size.

#include "card/PaintDocument.h"
#include "desktop/controls/ScreenUnits.h"
#include "desktop/designer/frmDocument.h"
#include "drawing/PageCanvas.h"
#include "printers/StationPrinters.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "station/session/Session.h"
#include "station/session/UnattendedOperator.h"
#include <QApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace vantrel::bench {

namespace {

constexpr int Objects = 200;
constexpr float PageWidth = 28800;
constexpr float PageHeight = 16200;

/// A page of the size of the screen with rows of texts.
class Page
{
public:
    Page() : m_printers(m_folder.path(), 1), Session(m_folder.path(), m_operator, m_printers)
    {
        EnsureDocument(Session);
        Session.Document.Width = PageWidth;
        Session.Document.Height = PageHeight;
        for (std::int16_t number = 1; number <= Objects; ++number) {
            const std::int32_t row = number % 40;
            const std::int32_t column = number / 40;
            Draw_DataField(OpenForm(Session), number,
                           {200 + row * 400, 200 + column * 5000, 300, 4000}, {});
        }
    }

private:
    QTemporaryDir m_folder;
    UnattendedOperator m_operator;
    StationPrinters m_printers;

public:
    vantrel::Session Session;
};

/// Paints the window on a picture instead of the screen.
void Paint(frmDocument& window, QImage& screen)
{
    window.render(&screen);
}

void RepaintInADrag(benchmark::State& state)
{
    Page page;
    frmDocument window(page.Session);
    window.resize(1920, 1080);
    QImage screen(1920, 1080, QImage::Format_RGB32);
    Paint(window, screen);
    for (auto _ : state)
        Paint(window, screen);
}

void RepaintAfterAChange(benchmark::State& state)
{
    Page page;
    frmDocument window(page.Session);
    window.resize(1920, 1080);
    QImage screen(1920, 1080, QImage::Format_RGB32);
    for (auto _ : state) {
        page.Session.Document.Refresh();
        Paint(window, screen);
    }
}

void TheCardAlone(benchmark::State& state)
{
    Page page;
    QImage card(ScreenRect(0, 0, PageWidth, PageHeight).size(), QImage::Format_RGB32);
    for (auto _ : state) {
        card.fill(Qt::white);
        const auto canvas = PageCanvas::OnImage(card, ScreenPixelsPerInch / TwipsPerInch);
        PaintDocument(page.Session.Document, page.Session.CurrentParams, *canvas);
        canvas->Finish();
    }
}

BENCHMARK(RepaintInADrag)->Unit(benchmark::kMillisecond);
BENCHMARK(RepaintAfterAChange)->Unit(benchmark::kMillisecond);
BENCHMARK(TheCardAlone)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace vantrel::bench

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
