// Rounded assignment against the plain library rounding it is built on.
#include "cfloatfield.h"

#include <benchmark/benchmark.h>

#include <cmath>

namespace {

void BM_StdRoundToCents(benchmark::State& state)
{
    double v = 1234.5678;
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::round(v * 100.0) / 100.0);
        v += 0.001;
    }
}

void BM_RoundFloatAtDecision(benchmark::State& state)
{
    double v = 1234.5678;
    for (auto _ : state) {
        benchmark::DoNotOptimize(RoundFloatAtDecision(v, 2));
        v += 0.001;
    }
}

void BM_FloatFieldAssign(benchmark::State& state)
{
    CFloatField field(0.0, 0);
    double v = 1234.5678;
    for (auto _ : state) {
        field = v;
        benchmark::DoNotOptimize(field.m_value);
        v += 0.001;
    }
}

} // namespace

BENCHMARK(BM_StdRoundToCents);
BENCHMARK(BM_RoundFloatAtDecision);
BENCHMARK(BM_FloatFieldAssign);
