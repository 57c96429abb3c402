#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

/// Runs the contestants of the benchmark as whole processes, by turns, so that what else goes on on
/// the machine hits all alike; checks what they write; prints the table and the goals.
///
///     runBench PROGRAMS QUILLMARK SOURCES WORK [RS274]
///
/// PROGRAMS is the folder of the built contestants, SOURCES the folder with mill.pp and small.*,
/// and WORK an empty folder but for part.nc, long.nc (four times the blocks), wide.pp, and loop.nc,
/// which computes the blocks of written.nc.
/// Exit status: 0 when every output is what it must be, whether or not the goals are met; else 1.
///
/// This process stays small: a child's peak memory is at least what it has before it becomes the
/// contestant.

namespace {

constexpr int kRounds = 5;
constexpr int kQuickTurns = 3; ///< of a quick contestant in a round
constexpr int kSmallRounds = 500;
constexpr double kPartBlocks = 1e6;

/// An output that is not what it must be, or a contestant that does not run. Ends the benchmark.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

File openToRead(const std::string& name) {
    File file(std::fopen(name.c_str(), "rb"));
    if (!file) {
        throw Failure(name + ": " + std::strerror(errno));
    }
    return file;
}

/// Calls `use` with every line of a file, its end included. Lines are far shorter than the buffer.
template<typename Use>
void forEachLine(const std::string& name, Use use) {
    const File file = openToRead(name);
    std::array<char, 512> line;
    while (std::fgets(line.data(), static_cast<int>(line.size()), file.get()) != nullptr) {
        use(std::string_view(line.data()));
    }
}

void requireSameBytes(const std::string& name, const std::string& expected) {
    const File left = openToRead(name);
    const File right = openToRead(expected);
    static std::array<std::array<char, 64 * 1024>, 2> buffer;
    std::uint64_t offset = 0;
    for (;;) {
        const std::size_t leftSize = std::fread(buffer[0].data(), 1, buffer[0].size(), left.get());
        const std::size_t rightSize =
            std::fread(buffer[1].data(), 1, buffer[1].size(), right.get());
        const std::size_t common = std::min(leftSize, rightSize);
        const auto differing = std::mismatch(
            buffer[0].begin(), buffer[0].begin() + static_cast<std::ptrdiff_t>(common),
            buffer[1].begin());
        const auto same = static_cast<std::size_t>(differing.first - buffer[0].begin());
        if (same < common || leftSize != rightSize) {
            throw Failure(name + " differs from " + expected + " at byte " +
                          std::to_string(offset + same));
        }
        if (common == 0) {
            return;
        }
        offset += common;
    }
}

/// The log holds its banner and a blank line, every block between line ends, and every statement.
/// The blocks of the benchmark are neither indented nor followed by blanks.
void requireWholeLog(const std::string& log, const std::string& nc, const std::string& apt) {
    std::uint64_t expected = 0;
    forEachLine(nc, [&](std::string_view line) { expected += line.size() + 1; });
    forEachLine(apt, [&](std::string_view line) { expected += line.size(); });
    std::uint64_t banner = 0;
    std::uint64_t found = 0;
    std::uint64_t lines = 0;
    forEachLine(log, [&](std::string_view line) {
        (lines < 2 ? banner : found) += line.size();
        ++lines;
    });
    if (found != expected) {
        throw Failure(log + ": " + std::to_string(found) + " bytes behind the banner, not " +
                      std::to_string(expected));
    }
}

std::uint64_t countAptMoves(const std::string& apt) {
    std::uint64_t moves = 0;
    forEachLine(apt, [&](std::string_view line) {
        moves += line.starts_with("GOTO/") || line.starts_with("TLON,GOFWD/") ? 1U : 0U;
    });
    return moves;
}

std::uint64_t countCanonicalMoves(const std::string& canon) {
    std::uint64_t moves = 0;
    forEachLine(canon, [&](std::string_view line) {
        for (const std::string_view call : {"STRAIGHT_FEED(", "STRAIGHT_TRAVERSE(", "ARC_FEED("}) {
            moves += line.find(call) != std::string_view::npos ? 1U : 0U;
        }
    });
    return moves;
}

double seconds(const timespec& time) noexcept {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double seconds(const timeval& time) noexcept {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

timespec now() noexcept {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time;
}

/// A program with its arguments, and what its runs took.
struct Contestant {
    std::string name;
    std::vector<std::string> command;
    std::string output; ///< removed before every run, so that each one makes a new file
    std::vector<double> wall{};
    std::vector<double> processor{};
    long peakKibibytes = 0;
};

/// Where a child notes the time at which it becomes the contestant: the cost of the fork is not
/// the contestant's.
timespec* startOfChild() {
    static auto* const page = static_cast<timespec*>(
        mmap(nullptr, sizeof(timespec), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    if (page == MAP_FAILED) {
        throw Failure("no memory to share with the contestants");
    }
    return page;
}

[[noreturn]] void becomeContestant(char* const* arguments, const char* folder, timespec* start) {
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDIN_FILENO);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    close(nowhere);
    if (chdir(folder) == 0) {
        *start = now();
        execv(arguments[0], arguments);
    }
    _exit(127);
}

void run(Contestant& contestant, const std::string& folder) {
    if (!contestant.output.empty()) {
        unlink(contestant.output.c_str());
    }
    std::vector<char*> arguments;
    for (std::string& argument : contestant.command) {
        arguments.push_back(argument.data());
    }
    arguments.push_back(nullptr);
    timespec* const start = startOfChild();
    const pid_t child = fork();
    if (child == 0) {
        becomeContestant(arguments.data(), folder.c_str(), start);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child) {
        throw Failure(contestant.name + ": " + std::strerror(errno));
    }
    const double end = seconds(now());
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        throw Failure(contestant.name + " fails: " + contestant.command[0]);
    }
    contestant.wall.push_back(end - seconds(*start));
    contestant.processor.push_back(seconds(usage.ru_utime) + seconds(usage.ru_stime));
    contestant.peakKibibytes = std::max(contestant.peakKibibytes, usage.ru_maxrss);
}

/// The middle value of an odd number of runs, the upper one of the two in the middle otherwise.
double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void printRow(const Contestant& contestant, double blocks) {
    const auto [least, most] = std::minmax_element(contestant.wall.begin(), contestant.wall.end());
    const double middle = median(contestant.wall);
    std::printf("%-34s %4zu %10.2f %10.2f %10.2f %10.2f %9.1f", contestant.name.c_str(),
                contestant.wall.size(), middle * 1e3, *least * 1e3, *most * 1e3,
                median(contestant.processor) * 1e3,
                static_cast<double>(contestant.peakKibibytes) / 1024);
    if (blocks > 0) {
        std::printf(" %9.2f\n", blocks / middle * 1e-6);
    } else {
        std::printf(" %9s\n", "-");
    }
}

enum class Bound { kAtLeast, kAtMost, kNone };

void printVerdict(double value, Bound bound, double goal) {
    if (bound == Bound::kNone) {
        std::printf("  no goal\n");
        return;
    }
    const bool met = bound == Bound::kAtLeast ? value >= goal : value <= goal;
    std::printf("  %s %5.2f  %s\n", bound == Bound::kAtLeast ? ">=" : "<=", goal,
                met ? "met" : "MISSED");
}

/// The wall clock decides; on a busy machine the processor time tells how far to trust it.
void printRatio(const char* text, const Contestant& over, const Contestant& under, Bound bound,
                double goal) {
    const double wall = median(over.wall) / median(under.wall);
    std::printf("%-52s %8.2f %8.2f", text, wall, median(over.processor) / median(under.processor));
    printVerdict(wall, bound, goal);
}

void printMemory(const char* text, long kibibytes, double goal) {
    const double mebibytes = static_cast<double>(kibibytes) / 1024;
    std::printf("%-52s %8.2f %8s", text, mebibytes, "-");
    printVerdict(mebibytes, Bound::kAtMost, goal);
}

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
            run(m_empty, m_work);
            run(m_emptyRuntime, m_work);
        }
    }

    void print() const {
        std::printf(
            "\nWhole processes, wall clock in milliseconds; processor time in the column CPU.\n");
        std::printf("%-34s %4s %10s %10s %10s %10s %9s %9s\n", "contestant", "runs", "median",
                    "min", "max", "CPU", "peak MiB", "Mblocks/s");
        for (const Contestant* contestant : {&m_plain, &m_logged, &m_wide, &m_naive, &m_limit,
                                             &m_limitOwnDigits, &m_loop, &m_written, &m_allKeys}) {
            printRow(*contestant, kPartBlocks);
        }
        for (const auto& others : {m_before, m_view, m_rs274}) {
            for (const Contestant& contestant : others) {
                printRow(contestant, kPartBlocks);
            }
        }
        printRow(m_long, 4 * kPartBlocks);
        printRow(m_small, 0);
        printRow(m_empty, 0);
        printRow(m_emptyRuntime, 0);
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

    void runAndCompare(Contestant& contestant, const std::string& expected) const {
        run(contestant, m_work);
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
        for (const auto& [nc, apt] :
             {std::pair{part(), m_partApt}, {m_longNc, m_longApt}, {m_writtenNc, m_writtenApt}}) {
            Contestant reference{"naive", {m_programs + "/naive", nc, apt}, apt};
            run(reference, m_work);
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
            for (Contestant& contestant : m_before) {
                turns.emplace_back([this, &contestant] { runAndCompare(contestant, m_partApt); });
            }
            for (Contestant& contestant : m_view) {
                turns.emplace_back([this, &contestant] { run(contestant, m_work); });
            }
        }
        turns.emplace_back([this] { runAndCompare(m_naive, m_partApt); });
        for (std::size_t k = 0; k < m_rs274.size(); ++k) {
            turns.emplace_back([this, k] { runInterpreter(m_rs274[k], m_moves.at(k)); });
        }
        std::shuffle(turns.begin(), turns.end(), m_random);
        for (const auto& turn : turns) {
            turn();
        }
    }

    /// Its output tells units as well, and the feed in another place.
    void runWithAllKeys() {
        run(m_allKeys, m_work);
        const std::uint64_t moves = countAptMoves(m_allKeys.output);
        if (moves != m_moves[0]) {
            throw Failure(m_allKeys.name + " makes " + std::to_string(moves) + " moves, not " +
                          std::to_string(m_moves[0]));
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
        run(contestant, m_work);
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
        }
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
    std::vector<Contestant> m_rs274;  ///< of part and loop, or none when it is not installed
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
