#include "apt/AResLinearMovement.h"
#include "apt/fixedNumber.h"
#include "commands/MachineStatus.h"
#include "commands/Parameter.h"
#include "commands/ncNumber.h"
#include "driver/NCScan.h"
#include "include/quillmark_messages.h"
#include "paramfile/ParamScan.h"
#include "softCommon/FileOwner.h"

#include <array>
#include <benchmark/benchmark.h>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <string>

/// Benchmarks of what matters inside: a number in, a word out of a block, a number out, a statement
/// out, whole blocks through all recognisers, and a message. The standard library's ways of reading
/// and printing a coordinate are the yardsticks.

namespace {

void printWithToChars(benchmark::State& state) {
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
BENCHMARK(printWithToChars);

void printNumber(benchmark::State& state) {
    std::array<char, 64> text;
    double coordinate = -253.4731;
    for (auto _ : state) {
        benchmark::DoNotOptimize(coordinate);
        benchmark::DoNotOptimize(
            writeFixed<11, 5>(text.data(), text.data() + text.size(), coordinate));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(printNumber);

void readWithFromChars(benchmark::State& state) {
    const char* text = "253.4731 Y";
    for (auto _ : state) {
        benchmark::DoNotOptimize(text);
        double value = 0.0;
        benchmark::DoNotOptimize(std::from_chars(text, text + 8, value).ptr);
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(readWithFromChars);

void readOneNumber(benchmark::State& state) {
    const char* text = "253.4731 Y";
    for (auto _ : state) {
        benchmark::DoNotOptimize(text);
        benchmark::DoNotOptimize(readNumber(text, -1, '.').value);
    }
}
BENCHMARK(readOneNumber);

void takeOneWord(benchmark::State& state) {
    MachineStatus status;
    status.InitDecimalSeparator(".");
    Parameter word("X");
    std::array<char, 64> block{};
    for (auto _ : state) {
        std::strcpy(block.data(), "X-253.4731 Y-219.295 Z-6.933");
        benchmark::DoNotOptimize(word.scanNC(block.data(), &status));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(takeOneWord);

void writeOneStatement(benchmark::State& state) {
    const FileOwner sink(std::fopen("/dev/null", "w"));
    AResLinearMovement writer(sink.get(), nullptr);
    double x = -253.4731;
    double y = -219.295;
    double z = -6.933;
    for (auto _ : state) {
        writer.InitOutput(FALSE, x, y, z);
    }
}
BENCHMARK(writeOneStatement);

/// One block, given by its text, a thousand times through everything between two files.
void convertBlocks(benchmark::State& state, const char* block) {
    constexpr int kBlocks = 1000;
    const FileOwner program(std::tmpfile());
    for (int i = 0; i < kBlocks; ++i) {
        std::fprintf(program.get(), "%s\n", block);
    }
    std::fflush(program.get());
    const std::string name = "/dev/fd/" + std::to_string(fileno(program.get()));
    NCScan scan;
    ParamScan dialect(scan);
    if (scan.SetOutputType(eOutputAPT, "/dev/null", nullptr) != 0 ||
        dialect.SetParameterFile(QUILLMARK_BENCH_DIALECT) != 0 || dialect.run() != 0) {
        state.SkipWithError("the dialect cannot be read");
        return;
    }
    for (auto _ : state) {
        if (scan.SetNCFileName(name.c_str()) != 0 || scan.run() != 0) {
            state.SkipWithError("the program cannot be read");
            return;
        }
    }
    state.SetItemsProcessed(state.iterations() * kBlocks);
}
BENCHMARK_CAPTURE(convertBlocks, point, "X-253.4731 Y-219.295 Z-6.933");
BENCHMARK_CAPTURE(convertBlocks, feedMove, "N16 G1 X1.3817 Y-228.0195 Z-36.0937 F1600.");
BENCHMARK_CAPTURE(convertBlocks, arc, "G2 X-197.2832 Y-233.8354 I33.5476 J13.801");
BENCHMARK_CAPTURE(convertBlocks, comment, "(roughing pass)");

/// A look-up reads the file from its start; this one finds the last of 10,000 messages.
void lookUpLastMessage(benchmark::State& state) {
    const FileOwner messages(std::tmpfile());
    for (int number = 10'000; number < 20'000; ++number) {
        std::fprintf(messages.get(), "%d 3\n&Message %d with one line of text, routine &C01\n",
                     number, number);
    }
    std::fflush(messages.get());
    const std::string name = "/dev/fd/" + std::to_string(fileno(messages.get()));
    setenv("QMBENCH", name.c_str(), 1);
    if (CatInitError("QMBENCH") != 0) {
        state.SkipWithError("the messages cannot be read");
        return;
    }
    for (auto _ : state) {
        char* const text = CatGetLongMessage(19'999);
        benchmark::DoNotOptimize(text);
        std::free(text);
    }
}
BENCHMARK(lookUpLastMessage)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
