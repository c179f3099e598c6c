// Measures how fast bytes are split into values, and the cost of a record that arrives in many
// pieces.

#include "ports/Framing.h"
#include "base/CodePage.h"
#include "ports/InputBuffer.h"
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstring>

using namespace vantrel;

namespace {

constexpr qsizetype Kilobyte = 1024;
constexpr qsizetype LongRecord = Kilobyte * 1024 * 64;

const Delimiters& UsualDelimiters()
{
    static const Delimiters usual{QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};
    return usual;
}

/// A record of about `size` bytes with values of 24 bytes each.
QByteArray RecordOf(qsizetype size)
{
    const QByteArray value("Somebody  with a\tname\r\n+");
    return '<' + value.repeated(std::max<qsizetype>(1, size / value.size())) + '>';
}

/// Processes received characters like `TakeArrival`, up to the test for a complete record.
bool Arrive(InputBuffer& buffer, QString& lastRawData, const QString& characters)
{
    lastRawData.clear();
    buffer.Append(characters);
    lastRawData = buffer.Text();
    return buffer.IsComplete(UsualDelimiters().DataStart, UsualDelimiters().DataEnd);
}

/// Receives one record in pieces of the given size and frames it.
void TakeRecord(const QByteArray& record, qsizetype pieceSize)
{
    const Filters filters{.Cr = true, .Lf = true, .Tab = true, .Space = true};
    InputBuffer buffer;
    QString lastRawData;
    bool complete = false;
    for (qsizetype at = 0; at < record.size(); at += pieceSize) {
        const QByteArrayView rest = QByteArrayView(record).sliced(at);
        complete =
            Arrive(buffer, lastRawData, FromCodePage(rest.first(std::min(pieceSize, rest.size()))));
    }
    QString text = complete ? buffer.Text() : QString();
    const QStringList values = ParseDataStream(text, UsualDelimiters(), filters);
    benchmark::DoNotOptimize(values.size());
}

double SecondsOf(const QByteArray& record, qsizetype pieceSize)
{
    const auto begin = std::chrono::steady_clock::now();
    TakeRecord(record, pieceSize);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

void CountBytes(benchmark::State& state, qsizetype bytes)
{
    state.SetBytesProcessed(state.iterations() * bytes);
}

/// From bytes to filtered values, with the record in one piece.
void RecordInOnePiece(benchmark::State& state)
{
    const QByteArray record = RecordOf(state.range(0));
    for (auto _ : state)
        TakeRecord(record, record.size());
    CountBytes(state, record.size());
}
BENCHMARK(RecordInOnePiece)
    ->ArgName("bytes")
    ->Arg(200)
    ->Arg(64 * Kilobyte)
    ->Arg(LongRecord)
    ->Unit(benchmark::kMicrosecond);

/// The same record in pieces of one kilobyte.
void RecordInKilobytes(benchmark::State& state)
{
    const QByteArray record = RecordOf(state.range(0));
    for (auto _ : state)
        TakeRecord(record, Kilobyte);
    CountBytes(state, record.size());
}
BENCHMARK(RecordInKilobytes)
    ->ArgName("bytes")
    ->Arg(64 * Kilobyte)
    ->Arg(LongRecord)
    ->Unit(benchmark::kMicrosecond);

/// Measures both alternately and reports the ratio; 1 means that the pieces cost nothing.
void PiecesAgainstOnePiece(benchmark::State& state)
{
    const QByteArray record = RecordOf(LongRecord);
    double whole = 0.0;
    double pieces = 0.0;
    for (auto _ : state) {
        whole += SecondsOf(record, record.size());
        pieces += SecondsOf(record, Kilobyte);
    }
    state.counters["ratio"] = pieces / whole;
}
BENCHMARK(PiecesAgainstOnePiece)->Iterations(5)->Unit(benchmark::kMillisecond);

/// The reference: copying a record's characters.
void BareCopy(benchmark::State& state)
{
    const QString text = FromCodePage(RecordOf(LongRecord));
    QString copy(text.size(), Qt::Uninitialized);
    for (auto _ : state) {
        std::memcpy(copy.data(), text.constData(),
                    static_cast<std::size_t>(text.size()) * sizeof(QChar));
        benchmark::ClobberMemory();
    }
    CountBytes(state, text.size());
}
BENCHMARK(BareCopy)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
