// Measures a repaint of the document window with 200 objects at the size of a 1080p screen: from
// the cached picture, as during a drag, and completely after a change; the same at 400 % in the
// designer, and a drag of 50 objects. The reference is the card alone, drawn by the same renderer
// on a picture of the same size.

#include "card/PaintDocument.h"
#include "desktop/controls/ScreenUnits.h"
#include "desktop/designer/frmDocument.h"
#include "drawing/PageCanvas.h"
#include "printers/StationPrinters.h"
#include "station/layout/DesignSelection.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "station/session/Session.h"
#include "station/session/UnattendedOperator.h"
#include <QApplication>
#include <QMdiArea>
#include <QMouseEvent>
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

/// A card of 200 texts in a workspace of the size of the screen, shown at 400 %: a quarter of the
/// objects can be seen.
class ZoomedCard
{
public:
    ZoomedCard()
    {
        m_page.Session.Options.DesignTools = true;
        m_page.Session.Document.Show();
        m_workspace.resize(1920, 1080);
        m_workspace.addSubWindow(&Window());
        m_workspace.show();
        Window().Mirror();
        Window().ZoomTo(4, {});
        // What was shown first is drawn.
        QCoreApplication::processEvents();
    }
    ~ZoomedCard() { m_workspace.removeSubWindow(&Window()); }
    ZoomedCard(const ZoomedCard&) = delete;
    ZoomedCard& operator=(const ZoomedCard&) = delete;

    frmDocument& Window() { return m_window; }
    CardDocument& Document() { return m_page.Session.Document; }
    StationFace& Face() { return m_page.Session.Face; }
    /// Paints what the workspace shows of the window.
    void Paint(QImage& screen)
    {
        const QRect seen = Window().visibleRegion().boundingRect();
        Window().render(&screen, {}, seen);
    }
    void Send(QEvent::Type type, QPoint point, Qt::MouseButtons held)
    {
        QMouseEvent event(type, point, Window().mapToGlobal(point),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held,
                          Qt::NoModifier);
        QApplication::sendEvent(&Window(), &event);
    }

private:
    Page m_page;
    QMdiArea m_workspace;
    frmDocument m_window{m_page.Session};
};

void RepaintAt400AfterAChange(benchmark::State& state)
{
    ZoomedCard card;
    QImage screen(1920, 1080, QImage::Format_RGB32);
    for (auto _ : state) {
        card.Document().Refresh();
        card.Paint(screen);
    }
}

/// Each step moves the pointer and repaints all that can be seen, which is more than a drag needs.
void DragOf50ObjectsAt400(benchmark::State& state)
{
    ZoomedCard card;
    QImage screen(1920, 1080, QImage::Format_RGB32);
    std::vector<CardObject*> objects;
    for (int index = 50; index >= 1; --index)
        objects.push_back(card.Document().Find(Family::lbl_DATA, index));
    SelectObjects(card.Document(), card.Face(), objects);
    const QPoint start = card.Window().CardRect().topLeft() + QPoint(100, 170);
    card.Send(QEvent::MouseButtonPress, start, Qt::LeftButton);
    if (card.Document().Drag.Mode != DragMode::Moving || card.Document().AlsoSelected.size() != 49)
        state.SkipWithError("nothing is dragged");
    int step = 0;
    for (auto _ : state) {
        ++step;
        card.Send(QEvent::MouseMove, start + QPoint(step % 200, step % 90), Qt::LeftButton);
        card.Paint(screen);
    }
    card.Send(QEvent::MouseButtonRelease, start, Qt::NoButton);
}

/// What an operator sees of it: the steps are painted as the window asks for it.
void DragOf50ObjectsAt400AsAsked(benchmark::State& state)
{
    ZoomedCard card;
    std::vector<CardObject*> objects;
    for (int index = 50; index >= 1; --index)
        objects.push_back(card.Document().Find(Family::lbl_DATA, index));
    SelectObjects(card.Document(), card.Face(), objects);
    const QPoint start = card.Window().CardRect().topLeft() + QPoint(100, 170);
    card.Send(QEvent::MouseButtonPress, start, Qt::LeftButton);
    int step = 0;
    for (auto _ : state) {
        ++step;
        card.Send(QEvent::MouseMove, start + QPoint(step % 200, step % 90), Qt::LeftButton);
        QCoreApplication::processEvents();
    }
    card.Send(QEvent::MouseButtonRelease, start, Qt::NoButton);
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
BENCHMARK(RepaintAt400AfterAChange)->Unit(benchmark::kMillisecond);
BENCHMARK(DragOf50ObjectsAt400)->Unit(benchmark::kMillisecond);
BENCHMARK(DragOf50ObjectsAt400AsAsked)->Unit(benchmark::kMillisecond);
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
