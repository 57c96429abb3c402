// Machines against quaternions, examples computed by hand, and the formulas of published machines.

#include "kinematics/MachineChain.h"
#include "tests/kinematics/Quaternion.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <random>
#include <string>
#include <vector>

namespace {

using Angles = MachineChain::Angles;

Point pointOf(const gmVector3& v) { return {v[0], v[1], v[2]}; }
gmVector3 vectorOf(const Point& p) { return {p[0], p[1], p[2]}; }

const Point kAxes[] = {{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}};

RotaryAxis axisOf(char letter, bool isOnHead, const Point& centre, bool isReversed = false) {
    return {.direction = vectorOf(kAxes[letter - 'A']),
            .centre = vectorOf(centre),
            .isOnHead = isOnHead,
            .isReversed = isReversed};
}

struct Example {
    std::string name;
    std::vector<RotaryAxis> axes;
    Angles angles;
    Point tip;
    Point axis;
};

TEST(Chains, TurnAsComputedByHand) {
    const Point none = {0.0, 0.0, 0.0};
    const RotaryAxis tableA = axisOf('A', false, {0.0, 0.0, -50.0});
    const RotaryAxis headB = axisOf('B', true, {0.0, 0.0, 150.0});
    const double high = std::cos(std::numbers::pi / 6.0);
    const std::vector<Example> examples = {
        {"tables",
         {tableA, axisOf('C', false, none)},
         {30, 90},
         {10.17949, 10, 7.63140},
         {0.5, 0, high}},
        {"heads", {axisOf('C', true, none), headB}, {90, 30}, {10, -55, 25.09619}, {0, 0.5, high}},
        {"table and head",
         {axisOf('C', false, none), headB},
         {90, 30},
         {-20, -65, 25.09619},
         {0, 0.5, high}},
        {"one table", {tableA}, {30, 0}, {10, -10.17949, 7.63140}, {0, -0.5, high}},
        {"one head, left-handed",
         {axisOf('B', true, {0.0, 0.0, 150.0}, true)},
         {30, 0},
         {85, 20, 25.09619},
         {-0.5, 0, high}},
    };
    for (const auto& [name, axes, angles, tip, axis] : examples) {
        MachineChain chain;
        for (const RotaryAxis& one : axes) {
            chain.Add(one);
        }
        const MachinePose pose = chain.PoseAt(angles, {});
        EXPECT_LT(distance(pointOf(pose.TipOf({10.0, 20.0, 5.0})), tip), 1e-5) << name;
        EXPECT_LT(distance(pointOf(pose.ToolAxis()), axis), 1e-5) << name;
    }
}

/// A machine drawn at random, and what it does by quaternions.
class RandomMachine {
public:
    RandomMachine(std::mt19937& random, bool isFirstOnHead, bool isSecondOnHead, std::size_t count)
        : m_random(random), m_onHead{isFirstOnHead, isSecondOnHead}, m_count(count) {
        m_carrier = m_random() % 2;
        m_givesPivot = m_random() % 4 == 0;
        m_rtcp = {.table = m_random() % 4 == 0, .head = m_random() % 4 == 0};
        m_length = m_random() % 2 == 0 ? 0.0 : number(0.0, 300.0);
        m_tool = direction();
        for (std::size_t i = 0; i < count; ++i) {
            m_directions[i] = m_random() % 4 == 0 ? direction() : kAxes[m_random() % 3];
            m_centres[i] = {number(-300, 300), number(-300, 300), number(-300, 300)};
            m_reversed[i] = m_random() % 2 == 0;
            m_angles[i] = number(-720, 720);
        }
    }

    [[nodiscard]] MachinePose Pose() const {
        MachineChain chain;
        for (std::size_t i = 0; i < m_count; ++i) {
            chain.Add({.direction = vectorOf(m_directions[i]),
                       .centre = vectorOf(m_centres[i]),
                       .isOnHead = m_onHead[i],
                       .isReversed = m_reversed[i]});
        }
        chain.SetToolAxis(vectorOf(m_tool));
        chain.SetCarrier(m_carrier);
        chain.SetToolLength(m_length);
        chain.GivePivot(m_givesPivot);
        return chain.PoseAt(m_angles, m_rtcp);
    }

    // The rows of the definition, written out: tables turn the point about places of the machine,
    // heads about places that go with the point.
    [[nodiscard]] Point Tip(Point p) const {
        if (m_givesPivot && !m_rtcp.head) {
            for (const std::size_t i : order(true)) {
                p = p - centre(i);
                break;
            }
        }
        Point tip = p;
        if (!m_rtcp.head) {
            for (const std::size_t i : order(true)) {
                tip = turn(i).TurnAbout(p + centre(i), tip);
            }
        }
        if (!m_rtcp.table) {
            for (const std::size_t i : order(false)) {
                tip = turn(i).TurnAbout(m_centres[i], tip);
            }
        }
        return tip;
    }
    [[nodiscard]] Point Axis() const {
        Quaternion whole;
        for (const bool isOnHead : {true, false}) {
            for (const std::size_t i : order(isOnHead)) {
                whole = turn(i).After(whole);
            }
        }
        return whole.Turn(m_tool);
    }
    double number(double least, double most) {
        return std::uniform_real_distribution(least, most)(m_random);
    }

private:
    Point direction() {
        Point v = {number(-1, 1), number(-1, 1), number(-1, 1)};
        const double length = distance(v, {});
        return length < 0.1 ? kAxes[2] : v * (1.0 / length);
    }
    [[nodiscard]] Quaternion turn(std::size_t i) const {
        return Quaternion::About(m_directions[i], m_reversed[i] ? -m_angles[i] : m_angles[i]);
    }
    [[nodiscard]] Point centre(std::size_t i) const { return m_centres[i] + m_tool * m_length; }
    // Which acts first: of heads the carried one, of tables the carrier.
    [[nodiscard]] std::vector<std::size_t> order(bool isOnHead) const {
        std::vector<std::size_t> axes;
        const std::size_t carried = 1 - m_carrier;
        for (const std::size_t i :
             {isOnHead ? carried : m_carrier, isOnHead ? m_carrier : carried}) {
            if (i < m_count && m_onHead[i] == isOnHead) {
                axes.push_back(i);
            }
        }
        return axes;
    }

    std::mt19937& m_random;
    std::array<bool, 2> m_onHead;
    std::size_t m_count;
    std::size_t m_carrier;
    bool m_givesPivot;
    Compensation m_rtcp;
    double m_length;
    Point m_tool;
    std::array<Point, 2> m_directions = {};
    std::array<Point, 2> m_centres = {};
    std::array<bool, 2> m_reversed = {};
    Angles m_angles = {};
};

TEST(Chains, TurnAsQuaternionsDo) {
    struct Kind {
        bool isFirstOnHead;
        bool isSecondOnHead;
        std::size_t count;
    };
    constexpr Kind kKinds[] = {
        {false, false, 2}, {true, true, 2}, {false, true, 2}, {false, false, 1}, {true, false, 1}};
    std::mt19937 random(16);
    for (const auto& [isFirstOnHead, isSecondOnHead, count] : kKinds) {
        double worst = 0.0;
        double worstAxis = 0.0;
        double worstWayBack = 0.0;
        for (int i = 0; i < 100'000; ++i) {
            RandomMachine machine(random, isFirstOnHead, isSecondOnHead, count);
            const Point p = {machine.number(-500, 500), machine.number(-500, 500),
                             machine.number(-500, 500)};
            const MachinePose pose = machine.Pose();
            const gmVector3 tip = pose.TipOf(vectorOf(p));
            worst = std::max(worst, distance(pointOf(tip), machine.Tip(p)));
            worstAxis = std::max(worstAxis, distance(pointOf(pose.ToolAxis()), machine.Axis()));
            worstWayBack = std::max(worstWayBack, distance(pointOf(pose.PositionOf(tip)), p));
        }
        EXPECT_LT(worst, 1e-9);
        EXPECT_LT(worstAxis, 1e-12);
        EXPECT_LT(worstWayBack, 1e-9);
    }
}

// Published machines, each by the formulas of its own description: J is where its joints stand.

struct Sines {
    explicit Sines(double degrees) noexcept
        : s(std::sin(degrees * std::numbers::pi / 180.0)),
          c(std::cos(degrees * std::numbers::pi / 180.0)) {}
    double s;
    double c;
};

Point tiltingTableAC(const Point& j, Sines a, Sines c, double dy, double dz) {
    const double y = a.c * (j[1] - dy) + a.s * (j[2] - dz) + dy;
    return {c.c * j[0] + c.s * y, -c.s * j[0] + c.c * y,
            -a.s * (j[1] - dy) + a.c * (j[2] - dz) + dz};
}

Point tiltingTableBC(const Point& j, Sines b, Sines c, double dx, double dz) {
    const double x = b.c * (j[0] - dx) - b.s * (j[2] - dz) + dx;
    return {c.c * x + c.s * j[1], -c.s * x + c.c * j[1],
            b.s * (j[0] - dx) + b.c * (j[2] - dz) + dz};
}

// The pivot is where the joints stand, and the tip on a ball about it; at zero right below.
Point headCB(const Point& j, Sines c, Sines b, double pivotLength) {
    return {j[0] + pivotLength * b.s * c.c, j[1] + pivotLength * b.s * c.s,
            j[2] + pivotLength * (1.0 - b.c)};
}

TEST(Chains, TurnAsPublishedMachinesDo) {
    std::mt19937 random(5);
    const auto number = [&](double most) {
        return std::uniform_real_distribution(-most, most)(random);
    };
    for (int i = 0; i < 10'000; ++i) {
        const Point j = {number(500), number(500), number(500)};
        const Angles angles = {number(180), number(360)};
        const double d = number(50);
        const double dz = number(100);
        const double length = 100.0 + d;
        MachineChain ac;
        ac.Add(axisOf('A', false, {0.0, d, dz}, true));
        ac.Add(axisOf('C', false, {}, true));
        EXPECT_LT(distance(pointOf(ac.PoseAt(angles, {}).TipOf(vectorOf(j))),
                           tiltingTableAC(j, Sines(angles[0]), Sines(angles[1]), d, dz)),
                  1e-9);
        MachineChain bc;
        bc.Add(axisOf('B', false, {d, 0.0, dz}, true));
        bc.Add(axisOf('C', false, {}, true));
        EXPECT_LT(distance(pointOf(bc.PoseAt(angles, {}).TipOf(vectorOf(j))),
                           tiltingTableBC(j, Sines(angles[0]), Sines(angles[1]), d, dz)),
                  1e-9);
        MachineChain cb;
        cb.Add(axisOf('C', true, {0.0, 0.0, length}));
        cb.Add(axisOf('B', true, {0.0, 0.0, length}, true));
        const Sines c(angles[0]);
        const Sines b(angles[1]);
        const MachinePose head = cb.PoseAt(angles, {});
        const Point tip = headCB(j, c, b, length);
        EXPECT_LT(distance(pointOf(head.TipOf(vectorOf(j))), tip), 1e-9);
        EXPECT_LT(distance(pointOf(head.PositionOf(vectorOf(tip))), j), 1e-9);
        // The tool points from the tip to the pivot, which stands a length above the joints.
        const Point towards = (j + Point{0.0, 0.0, length} - tip) * (1.0 / length);
        EXPECT_LT(distance(pointOf(head.ToolAxis()), towards), 1e-9);
        cb.GivePivot(true);
        EXPECT_LT(distance(pointOf(cb.PoseAt(angles, {}).TipOf(vectorOf(j))),
                           tip - Point{0.0, 0.0, length}),
                  1e-9);
    }
}

} // namespace
