// Measures cards per second into one PDF, and the memory that it takes, for different numbers of
// cards: ten texts, a background that all cards share, and a photo that differs from those of the
// last cards.

#include "CardParts.h"
#include "printers/BookPrinter.h"
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace vantrel::bench {

namespace {

/// More than a book knows again, so that each photo is written as if it were a new one.
constexpr int Photos = 1200;
constexpr int CacheKiB = 8 * 1024;

double ResidentMiB(const char* name)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith(name))
            return line.simplified().split(' ').value(1).toDouble() / 1024;
    }
    return 0;
}

/// The files of the pictures, made once.
class PictureFolder
{
public:
    PictureFolder()
    {
        Photo(638, 1012).save(Background(), nullptr, 85);
        QImage photo = Photo(300, 400);
        for (int number = 0; number < Photos; ++number) {
            for (int x = 0; x < 300; ++x)
                photo.setPixel(x, 0, static_cast<QRgb>(number * 300 + x));
            photo.save(OfCard(number), nullptr, 85);
        }
    }
    QString Background() const { return m_folder.filePath(QStringLiteral("back.jpg")); }
    QString OfCard(int card) const
    {
        return m_folder.filePath(QStringLiteral("photo-%1.jpg").arg(card % Photos));
    }
    QString Book() const { return m_folder.filePath(QStringLiteral("book.pdf")); }

private:
    QTemporaryDir m_folder;
};

void PrintCard(BookPrinter& printer, const PictureFolder& pictures, int card)
{
    printer.PaintPicture(LoadPicture(pictures.Background()), 0, 0, 3060, 4860);
    printer.PaintPicture(LoadPicture(pictures.OfCard(card)), 200, 200, 1080, 1440);
    for (const TextOnCard& text : Texts(card)) {
        printer.SetFontName(text.Style.Name);
        printer.SetFontSize(text.Style.Size);
        printer.SetFontBold(text.Style.Bold);
        printer.SetCurrentX(text.X);
        printer.SetCurrentY(static_cast<float>(text.Y));
        printer.Print(text.Text);
    }
    printer.EndDoc();
}

void BookOfCards(benchmark::State& state)
{
    static const PictureFolder pictures;
    LimitPictureCache(CacheKiB);
    const auto cards = static_cast<int>(state.range(0));
    for ([[maybe_unused]] auto _ : state) { // NOLINT(clang-analyzer-deadcode.DeadStores)
        BookPrinter printer(pictures.Book());
        for (int card = 0; card < cards; ++card)
            PrintCard(printer, pictures, card);
        printer.Close();
    }
    state.counters["cards_per_s"] = benchmark::Counter(
        static_cast<double>(cards), benchmark::Counter::kIsIterationInvariantRate);
    state.counters["highest_MiB"] = ResidentMiB("VmHWM:");
    state.counters["MiB"] = static_cast<double>(QFile(pictures.Book()).size()) / 1024 / 1024;
    QFile::remove(pictures.Book());
}

BENCHMARK(BookOfCards)
    ->Arg(1000)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1);

} // namespace

} // namespace vantrel::bench
