// Random frames against points computed step by step, without matrices.

#include "driver/Controller.h"
#include "tests/support/TempFolder.h"
#include "tests/support/dialects.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <functional>
#include <gtest/gtest.h>
#include <numbers>
#include <random>
#include <sstream>
#include <vector>

namespace {

using Point = std::array<double, 3>;
using Step = std::function<Point(const Point&)>;

std::string dialect() {
    return mill({{"REV_PROGRAM_LANGUAGE", "HASH"},
                 {"REV_FRAME_SHIFT", "TRANS"},
                 {"REV_FRAME_SHIFT_ADD", "ATRANS"},
                 {"REV_FRAME_ROTATE", "ROT"},
                 {"REV_FRAME_ROTATE_ADD", "AROT"},
                 {"REV_FRAME_SCALE", "SCALE"},
                 {"REV_FRAME_SCALE_ADD", "ASCALE"},
                 {"REV_FRAME_MIRROR", "MIRROR"},
                 {"REV_FRAME_MIRROR_ADD", "AMIRROR"}});
}

// The first axis towards the second.
Step turn(std::size_t first, std::size_t second, double degrees) {
    const double a = degrees * std::numbers::pi / 180.0;
    return [=](Point p) {
        const Point q = p;
        p[first] = q[first] * std::cos(a) - q[second] * std::sin(a);
        p[second] = q[first] * std::sin(a) + q[second] * std::cos(a);
        return p;
    };
}

/// Draws frames and remembers what they do to a point; the step behind acts on it first.
class Frames {
public:
    explicit Frames(unsigned seed) : m_random(seed) {}

    std::string Draw() {
        const int kind = number(0, 3);
        const bool adds = number(0, 2) != 0;
        if (!adds) {
            m_steps.clear();
        }
        const int x = number(-90, 90);
        const int y = number(-90, 90);
        const int z = number(-90, 90);
        const std::string all =
            " X" + std::to_string(x) + " Y" + std::to_string(y) + " Z" + std::to_string(z);
        switch (kind) {
        case 0:
            m_steps.push_back([=](const Point& p) { return Point{p[0] + x, p[1] + y, p[2] + z}; });
            return (adds ? "ATRANS" : "TRANS") + all;
        case 1:
            m_steps.push_back(turn(0, 1, z));
            m_steps.push_back(turn(2, 0, y));
            m_steps.push_back(turn(1, 2, x));
            return (adds ? "AROT" : "ROT") + all;
        case 2:
            m_steps.push_back([](const Point& p) { return Point{p[0] * 2.0, p[1] * 0.5, p[2]}; });
            return std::string(adds ? "ASCALE" : "SCALE") + " X2 Y.5";
        default:
            m_steps.push_back([](const Point& p) { return Point{p[0], -p[1], p[2]}; });
            return std::string(adds ? "AMIRROR" : "MIRROR") + " Y0";
        }
    }
    [[nodiscard]] Point Apply(Point point) const {
        for (auto step = m_steps.rbegin(); step != m_steps.rend(); ++step) {
            point = (*step)(point);
        }
        return point;
    }
    int number(int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(m_random);
    }

private:
    std::mt19937 m_random;
    std::vector<Step> m_steps;
};

std::vector<Point> pointsOf(const std::string& apt) {
    std::vector<Point> points;
    std::istringstream stream(apt);
    for (std::string line; std::getline(stream, line);) {
        Point p{};
        if (std::sscanf(line.c_str(), "GOTO/ %lf, %lf, %lf", &p[0], &p[1], &p[2]) == 3) {
            points.push_back(p);
        }
    }
    return points;
}

TEST(Frames, LieWithinEachOther) {
    const TempFolder folder;
    const std::string file = folder.write("dialect.pp", dialect());
    for (unsigned seed = 0; seed < 100; ++seed) {
        Frames frames(seed);
        std::string program;
        std::vector<Point> expected;
        for (int block = 0; block < 12; ++block) {
            program += frames.Draw() + "\n";
            const Point p = {1.0 * frames.number(-50, 50), 1.0 * frames.number(-50, 50),
                             1.0 * frames.number(-50, 50)};
            program += "G0 X" + std::to_string(p[0]) + " Y" + std::to_string(p[1]) + " Z" +
                       std::to_string(p[2]) + "\n";
            expected.push_back(frames.Apply(p));
        }
        // What is left out keeps the tool, also behind the last frame.
        program += "TRANS X1\nX" + std::to_string(expected.back()[0] - 1.0) + "\n";
        expected.push_back(expected.back());
        Controller controller;
        ASSERT_EQ(controller.execute(file.c_str(), folder.write("part.nc", program).c_str(),
                                     folder.path("part.apt").c_str(), nullptr, eOutputAPT),
                  0);
        const std::vector<Point> points = pointsOf(folder.read("part.apt"));
        ASSERT_EQ(points.size(), expected.size()) << program;
        for (std::size_t i = 0; i < points.size(); ++i) {
            for (std::size_t axis = 0; axis < 3; ++axis) {
                ASSERT_NEAR(points[i][axis], expected[i][axis],
                            2e-5 + 1e-9 * std::abs(expected[i][axis]))
                    << program;
            }
        }
    }
}

} // namespace
