#include "drawing/pdf/BookFonts.h"
#include "base/Failure.h"
#include "drawing/pdf/PdfFile.h"
#include "drawing/pdf/PdfObjects.h"
#include <algorithm>

namespace vantrel {

bool BookFonts::CanEmbed(const GlyphRun& run)
{
    const auto [place, isNew] = m_canEmbed.try_emplace(run.Face, false);
    if (!isNew)
        return place->second;
    auto face = std::make_shared<PdfFace>(run.Face);
    GlyphTexts texts;
    CollectTexts(run, texts);
    face->Add(texts);
    // Tried at once, since at the end it would be too late to draw the text in another way.
    if (!face->IsPlain() || !face->Pack())
        return false;
    m_numbers.emplace(face.get(), m_file.Reserve());
    m_faces.emplace(run.Face, std::move(face));
    place->second = true;
    return true;
}

bool BookFonts::Take(const GlyphLine& line)
{
    if (!line.IsPlain || !std::all_of(line.Runs.begin(), line.Runs.end(),
                                      [this](const GlyphRun& run) { return CanEmbed(run); }))
        return false;
    for (const GlyphRun& run : line.Runs) {
        PdfFace& face = *m_faces.at(run.Face);
        if (face.HasAll(run))
            continue;
        GlyphTexts texts;
        CollectTexts(run, texts);
        face.Add(texts);
    }
    return true;
}

void BookFonts::Write()
{
    for (const auto& [handle, face] : m_faces) {
        if (!face->Pack())
            throw Failure(FailureNumber::PrinterError,
                          QStringLiteral("Printer error: a font could not be embedded"));
        m_file.Write(NumberOf(*face), AddFaceParts(m_file, *face));
    }
}

} // namespace vantrel
