#include <array>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

/// Writes the NC program of the benchmark: makeProgram BLOCKS FILE.
/// Everything is drawn from one fixed seed in whole ten-thousandths of a millimetre, without the
/// library's distributions and without floating point, so every machine gets the same bytes.

namespace {

class Random {
public:
    /// Even enough for a benchmark; `bound` is far below 2^64, so the bias of the remainder is nil.
    std::uint64_t below(std::uint64_t bound) noexcept { return next() % bound; }

    /// A whole number from -`limit` to `limit`.
    std::int64_t within(std::int64_t limit) noexcept {
        return static_cast<std::int64_t>(below(static_cast<std::uint64_t>(2 * limit + 1))) - limit;
    }

private:
    /// SplitMix64.
    std::uint64_t next() noexcept {
        m_state += 0x9E3779B97F4A7C15U;
        std::uint64_t z = m_state;
        z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
        return z ^ (z >> 31U);
    }

    std::uint64_t m_state = 20240229;
};

struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};

enum class Kind { kPoint, kFeed, kRapid, kArc };

constexpr std::int64_t kUnitsPerMillimetre = 10000;

/// Rotations with whole-number sides keep an arc's end on its circle to half a unit.
struct Rotation {
    std::int64_t cosine, sine, hypotenuse;
};
constexpr std::array<Rotation, 8> kRotations{{{3, 4, 5},
                                              {-4, 3, 5},
                                              {5, -12, 13},
                                              {-12, -5, 13},
                                              {0, 1, 1},
                                              {-1, 0, 1},
                                              {15, 8, 17},
                                              {-7, 24, 25}}};

class ProgramWriter {
public:
    explicit ProgramWriter(std::FILE* file) noexcept : m_file(file) {}

    void writeHeader() {
        for (const std::string_view text : {"(benchmark program)", "G21 G17", "G90 G94 F1500.",
                                            "T1 M6", "S12000 M3", "M8", "G0 X0.000 Y0.000 Z25.000"})
            writeBlock(text);
    }

    void writeFooter() {
        for (const std::string_view text : {"M9", "M5", "M30"}) {
            writeBlock(text);
        }
    }

    /// Ten blocks: six points alone, two feed moves, one rapid, one arc, in random order. A point
    /// alone must not continue an arc, since it has no centre; so one of the other commands always
    /// follows the arc.
    void writeTenBlocks() {
        std::array<Kind, 9> order{Kind::kPoint, Kind::kPoint, Kind::kPoint,
                                  Kind::kPoint, Kind::kPoint, Kind::kPoint,
                                  Kind::kFeed,  Kind::kArc,   Kind::kFeed};
        Kind afterArc = Kind::kRapid;
        if (m_random.below(3) != 0) {
            std::swap(afterArc, order.back());
        }
        for (std::size_t i = order.size() - 1; i > 0; --i) {
            std::swap(order[i], order[m_random.below(i + 1)]);
        }
        for (const Kind kind : order) {
            writeMove(kind);
            if (kind == Kind::kArc) {
                writeMove(afterArc);
            }
        }
    }

    void writePoint() { writeMove(Kind::kPoint); }

private:
    void writeMove(Kind kind) {
        m_text.clear();
        switch (kind) {
        case Kind::kPoint:
            addPoint();
            break;
        case Kind::kFeed:
            m_text += "G1 ";
            addPoint();
            m_text += " F";
            m_text += std::to_string(100 + m_random.below(50) * 50);
            m_text += '.';
            break;
        case Kind::kRapid:
            m_text += "G0 ";
            addPoint();
            break;
        case Kind::kArc:
            addArc();
            break;
        }
        writeBlock(m_text);
    }

    void addPoint() {
        m_x = coordinate(300);
        m_y = coordinate(300);
        addWord('X', m_x);
        m_text += ' ';
        addWord('Y', m_y);
        m_text += ' ';
        addWord('Z', coordinate(50));
    }

    void addArc() {
        // A radius of at least a millimetre keeps start, centre and end apart. A centre on an axis
        // of the coordinate system is avoided: the sign of a sum that cancels out depends on how
        // the two numbers were rounded.
        std::int64_t i = 0;
        std::int64_t j = 0;
        do {
            i = coordinate(40);
            j = m_random.below(8) == 0 ? 0 : coordinate(40);
        } while (i * i + j * j < kUnitsPerMillimetre * kUnitsPerMillimetre || m_x + i == 0 ||
                 m_y + j == 0);
        const Rotation& turn = kRotations[m_random.below(kRotations.size())];
        const std::int64_t endX = m_x + i + divided(-turn.cosine * i + turn.sine * j, turn);
        const std::int64_t endY = m_y + j + divided(-turn.sine * i - turn.cosine * j, turn);
        m_text += m_random.below(2) == 0 ? "G2 " : "G3 ";
        addWord('X', endX);
        m_text += ' ';
        addWord('Y', endY);
        m_text += ' ';
        addWord('I', i);
        m_text += ' ';
        addWord('J', j);
        m_x = endX;
        m_y = endY;
    }

    /// Half of the coordinates have three decimals, half four.
    std::int64_t coordinate(std::int64_t limitMillimetres) {
        const std::int64_t units = m_random.within(limitMillimetres * kUnitsPerMillimetre);
        return m_random.below(2) == 0 ? units : units / 10 * 10;
    }

    static std::int64_t divided(std::int64_t product, const Rotation& turn) noexcept {
        const std::int64_t half = product < 0 ? -turn.hypotenuse / 2 : turn.hypotenuse / 2;
        return (product + half) / turn.hypotenuse;
    }

    void addWord(char address, std::int64_t units) {
        const std::int64_t magnitude = units < 0 ? -units : units;
        m_text += address;
        if (units < 0) {
            m_text += '-';
        }
        m_text += std::to_string(magnitude / kUnitsPerMillimetre);
        m_text += '.';
        std::string fraction =
            std::to_string(kUnitsPerMillimetre + magnitude % kUnitsPerMillimetre);
        if (fraction.back() == '0') {
            fraction.pop_back();
        }
        m_text.append(fraction, 1);
    }

    void writeBlock(std::string_view text) {
        ++m_number;
        m_line.clear();
        if (m_random.below(2) == 0) {
            addNumbered("N", m_number % 100000, " ");
        }
        const bool comment = m_random.below(50) == 0;
        const bool commentFirst = comment && m_random.below(2) == 0;
        if (commentFirst) {
            addNumbered("(pass ", m_number, ") ");
        }
        m_line += text;
        if (comment && !commentFirst) {
            addNumbered(" (pass ", m_number, ")");
        }
        m_line += '\n';
        std::fwrite(m_line.data(), 1, m_line.size(), m_file);
    }

    void addNumbered(std::string_view before, std::uint64_t number, std::string_view after) {
        m_line += before;
        m_line += std::to_string(number);
        m_line += after;
    }

    std::FILE* m_file;
    Random m_random;
    std::string m_text; ///< the words of the block
    std::string m_line; ///< the whole block
    std::uint64_t m_number = 0;
    std::int64_t m_x = 0;
    std::int64_t m_y = 0;
};

constexpr std::uint64_t kFrameBlocks = 10; ///< header and footer together

} // namespace

int main(int argc, char** argv) {
    std::uint64_t blocks = 0;
    if (argc != 3 ||
        std::from_chars(argv[1], argv[1] + std::strlen(argv[1]), blocks).ec != std::errc{} ||
        blocks < kFrameBlocks) {
        std::fputs("usage: makeProgram BLOCKS FILE (at least 10 blocks)\n", stderr);
        return EXIT_FAILURE;
    }
    std::unique_ptr<std::FILE, CloseFile> file(std::fopen(argv[2], "w"));
    if (!file) {
        std::fprintf(stderr, "makeProgram: %s: %s\n", argv[2], std::strerror(errno));
        return EXIT_FAILURE;
    }
    ProgramWriter writer(file.get());
    writer.writeHeader();
    std::uint64_t rest = blocks - kFrameBlocks;
    for (; rest >= 10; rest -= 10) {
        writer.writeTenBlocks();
    }
    for (; rest > 0; --rest) {
        writer.writePoint();
    }
    writer.writeFooter();
    const bool failed = std::ferror(file.get()) != 0;
    if (std::fclose(file.release()) != 0 || failed) {
        std::fprintf(stderr, "makeProgram: cannot write %s\n", argv[2]);
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
