// Measures cards per second from the printer operations of one page to its finished file, compared
// with drawing the same card to a file with cairo and Pango only. Both are measured alternately, so
// that other load affects them equally.

#include "BareCard.h"
#include "CardParts.h"
#include "printers/PdfPrinter.h"
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <ctime>

namespace vantrel::bench {

namespace {

double CpuSeconds()
{
    timespec now = {};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

enum class Pictures { None, Jpeg, JpegAndBackground, Png };

class Card
{
public:
    explicit Card(Pictures pictures)
    {
        if (pictures == Pictures::JpegAndBackground)
            Add(QStringLiteral("back.jpg"), Photo(638, 1012), 0, 0, 3060, 4860);
        if (pictures == Pictures::Jpeg || pictures == Pictures::JpegAndBackground)
            Add(QStringLiteral("photo.jpg"), Photo(300, 400), 200, 200, 1080, 1440);
        if (pictures == Pictures::Png)
            Add(QStringLiteral("photo.png"), Photo(300, 400), 200, 200, 1080, 1440);
    }

    QString Path(const QString& name) const { return m_folder.filePath(name); }
    const std::vector<PictureOnCard>& BarePictures() const { return m_bare; }

    void PrintOn(PdfPrinter& printer, const std::vector<TextOnCard>& texts) const
    {
        for (std::size_t i = 0; i < m_bare.size(); ++i) {
            const PictureOnCard& place = m_bare[i];
            printer.PaintPicture(LoadPicture(m_paths[static_cast<qsizetype>(i)]), place.X, place.Y,
                                 place.Width, place.Height);
        }
        for (const TextOnCard& text : texts) {
            printer.SetFontName(text.Style.Name);
            printer.SetFontSize(text.Style.Size);
            printer.SetFontBold(text.Style.Bold);
            printer.SetCurrentX(text.X);
            printer.SetCurrentY(static_cast<float>(text.Y));
            printer.Print(text.Text);
        }
        printer.EndDoc();
    }

private:
    void Add(const QString& name, const QImage& image, double x, double y, double width,
             double height)
    {
        const QString path = Path(name);
        image.save(path, nullptr, 85);
        m_paths.append(path);
        QFile file(path);
        const bool isJpeg = name.endsWith(QStringLiteral(".jpg")) && file.open(QFile::ReadOnly);
        m_bare.push_back({image, isJpeg ? file.readAll() : QByteArray(), x, y, width, height});
    }

    QTemporaryDir m_folder;
    QStringList m_paths;
    std::vector<PictureOnCard> m_bare;
};

void PageToPdf(benchmark::State& state, Pictures pictures)
{
    const Card card(pictures);
    PdfPrinter printer(card.Path(QStringLiteral("Printed")));
    const BareCard limit(Texts(0), card.BarePictures());
    card.PrintOn(printer, Texts(0));
    limit.DrawTo(card.Path(QStringLiteral("bare-0.pdf")), Texts(0));
    double printing = 0;
    double bare = 0;
    int number = 0;
    for ([[maybe_unused]] auto _ : state) { // NOLINT(clang-analyzer-deadcode.DeadStores)
        ++number;
        const std::vector<TextOnCard> texts = Texts(number);
        const QString path = card.Path(QStringLiteral("bare-%1.pdf").arg(number));
        const double start = CpuSeconds();
        card.PrintOn(printer, texts);
        const double between = CpuSeconds();
        limit.DrawTo(path, texts);
        const double end = CpuSeconds();
        printing += between - start;
        bare += end - between;
        state.SetIterationTime(between - start);
    }
    state.counters["cards_per_s"] = number / printing;
    state.counters["limit_per_s"] = number / bare;
    state.counters["ratio"] = bare / printing;
}

BENCHMARK_CAPTURE(PageToPdf, TextOnly, Pictures::None)->UseManualTime();
BENCHMARK_CAPTURE(PageToPdf, JpegPhoto, Pictures::Jpeg)->UseManualTime();
BENCHMARK_CAPTURE(PageToPdf, JpegPhotoAndBackground, Pictures::JpegAndBackground)->UseManualTime();
BENCHMARK_CAPTURE(PageToPdf, PngPhoto, Pictures::Png)->UseManualTime();

} // namespace

} // namespace vantrel::bench
