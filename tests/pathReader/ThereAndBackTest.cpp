// Random programs are converted and the APT is read back: the path must be the one that was meant.

#include "path/vectorParts.h"
#include "tests/pathReader/readText.h"
#include "tests/support/convert.h"
#include "tests/support/dialects.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <numbers>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kInch = 25.4;

// What one block is meant to do, in mm.
struct Meant {
    std::uint32_t block = 0;
    MovementKind kind = MovementKind::kFeed;
    Point start{}, end{}, centre{}, normal{};
    double angle = 0.0;
    double feed = 0.0;
    double speed = 0.0;
    int tool = 0;
    SpindleState spindle = SpindleState::kOff;
    CoolantState coolant = CoolantState::kOff;
};

// The language of a dialect as far as the generator needs to know it.
struct Language {
    bool hasPlanes = false; ///< G17 to G19, helices, and arcs cut into pieces
    bool hasInches = false;
    bool leavesPlane = false;
};

class Generator {
public:
    Generator(unsigned seed, Language language) : m_random(seed), m_language(language) {}

    std::string Text() {
        m_isInch = m_language.hasInches && chance(3);
        if (m_language.hasInches) {
            block(m_isInch ? "G20" : "G21");
        }
        block("G00 X0 Y0 Z0 F100. S500");
        keep(MovementKind::kRapid, {0, 0, 0});
        for (int i = 0; i < 60; ++i) {
            addBlock();
        }
        return m_text;
    }
    [[nodiscard]] const std::vector<Meant>& Movements() const { return m_meant; }
    [[nodiscard]] double Unit() const { return m_isInch ? kInch : 1.0; }

private:
    void addBlock() {
        switch (below(12)) {
        case 0:
            m_now.tool = 1 + below(20);
            block("T" + std::to_string(m_now.tool) + " M6");
            break;
        case 1:
            m_now.spindle = std::array{SpindleState::kClockwise, SpindleState::kCounterclockwise,
                                       SpindleState::kOff}[static_cast<std::size_t>(below(3))];
            m_now.speed = m_now.spindle == SpindleState::kOff ? m_now.speed : 100 + below(5000);
            block(m_now.spindle == SpindleState::kOff
                      ? "M5"
                      : "S" + std::to_string(static_cast<int>(m_now.speed)) +
                            (m_now.spindle == SpindleState::kClockwise ? " M3" : " M4"));
            break;
        case 2:
            m_now.coolant = chance(2) ? CoolantState::kOn : CoolantState::kOff;
            block(m_now.coolant == CoolantState::kOn ? "M8" : "M9");
            break;
        case 3:
            if (m_language.hasPlanes) {
                m_plane = below(3);
                block(std::array{"G17", "G18", "G19"}[static_cast<std::size_t>(m_plane)]);
            }
            break;
        case 4:
            m_now.feed = (1 + below(5000)) / 4.0;
            block("F" + number(m_now.feed));
            m_now.feed *= Unit();
            break;
        case 5:
        case 6:
        case 7:
            addArc();
            break;
        default:
            addStraight();
        }
    }

    void addStraight() {
        const bool isRapid = chance(3);
        const Point end{place(), place(), place()};
        block((isRapid ? "G00" : "G01") + words(end));
        keep(isRapid ? MovementKind::kRapid : MovementKind::kFeed, end);
    }

    // The arms are rounded to the digits of the text, and so is the end: on the circle by these.
    void addArc() {
        const auto a =
            static_cast<std::size_t>(std::array{0, 2, 1}[static_cast<std::size_t>(m_plane)]);
        const auto b = (a + 1) % 3;
        const auto c = (a + 2) % 3;
        const bool isClockwise = chance(2);
        const bool isFull = chance(6);
        const double radius = 1.0 + below(400000) / 1e4;
        const double from = below(1000000) / 1e6 * 2 * kPi;
        const double sweep = isFull ? 2 * kPi : 0.02 + below(1000000) / 1e6 * (2 * kPi - 0.04);
        const double to = isClockwise ? from - sweep : from + sweep;
        m_now.centre = m_place;
        m_now.centre[a] = rounded(m_place[a] - radius * std::cos(from));
        m_now.centre[b] = rounded(m_place[b] - radius * std::sin(from));
        Point end = m_place;
        if (!isFull) {
            end[a] = rounded(m_now.centre[a] + radius * std::cos(to));
            end[b] = rounded(m_now.centre[b] + radius * std::sin(to));
        }
        if (m_language.hasPlanes && chance(3)) {
            end[c] = place();
        }
        m_now.normal = {0, 0, 0};
        m_now.normal[c] = isClockwise ? -1.0 : 1.0;
        const double first = std::atan2(m_place[b] - m_now.centre[b], m_place[a] - m_now.centre[a]);
        const double last = std::atan2(end[b] - m_now.centre[b], end[a] - m_now.centre[a]);
        const double turn =
            std::fmod((isClockwise ? first - last : last - first) + 4 * kPi, 2 * kPi);
        m_now.angle = isFull ? 2 * kPi : turn;
        std::string text = (isClockwise ? "G02" : "G03") + words(end);
        const char* const names = "IJK";
        for (const std::size_t axis : {a, b}) {
            text += std::string(" ") + names[axis] + number(m_now.centre[axis] - m_place[axis]);
        }
        block(text);
        for (double& value : m_now.centre) {
            value *= Unit();
        }
        keep(MovementKind::kArc, end);
    }

    void keep(MovementKind kind, const Point& end) {
        m_now.kind = kind;
        m_now.block = m_blocks - 1;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            m_now.start[axis] = m_place[axis] * Unit();
            m_now.end[axis] = end[axis] * Unit();
        }
        m_place = end;
        m_meant.push_back(m_now);
        if (m_meant.size() == 1) {
            m_meant.back().feed = m_now.feed = 100.0 * Unit();
        }
    }

    void block(const std::string& text) {
        m_text += text + "\n";
        ++m_blocks;
    }
    std::string words(const Point& end) {
        return " X" + number(end[0]) + " Y" + number(end[1]) + " Z" + number(end[2]);
    }
    static std::string number(double value) {
        char text[64];
        (void)std::snprintf(text, sizeof text, "%.5f", value);
        return text;
    }
    static double rounded(double value) { return std::round(value * 1e5) / 1e5; }
    double place() { return (below(2000000) - 1000000) / 1e4; }
    int below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }
    bool chance(int bound) { return below(bound) == 0; }

    std::mt19937 m_random;
    Language m_language;
    std::string m_text;
    std::uint32_t m_blocks = 0;
    std::vector<Meant> m_meant;
    Meant m_now;
    Point m_place{};
    int m_plane = 0;
    bool m_isInch = false;
};

gmVector3 vectorOf(const Point& point) { return {point[0], point[1], point[2]}; }

// How far a point is from the way that is meant, a helix included: its angle tells its height. What
// its digits move it along the way does not count.
double offTheArc(const Meant& meant, const gmVector3& point) {
    const gmVector3 normal = vectorOf(meant.normal);
    const gmVector3 start = vectorOf(meant.start);
    const gmVector3 arm = across(start - vectorOf(meant.centre), normal);
    const gmVector3 side = cross(normal, arm);
    const gmVector3 out = point - vectorOf(meant.centre);
    const gmVector3 rise = normal * (dotProduct(vectorOf(meant.end) - start, normal) / meant.angle);
    double angle = std::atan2(dotProduct(out, side), dotProduct(out, arm));
    angle += angle < -1e-4 ? 2 * kPi : 0.0;
    double best = 1e9;
    for (const double turned : {angle, angle + 2 * kPi}) {
        const double c = std::cos(turned);
        const double s = std::sin(turned);
        gmVector3 along = side * c - arm * s + rise;
        along *= 1.0 / along.length();
        const gmVector3 off = point - (start - arm + arm * c + side * s + rise * turned);
        best = std::min(best, across(off, along).length());
    }
    return best;
}

class Comparison {
public:
    Comparison(const ToolPath& path, double unit) : m_path(path), m_grain(0.87e-5 * unit + 1e-9) {}

    // The movements of the block are what is meant.
    void Expect(const Meant& meant) {
        const std::size_t first = m_next;
        while (m_next < m_path.movements.size() &&
               m_path.BlockOf(m_path.movements[m_next]) == meant.block) {
            ++m_next;
        }
        ASSERT_GT(m_next, first) << "nothing moves: " << m_path.blocks.Text(meant.block);
        const ToolMovement& last = m_path.movements[m_next - 1];
        EXPECT_LT((last.end - vectorOf(meant.end)).length(), m_grain);
        const ToolState& state = m_path.StateOf(last);
        EXPECT_NEAR(state.feed, meant.feed, 1e-4);
        EXPECT_EQ(state.tool.value_or(0), meant.tool);
        EXPECT_EQ(state.spindle, meant.spindle);
        EXPECT_EQ(state.coolant, meant.coolant);
        if (meant.spindle != SpindleState::kOff) {
            EXPECT_EQ(state.speed, meant.speed);
        }
        if (meant.kind != MovementKind::kArc) {
            EXPECT_EQ(m_next, first + 1);
            EXPECT_EQ(last.kind, meant.kind);
        } else if (last.IsArc()) {
            expectPieces(meant, first);
        } else {
            expectPoints(meant, first);
        }
    }
    void ExpectEnd() const { EXPECT_EQ(m_next, m_path.movements.size()); }
    [[nodiscard]] std::size_t Pieces() const { return m_pieces; }
    [[nodiscard]] std::size_t Points() const { return m_points; }

private:
    void expectPieces(const Meant& meant, std::size_t first) {
        double angle = 0.0;
        for (std::size_t i = first; i < m_next; ++i) {
            ASSERT_TRUE(m_path.movements[i].IsArc());
            const ToolArc& arc = m_path.arcs[m_path.movements[i].arc];
            EXPECT_LT((arc.centre - vectorOf(meant.centre)).length(), m_grain);
            EXPECT_LT((arc.normal - vectorOf(meant.normal)).length(), 1e-9);
            EXPECT_LT(offTheArc(meant, m_path.PointAt(i, 0.5)), 4 * m_grain);
            angle += arc.angle;
            ++m_pieces;
        }
        const double radius = (vectorOf(meant.start) - vectorOf(meant.centre)).length();
        EXPECT_NEAR(angle, meant.angle, 4 * m_grain / radius);
    }

    void expectPoints(const Meant& meant, std::size_t first) {
        constexpr double kTolerance = 0.01;
        for (std::size_t i = first; i < m_next; ++i) {
            ASSERT_EQ(m_path.movements[i].kind, MovementKind::kFeed);
            EXPECT_LT(offTheArc(meant, m_path.movements[i].end), 4 * m_grain);
            EXPECT_LT(offTheArc(meant, m_path.PointAt(i, 0.5)), kTolerance + 4 * m_grain);
            ++m_points;
        }
    }

    const ToolPath& m_path;
    double m_grain;
    std::size_t m_next = 0;
    std::size_t m_pieces = 0;
    std::size_t m_points = 0;
};

void convertAndReadBack(const std::string& dialect, Language language, unsigned programs) {
    std::size_t pieces = 0;
    std::size_t points = 0;
    for (unsigned seed = 1; seed <= programs && !testing::Test::HasFailure(); ++seed) {
        Generator generator(seed, language);
        const std::string nc = generator.Text();
        const Conversion result = convert(dialect, nc);
        ASSERT_EQ(result.code, 0) << nc << result.log;
        ToolPath path = pathOf(result.apt);
        ASSERT_EQ(addBlocks(path, std::string(kLogHead) + result.log, result.apt), "");
        EXPECT_EQ(path.unknown.Rows().size(), 0U);
        Comparison comparison(path, generator.Unit());
        for (const Meant& meant : generator.Movements()) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", block " + std::to_string(meant.block));
            comparison.Expect(meant);
            if (testing::Test::HasFailure()) {
                return;
            }
        }
        comparison.ExpectEnd();
        pieces += comparison.Pieces();
        points += comparison.Points();
    }
    EXPECT_GT(pieces, 5U * programs);
    EXPECT_EQ(points > 0, language.hasPlanes);
}

} // namespace

TEST(ThereAndBack, OfArcsThatAreComputed) {
    std::ifstream file(QUILLMARK_DIALECTS "o-word-mill.pp");
    const std::string dialect{std::istreambuf_iterator<char>(file), {}};
    convertAndReadBack(dialect, {.hasPlanes = true, .hasInches = true}, 60);
}

TEST(ThereAndBack, OfArcsThatAreOneStatement) {
    convertAndReadBack(
        mill({{"MFG_INIT_SPINDLE", "0;0;1"}, {"REV_TLCHG_COM", "M6"}, {"REV_TLCHG_TLADR", "T"}}),
        {}, 60);
}
