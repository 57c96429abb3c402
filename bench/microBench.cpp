#include <array>
#include <benchmark/benchmark.h>
#include <charconv>

/// Benchmarks of single functions. The standard library's way of printing a coordinate is the
/// yardstick for the writers.

namespace {

void toCharsFixed(benchmark::State& state) {
    std::array<char, 64> text;
    double coordinate = -253.4731;
    for (auto _ : state) {
        benchmark::DoNotOptimize(coordinate);
        const auto result = std::to_chars(text.data(), text.data() + text.size(), coordinate,
                                          std::chars_format::fixed, 5);
        benchmark::DoNotOptimize(result.ptr);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(toCharsFixed);

} // namespace

BENCHMARK_MAIN();
