#include "bench/Contestant.h"
#include "bench/Failure.h"
#include "bench/outputs.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <random>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

/// Runs the contestants of the benchmark as whole processes, by turns, so that what else goes on on
/// the machine hits all alike; checks what they write; prints the table and the goals.
///
///     runBench PROGRAMS QUILLMARK SOURCES WORK [RS274]
///
/// PROGRAMS is the folder of the built contestants, SOURCES the folder with mill.pp and small.*,
/// and WORK an empty folder but for part.nc, long.nc (four times the blocks), wide.pp, loop.nc,
/// which computes the blocks of written.nc, batch.nc (an eighth of part.nc), axes.pp, and what
/// makeMachining writes. Exit status: 0 when every output is what it must be, whether or not the
/// goals are met; else 1.
///
/// This process stays small: a child's peak memory is at least what it has before it becomes the
/// contestant.

namespace {

constexpr int kRounds = 5;
constexpr int kQuickTurns = 3; ///< of a quick contestant in a round
constexpr int kSmallRounds = 500;
constexpr double kPartBlocks = 1e6;
constexpr double kMachiningBlocks = 1e5;
constexpr int kBatchFiles = 8;

/// A program that is more than lines: with the dialect that reads it, and as the interpreter runs
/// it.
struct Machining {
    const char* name;
    std::string dialect;
    Contestant quillmark{};
    Contestant rs274{};
    std::uint64_t moves = 0;
    std::uint64_t points = 0; ///< of these movements
};

class Benchmark {
public:
    Benchmark(std::string programs, std::string quillmark, std::string sources, std::string work,
              const char* rs274)
        : m_programs(std::move(programs)), m_quillmark(std::move(quillmark)),
          m_sources(std::move(sources)), m_work(std::move(work)) {
        if (const char* const before = std::getenv("QUILLMARK_BEFORE")) {
            for (Contestant contestant : {m_plain, m_logged}) {
                contestant.name += ", before";
                contestant.command[0] = before;
                m_before.push_back(contestant);
            }
        }
        const std::string view = m_quillmark + "-view";
        if (access(view.c_str(), X_OK) == 0) {
            m_view.push_back({"quillmark-view --measure", {view, m_partApt, "--measure"}, {}});
        }
        addMachining(rs274);
        addBatches();
        if (rs274 != nullptr) {
            const std::string canon = m_work + "/part.canon";
            m_rs274.push_back({"rs274 -g", {rs274, "-g", part(), canon}, canon});
            m_rs274.push_back({"rs274 -g, computed", {rs274, "-g", m_loopNc, canon}, canon});
        }
    }

    void runAll() {
        checkSmallProgram();
        makeReferences();
        for (int round = 0; round < kRounds; ++round) {
            runRound();
        }
        for (int round = 0; round < kSmallRounds; ++round) {
            runAndCompare(m_small, m_sources + "/small.apt");
            m_empty.Run(m_work);
            m_emptyRuntime.Run(m_work);
        }
    }

    void print() const {
        std::printf(
            "\nWhole processes, wall clock in milliseconds; processor time in the column CPU.\n");
        std::printf("%-34s %4s %10s %10s %10s %10s %9s %9s\n", "contestant", "runs", "median",
                    "min", "max", "CPU", "peak MiB", "Mblocks/s");
        for (const Contestant* contestant : {&m_plain, &m_logged, &m_wide, &m_naive, &m_limit,
                                             &m_limitOwnDigits, &m_loop, &m_written, &m_allKeys}) {
            contestant->Print(kPartBlocks);
        }
        for (const auto& others : {m_before, m_view, m_rs274}) {
            for (const Contestant& contestant : others) {
                contestant.Print(kPartBlocks);
            }
        }
        for (const Machining& machining : m_machining) {
            machining.quillmark.Print(kMachiningBlocks);
            if (!m_rs274.empty()) {
                machining.rs274.Print(kMachiningBlocks);
            }
        }
        for (const Contestant& batch : m_batches) {
            batch.Print(kPartBlocks);
        }
        m_long.Print(4 * kPartBlocks);
        m_small.Print(0);
        m_empty.Print(0);
        m_emptyRuntime.Print(0);
        printGoals();
    }

private:
    [[nodiscard]] std::string part() const { return m_work + "/part.nc"; }

    [[nodiscard]] Contestant quillmark(const char* name, const std::string& dialect,
                                       const std::string& nc, const std::string& log = {}) const {
        Contestant contestant{name,
                              {m_quillmark, "-p", dialect, "-nc", nc, "-of", m_work + "/out.apt"},
                              m_work + "/out.apt"};
        if (!log.empty()) {
            contestant.command.insert(contestant.command.end(), {"-l", log});
        }
        return contestant;
    }

    /// A contestant with the dialect wired in.
    [[nodiscard]] Contestant wired(const char* name, const char* program,
                                   const std::string& nc) const {
        const std::string output = m_work + "/out.apt";
        return {name, {m_programs + "/" + program, nc, output}, output};
    }

    void addMachining(const char* rs274) {
        const std::string oWord = m_sources + "/../dialects/o-word-mill.pp";
        for (const auto& [name, dialect] :
             {std::pair{"cycles", oWord}, {"helices", oWord}, {"axes", m_work + "/axes.pp"}}) {
            Machining machining{name, dialect};
            const std::string nc = m_work + "/" + name + ".nc";
            const std::string title = std::string("quillmark, ") + name;
            machining.quillmark = quillmark(title.c_str(), dialect, nc);
            if (rs274 != nullptr) {
                const std::string canon = m_work + "/part.canon";
                machining.rs274 = {
                    std::string("rs274 -g, ") + name, {rs274, "-g", nc, canon}, canon};
            }
            m_machining.push_back(machining);
        }
    }

    /// The same eight programs by one process after the other, and by two at a time.
    void addBatches() {
        for (const char* const jobs : {"1", "2"}) {
            Contestant batch{std::string("8 files, --jobs ") + jobs,
                             {m_quillmark, "-p", m_dialect, "--into", m_work + "/batch", "--quiet",
                              "--jobs", jobs},
                             {}};
            for (int file = 0; file < kBatchFiles; ++file) {
                batch.command.push_back(batchFile(file) + ".nc");
            }
            m_batches.push_back(batch);
        }
    }

    [[nodiscard]] std::string batchFile(int file) const {
        return m_work + "/" + std::to_string(file);
    }

    void runAndCompare(Contestant& contestant, const std::string& expected) const {
        contestant.Run(m_work);
        requireSameBytes(contestant.output, expected);
    }

    /// Every contestant makes the one output of the small program that is written down.
    void checkSmallProgram() const {
        const std::string nc = m_sources + "/small.nc";
        for (Contestant contestant :
             {wired("naive loop", "naive", nc), wired("limit", "limit", nc),
              wired("limit with its own digits", "limitOwnDigits", nc), m_small}) {
            runAndCompare(contestant, m_sources + "/small.apt");
        }
    }

    /// The output of the plain loop is what all others are compared with.
    void makeReferences() {
        for (int file = 0; file < kBatchFiles; ++file) {
            if (symlink("batch.nc", (batchFile(file) + ".nc").c_str()) != 0) {
                throw Failure(batchFile(file) + " cannot be made");
            }
        }
        for (Machining& machining : m_machining) {
            std::ifstream(m_work + "/" + machining.name + ".moves") >> machining.moves >>
                machining.points;
        }
        for (const auto& [nc, apt] : {std::pair{part(), m_partApt},
                                      {m_longNc, m_longApt},
                                      {m_writtenNc, m_writtenApt},
                                      {m_work + "/batch.nc", m_batchApt}}) {
            Contestant reference{"naive", {m_programs + "/naive", nc, apt}, apt};
            reference.Run(m_work);
        }
        m_moves = {countAptMoves(m_partApt), countAptMoves(m_writtenApt)};
    }

    /// One round in a random order: what runs before a contestant has an effect on it. The quick
    /// contestants run more often, since a disturbance is a larger part of their time.
    void runRound() {
        std::vector<std::function<void()>> turns;
        for (int turn = 0; turn < kQuickTurns; ++turn) {
            for (Contestant* quick : {&m_plain, &m_wide, &m_limit, &m_limitOwnDigits}) {
                turns.emplace_back([this, quick] { runAndCompare(*quick, m_partApt); });
            }
            turns.emplace_back([this] { runAndCompare(m_long, m_longApt); });
            turns.emplace_back([this] { runAndCompare(m_loop, m_writtenApt); });
            turns.emplace_back([this] { runAndCompare(m_written, m_writtenApt); });
            turns.emplace_back([this] { runWithAllKeys(); });
            turns.emplace_back([this] { runLogged(); });
            for (Machining& machining : m_machining) {
                turns.emplace_back([this, &machining] { runMachining(machining); });
            }
            for (Contestant& batch : m_batches) {
                turns.emplace_back([this, &batch] { runBatch(batch); });
            }
            for (Contestant& contestant : m_before) {
                turns.emplace_back([this, &contestant] { runAndCompare(contestant, m_partApt); });
            }
            for (Contestant& contestant : m_view) {
                turns.emplace_back([this, &contestant] { contestant.Run(m_work); });
            }
        }
        turns.emplace_back([this] { runAndCompare(m_naive, m_partApt); });
        for (std::size_t k = 0; k < m_rs274.size(); ++k) {
            turns.emplace_back([this, k] { runInterpreter(m_rs274[k], m_moves.at(k)); });
        }
        if (!m_rs274.empty()) {
            for (Machining& machining : m_machining) {
                turns.emplace_back(
                    [this, &machining] { runInterpreter(machining.rs274, machining.moves); });
            }
        }
        std::shuffle(turns.begin(), turns.end(), m_random);
        for (const auto& turn : turns) {
            turn();
        }
    }

    /// Its output tells units as well, and the feed in another place.
    void runWithAllKeys() {
        m_allKeys.Run(m_work);
        const std::uint64_t moves = countAptMoves(m_allKeys.output);
        if (moves != m_moves[0]) {
            throw Failure(m_allKeys.name + " makes " + std::to_string(moves) + " moves, not " +
                          std::to_string(m_moves[0]));
        }
    }

    void runMachining(Machining& machining) const {
        machining.quillmark.Run(m_work);
        const std::uint64_t points = countAptMoves(machining.quillmark.output);
        if (points != machining.points) {
            throw Failure(machining.quillmark.name + " makes " + std::to_string(points) +
                          " points, not " + std::to_string(machining.points));
        }
    }

    void runBatch(Contestant& batch) const {
        batch.Run(m_work);
        for (int file = 0; file < kBatchFiles; ++file) {
            requireSameBytes(m_work + "/batch/" + std::to_string(file) + ".apt", m_batchApt);
        }
    }

    void runLogged() {
        unlink(m_log.c_str());
        runAndCompare(m_logged, m_partApt);
        requireWholeLog(m_log, part(), m_partApt);
    }

    /// The interpreter writes another language; it has done the same work when it has made as many
    /// moves.
    void runInterpreter(Contestant& contestant, std::uint64_t expected) const {
        contestant.Run(m_work);
        const std::uint64_t moves = countCanonicalMoves(contestant.output);
        if (moves != expected) {
            throw Failure(contestant.name + " makes " + std::to_string(moves) + " moves, not " +
                          std::to_string(expected));
        }
    }

    void printGoals() const {
        std::printf("\n%-52s %8s %8s  %8s\n", "ratios of the medians", "wall", "CPU", "goal");
        printRatio("naive loop / quillmark", m_naive, m_plain, Bound::kAtLeast, 3);
        printRatio("quillmark / hand-tuned limit", m_plain, m_limit, Bound::kAtMost, 1.4);
        printRatio("quillmark / limit printing digits itself", m_plain, m_limitOwnDigits,
                   Bound::kNone, 0);
        printRatio("quillmark with log / without", m_logged, m_plain, Bound::kAtMost, 1.8);
        if (!m_before.empty()) {
            printRatio("quillmark / quillmark before", m_plain, m_before[0], Bound::kAtMost, 1.03);
            printRatio("the same with log", m_logged, m_before[1], Bound::kAtMost, 1.03);
        }
        if (!m_view.empty()) {
            printRatio("reading back and measuring / quillmark", m_view[0], m_plain, Bound::kAtMost,
                       2);
        }
        if (m_rs274.empty()) {
            std::printf("rs274 -g / quillmark: skipped, rs274 is not installed\n");
        } else {
            printRatio("rs274 -g / quillmark", m_rs274[0], m_plain, Bound::kAtLeast, 12);
            printRatio("rs274 -g / quillmark, blocks computed in a loop", m_rs274[1], m_loop,
                       Bound::kAtLeast, 12);
            for (const Machining& machining : m_machining) {
                const std::string text = std::string("rs274 -g / quillmark, ") + machining.name;
                printRatio(text.c_str(), machining.rs274, machining.quillmark, Bound::kAtLeast, 12);
            }
        }
        printRatio("8 files, one by one / two at a time", m_batches[0], m_batches[1], Bound::kNone,
                   0);
        printRatio("blocks computed in a loop / written out", m_loop, m_written, Bound::kAtMost,
                   2.5);
        printRatio("o-word dialect with all keys / plain dialect", m_allKeys, m_plain,
                   Bound::kAtMost, 1.6);
        printRatio("4,000,000 blocks / 1,000,000 blocks", m_long, m_plain, Bound::kAtMost, 4.3);
        printRatio("40 more commands / plain dialect", m_wide, m_plain, Bound::kAtMost, 1.15);
        printRatio("11 blocks / empty C++ program", m_small, m_empty, Bound::kAtMost, 1.5);
        // The same but for the pages that loading and address randomisation add by chance.
        printMemory("peak of 4,000,000 blocks less peak of 1,000,000, MiB",
                    m_long.peakKibibytes - m_plain.peakKibibytes, 0.25);
        printMemory("peak memory, MiB", largestPeak(), 8);
    }

    /// Of what is read as a stream: a program of a language is held, but not what it computes.
    [[nodiscard]] long largestPeak() const {
        return std::max({m_plain.peakKibibytes, m_logged.peakKibibytes, m_wide.peakKibibytes,
                         m_long.peakKibibytes, m_small.peakKibibytes, m_loop.peakKibibytes});
    }

    std::string m_programs;
    std::string m_quillmark;
    std::string m_sources;
    std::string m_work;

    std::string m_longNc = m_work + "/long.nc";
    std::string m_log = m_work + "/out.log";
    std::string m_loopNc = m_work + "/loop.nc";
    std::string m_writtenNc = m_work + "/written.nc";
    std::string m_partApt = m_work + "/part.apt";
    std::string m_longApt = m_work + "/long.apt";
    std::string m_writtenApt = m_work + "/written.apt";
    std::string m_batchApt = m_work + "/batch.apt";
    std::string m_dialect = m_sources + "/mill.pp";
    std::string m_computingDialect = m_work + "/computing.pp";
    std::array<std::uint64_t, 2> m_moves{}; ///< of the programs that m_rs274 run
    std::minstd_rand m_random;

    Contestant m_plain = quillmark("quillmark", m_dialect, part());
    Contestant m_logged = quillmark("quillmark -l", m_dialect, part(), m_log);
    Contestant m_wide = quillmark("quillmark, 40 more commands", m_work + "/wide.pp", part());
    Contestant m_long = quillmark("quillmark, 4,000,000 blocks", m_dialect, m_longNc);
    Contestant m_small = quillmark("quillmark, 11 blocks", m_dialect, m_sources + "/small.nc");
    Contestant m_loop = quillmark("quillmark, blocks computed", m_computingDialect, m_loopNc);
    Contestant m_written =
        quillmark("quillmark, the same written out", m_computingDialect, m_writtenNc);
    Contestant m_allKeys = quillmark("quillmark, o-word with all keys",
                                     m_sources + "/../dialects/o-word-mill.pp", part());
    Contestant m_naive = wired("naive loop", "naive", part());
    Contestant m_limit = wired("hand-tuned limit", "limit", part());
    Contestant m_limitOwnDigits = wired("limit printing digits itself", "limitOwnDigits", part());
    Contestant m_empty{"empty C++ program", {m_programs + "/empty"}, {}};
    Contestant m_emptyRuntime{"empty, C++ runtime loaded", {m_programs + "/emptyRuntime"}, {}};
    std::vector<Contestant> m_before; ///< without and with log, or none when no one is named
    std::vector<Contestant> m_view;   ///< reads what quillmark wrote; none when it is not built
    std::vector<Machining> m_machining;
    std::vector<Contestant> m_batches; ///< with one job and with two
    std::vector<Contestant> m_rs274;   ///< of part and loop, or none when it is not installed
};

} // namespace

int main(int argc, char** argv) {
    if (argc != 5 && argc != 6) {
        std::fputs("usage: runBench PROGRAMS QUILLMARK SOURCES WORK [RS274]\n", stderr);
        return EXIT_FAILURE;
    }
    try {
        Benchmark benchmark(argv[1], argv[2], argv[3], argv[4], argc == 6 ? argv[5] : nullptr);
        benchmark.runAll();
        benchmark.print();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "runBench: %s\n", failure.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
