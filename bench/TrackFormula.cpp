// Measures the evaluation of a stored formula into the text of a magnetic track.

#include "card/TrackFormula.h"
#include "card/FieldValues.h"
#include <benchmark/benchmark.h>

using namespace vantrel;

namespace {

FieldValues UsualRecord()
{
    FieldValues record;
    for (const char16_t* value : {u"4000123412341234", u" O'Neill - Anna ", u"1234"})
        record.Add(QString::fromUtf16(value));
    return record;
}

void Evaluate(benchmark::State& state, const QString& formula)
{
    const FieldValues record = UsualRecord();
    for (auto _ : state) {
        QString track;
        EvaluateTrack(formula, record, QLatin1Char('.'),
                      [&](TokenKind, const QString& text) { track += text; });
        benchmark::DoNotOptimize(track.data());
    }
    state.SetItemsProcessed(state.iterations() * (formula.count(u'~') + 1));
}

/// Every kind of token except AUTO, as on a bank card.
void FormulaOfTenTokens(benchmark::State& state)
{
    Evaluate(state, QStringLiteral("B~DAT1~CODABAR~SEP~DAT2~SEP~FD0^8^0^3~DAT3~MOD10~EBT"));
}
BENCHMARK(FormulaOfTenTokens);

/// Ten times as many tokens, to show that the time is linear.
void LongFormula(benchmark::State& state)
{
    const QString token = QStringLiteral("literal12~");
    Evaluate(state, token.repeated(state.range(0) - 1) + QStringLiteral("literal12"));
}
BENCHMARK(LongFormula)->ArgName("tokens")->Arg(100)->Arg(1000)->Arg(10000);

/// The reference: joining the characters of the track.
void BareJoin(benchmark::State& state)
{
    const FieldValues record = UsualRecord();
    for (auto _ : state) {
        QString track;
        for (int i = 0; i < 10; ++i)
            track += record.Item(1 + i % 3);
        benchmark::DoNotOptimize(track.data());
    }
}
BENCHMARK(BareJoin);

} // namespace

BENCHMARK_MAIN();
