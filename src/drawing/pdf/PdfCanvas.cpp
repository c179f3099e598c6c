#include "drawing/pdf/PdfCanvas.h"
#include "base/Failure.h"
#include "drawing/CairoCanvas.h"
#include "drawing/TextShaper.h"
#include "drawing/pdf/PdfContent.h"
#include "drawing/pdf/PdfFile.h"
#include "drawing/pdf/PdfObjects.h"
#include <set>
#include <utility>

namespace vantrel {

PdfCanvas::PdfCanvas(double width, double height, Sink sink)
    : ItemCanvas(width, height), m_sink(std::move(sink))
{}

/// @return nothing if a `PdfFace` cannot hold a line of the page
std::optional<PageFaces> PdfCanvas::ProvideFaces() const
{
    PageFaces faces;
    std::set<FaceHandle> lacking;
    std::vector<const GlyphRun*> runs;
    for (const auto& item : Items()) {
        const auto* placed = std::get_if<PlacedLine>(&item);
        if (placed == nullptr)
            continue;
        if (!placed->Line->Glyphs.IsPlain)
            return std::nullopt;
        for (const GlyphRun& run : placed->Line->Glyphs.Runs) {
            std::shared_ptr<PdfFace>& face = faces[run.Face];
            if (!face)
                face = PdfFaceOf(run.Face);
            if (!face->HasAll(run))
                lacking.insert(run.Face);
            runs.push_back(&run);
        }
    }
    for (const FaceHandle& handle : lacking) {
        GlyphTexts texts;
        for (const GlyphRun* run : runs) {
            if (run->Face == handle)
                CollectTexts(*run, texts);
        }
        if (!faces.at(handle)->Provide(texts))
            return std::nullopt;
    }
    return faces;
}

void PdfCanvas::FinishByCairo()
{
    const auto cairo = CairoCanvas::OnPdf(Width(), Height(), std::move(m_sink));
    for (const auto& item : Items())
        std::visit([&cairo](const auto& placed) { cairo->Set(placed); }, item);
    cairo->Finish();
}

void PdfCanvas::Finish()
{
    const std::optional<PageFaces> provided = ProvideFaces();
    if (!provided) {
        FinishByCairo();
        return;
    }
    PdfContent content(Height(), *provided);
    for (const auto& item : Items())
        std::visit([&content](const auto& placed) { content.Add(placed); }, item);
    PdfFile file(std::move(m_sink));
    const int catalog = AddOnlyPage(file, content, Width(), Height());
    if (!file.End(catalog, AddInformation(file)))
        throw Failure(FailureNumber::PrinterError,
                      QStringLiteral("Printer error: the page was not taken"));
}

} // namespace vantrel
