// Measures cards per second from a record's last byte on a TCP connection until its file is
// finished, its number is stored and the station is ready for the next record. It is compared with
// drawing the same card to a file with cairo and Pango only. The durable commit of the number alone
// and a card of a generated number are also measured, and a card that is printed behind the surface
// (`behind_ratio`, its rate against that of a station whose records take the surface). All are
// measured alternately, so that other load affects them equally.

#include "BareCard.h"
#include "BenchStation.h"
#include <QFile>
#include <benchmark/benchmark.h>
#include <chrono>

namespace vantrel::bench {

namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point begin)
{
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

PictureOnCard JpegOnCard(const QString& path, double x, double y, double width, double height)
{
    QFile file(path);
    const QByteArray bytes = file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    return {QImage(path), bytes, x, y, width, height};
}

void RecordToCard(benchmark::State& state)
{
    BenchStation station;
    BenchStation designed({.HasDesignTools = true});
    const BareCard limit(
        TextsAndNumber(0),
        {JpegOnCard(station.Path(QStringLiteral("back.jpg")), 0, 0, 3060, 4860),
         JpegOnCard(station.Path(QStringLiteral("photo.jpg")), 200, 200, 1080, 1440)});
    double printing = 0;
    double bare = 0;
    double committing = 0;
    double sequence = 0;
    double behind = 0;
    int number = 0;
    for (auto _ : state) {
        ++number;
        const QString path = station.Path(QStringLiteral("bare-%1.pdf").arg(number));
        auto begin = Clock::now();
        station.PrintRecord(number);
        const double spent = SecondsSince(begin);
        begin = Clock::now();
        limit.DrawTo(path, TextsAndNumber(number));
        bare += SecondsSince(begin);
        begin = Clock::now();
        station.SaveNumber();
        committing += SecondsSince(begin);
        begin = Clock::now();
        station.PrintNumber(number);
        sequence += SecondsSince(begin);
        begin = Clock::now();
        designed.PrintRecord(number);
        behind += SecondsSince(begin);
        printing += spent;
        state.SetIterationTime(spent);
    }
    state.counters["cards_per_s"] = number / printing;
    state.counters["limit_per_s"] = number / bare;
    state.counters["saves_per_s"] = number / committing;
    state.counters["ratio"] = bare / printing;
    state.counters["made_up_per_s"] = number / sequence;
    state.counters["made_up_ratio"] = printing / sequence;
    state.counters["behind_ratio"] = printing / behind;
}

BENCHMARK(RecordToCard)->UseManualTime()->MinTime(3);

} // namespace

} // namespace vantrel::bench
