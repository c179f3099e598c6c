#include "platform/PdfCanvas.h"
#include "platform/CairoCanvas.h"
#include "platform/Failure.h"
#include "platform/PdfContent.h"
#include "platform/PdfFile.h"
#include "platform/PdfObjects.h"
#include "platform/TextShaper.h"
#include <map>
#include <utility>

namespace vantrel {

namespace {

void Collect(const GlyphRun& run, GlyphTexts& texts)
{
    for (const GlyphCluster& cluster : run.Clusters) {
        const bool isOne = cluster.Glyphs.size() == 1;
        for (const PlacedGlyph& glyph : cluster.Glyphs)
            texts.try_emplace(glyph.Id, isOne ? cluster.Text : QString());
    }
}

} // namespace

PdfCanvas::PdfCanvas(double width, double height, Sink sink)
    : m_width(width), m_height(height), m_sink(std::move(sink))
{}

/// @return nothing where a line of the page is more than a `PdfFace` can hold
std::optional<PageFaces> PdfCanvas::ProvideFaces() const
{
    std::map<FaceHandle, GlyphTexts> wanted;
    for (const auto& item : m_items) {
        const auto* placed = std::get_if<PlacedLine>(&item);
        if (placed == nullptr)
            continue;
        if (!placed->Line->Glyphs.IsPlain)
            return std::nullopt;
        for (const GlyphRun& run : placed->Line->Glyphs.Runs)
            Collect(run, wanted[run.Face]);
    }
    PageFaces faces;
    for (const auto& [handle, texts] : wanted) {
        std::shared_ptr<PdfFace> face = PdfFaceOf(handle);
        if (!face->Provide(texts))
            return std::nullopt;
        faces.emplace(handle, std::move(face));
    }
    return faces;
}

void PdfCanvas::FinishByCairo()
{
    const auto cairo = CairoCanvas::OnPdf(m_width, m_height, std::move(m_sink));
    for (const auto& item : m_items)
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
    PdfContent content(m_height, *provided);
    for (const auto& item : m_items)
        std::visit([&content](const auto& placed) { content.Add(placed); }, item);
    PdfFile file(std::move(m_sink));
    const int catalog = AddOnlyPage(file, content, m_width, m_height);
    if (!file.End(catalog, AddInformation(file)))
        throw Failure(FailureNumber::PrinterError,
                      QStringLiteral("Printer error: the page was not taken"));
}

} // namespace vantrel
