#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <numbers>
#include <string>

/// Writes programs of work that is more than lines: makeMachining BLOCKS FOLDER.
///
/// | file | blocks |
/// |---|---|
/// | cycles.nc | holes in a grid, one in four with three pecks, the others drilled at once |
/// | helices.nc | full turns of a spiral stair of radius 5 to 8.5, 0.5 mm down each |
/// | axes.nc | straight ways with two rotary axes that turn by less than a degree |
///
/// Beside each NAME.nc, NAME.moves says how many movements it is made of, and how many points these
/// are at the default tolerance: "MOVES POINTS".

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

constexpr const char* kHead = "G21 G17 G90 G94 F1500.\nT1 M6\nS12000 M3\nG0 X0 Y0 Z25\n";
constexpr const char* kEnd = "M5\nM2\n";

struct Counts {
    unsigned long moves = 1; ///< the one of the head
    unsigned long points = 1;
};

// From 0 to half the period and back.
unsigned long upAndDown(unsigned long count, unsigned long period) noexcept {
    const unsigned long place = count % period;
    return place < period / 2 ? place : period - place;
}

// Between two holes the tool stays at the height of the clearance, but comes to it the first time.
Counts writeCycles(std::FILE* file, unsigned long blocks) {
    constexpr unsigned long kOfHole = 3;      // there, down, up
    constexpr unsigned long kOfPecks = 3 + 6; // and twice up and down again, with a rapid way back
    Counts counts;
    counts.moves += 1;
    std::fputs("G99\n", file);
    for (unsigned long k = 0; k < blocks; ++k) {
        const bool pecks = k % 4 == 3;
        std::fprintf(file, pecks ? "G83 X%lu Y%lu Z-9. R2. Q4.\n" : "G81 X%lu Y%lu Z-5. R2.\n",
                     k % 100 + 1, k / 100 % 100 + 1);
        counts.moves += pecks ? kOfPecks : kOfHole;
    }
    std::fputs("G80\n", file);
    counts.points = counts.moves;
    return counts;
}

Counts writeHelices(std::FILE* file, unsigned long blocks) {
    constexpr double kTolerance = 0.01;
    Counts counts;
    double x = 0.0;
    for (unsigned long k = 0; k < blocks; ++k) {
        const double radius = 5.0 + 0.5 * static_cast<double>(k % 8);
        std::fprintf(file, "G%d X%g Y0 Z%g I%g J0\n", k % 2 == 0 ? 2 : 3, x,
                     -0.5 * static_cast<double>(k % 40), radius);
        ++counts.moves;
        counts.points += static_cast<unsigned long>(
            std::ceil(std::numbers::pi / std::acos(1.0 - kTolerance / radius)));
    }
    return counts;
}

Counts writeAxes(std::FILE* file, unsigned long blocks) {
    Counts counts;
    for (unsigned long k = 0; k < blocks; ++k) {
        std::fprintf(file, "%sX%g Y%g Z%g A%g C%g\n", k == 0 ? "G1 " : "",
                     static_cast<double>(k % 320) / 8, static_cast<double>(k * 7 % 641) / 16,
                     static_cast<double>(k % 97) / 4,
                     -0.25 * static_cast<double>(upAndDown(k, 400)),
                     0.5 * static_cast<double>(upAndDown(k, 1440)));
        ++counts.moves;
    }
    counts.points = counts.moves;
    return counts;
}

bool writeFile(const std::string& name, unsigned long blocks,
               Counts (*write)(std::FILE*, unsigned long)) {
    const File program(std::fopen((name + ".nc").c_str(), "w"));
    const File moves(std::fopen((name + ".moves").c_str(), "w"));
    if (!program || !moves) {
        std::fprintf(stderr, "makeMachining: %s: %s\n", name.c_str(), std::strerror(errno));
        return false;
    }
    std::fputs(kHead, program.get());
    const Counts counts = write(program.get(), blocks);
    std::fputs(kEnd, program.get());
    std::fprintf(moves.get(), "%lu %lu\n", counts.moves, counts.points);
    if (std::fflush(program.get()) != 0 || std::fflush(moves.get()) != 0) {
        std::fprintf(stderr, "makeMachining: cannot write %s\n", name.c_str());
        return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv) {
    unsigned long blocks = 0;
    if (argc != 3 ||
        std::from_chars(argv[1], argv[1] + std::strlen(argv[1]), blocks).ec != std::errc{}) {
        std::fputs("usage: makeMachining BLOCKS FOLDER\n", stderr);
        return EXIT_FAILURE;
    }
    const std::string folder = argv[2];
    return writeFile(folder + "/cycles", blocks, writeCycles) &&
                   writeFile(folder + "/helices", blocks, writeHelices) &&
                   writeFile(folder + "/axes", blocks, writeAxes)
               ? EXIT_SUCCESS
               : EXIT_FAILURE;
}
