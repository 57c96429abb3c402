// There and back: tips and axes become positions of a machine by an inverse of the test's own, and
// quillmark has to find them again. And the way between two of them, sampled.

#include "driver/Controller.h"
#include "tests/charFeldTexts.h"
#include "tests/kinematics/Quaternion.h"
#include "tests/support/TempFolder.h"
#include "tests/support/dialects.h"
#include "update/updatePP.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <numbers>
#include <random>
#include <sstream>
#include <vector>

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;
constexpr Point kUp = {0.0, 0.0, 1.0};

struct Place {
    Point tip;
    Point axis;
};

struct Position {
    Point linear = {};
    double turning = 0.0; // of C
    double tilting = 0.0; // of A or B
};

enum class Chain { kTables, kHeads, kTableAndHead };

/// A machine whose tool stands in C about Z and a tilting axis, perhaps an inclined one.
struct Machine {
    Chain chain = Chain::kTables;
    char tilt = 'A';
    bool isTurningReversed = false;
    bool isTiltReversed = false;
    bool hasRtcp = false;
    bool givesPivot = false;
    double nutator = 90.0;
    double toolLength = 0.0;
    Point turningCentre = {};
    Point tiltCentre = {};

    [[nodiscard]] bool IsTurningOnHead() const { return chain == Chain::kHeads; }
    [[nodiscard]] bool IsTiltOnHead() const { return chain != Chain::kTables; }
    [[nodiscard]] Point TiltDirection() const {
        const double s = std::sin(nutator * kDegree);
        const Point across = tilt == 'A' ? Point{s, 0.0, 0.0} : Point{0.0, s, 0.0};
        return across + kUp * std::cos(nutator * kDegree);
    }
    [[nodiscard]] Quaternion Tilt(double angle) const {
        return Quaternion::About(TiltDirection(), isTiltReversed ? -angle : angle);
    }
    [[nodiscard]] Quaternion Turn(double angle) const {
        return Quaternion::About(kUp, isTurningReversed ? -angle : angle);
    }
    [[nodiscard]] Point Length() const { return kUp * toolLength; }

    // In every chain the tilting axis acts on the tool before C does.
    [[nodiscard]] Place At(const Position& position) const {
        Point p = position.linear;
        const Quaternion turn = Turn(position.turning);
        const Quaternion tilting = Tilt(position.tilting);
        Point tip = p;
        if (!hasRtcp) {
            if (givesPivot && IsTiltOnHead()) {
                p = p - tiltCentre - Length();
            }
            tip = IsTiltOnHead() ? tilting.TurnAbout(p + tiltCentre + Length(), p)
                                 : tilting.TurnAbout(tiltCentre, p);
            tip = IsTurningOnHead() ? turn.TurnAbout(p + turningCentre + Length(), tip)
                                    : turn.TurnAbout(turningCentre, tip);
        }
        return {tip, turn.Turn(tilting.Turn(kUp))};
    }

    // The height of the axis tells the tilting angle, its direction about Z the other one.
    [[nodiscard]] Position PositionOf(const Place& place) const {
        const double square = std::pow(std::cos(nutator * kDegree), 2.0);
        const double cosine = (place.axis[2] - square) / (1.0 - square);
        Position position;
        position.tilting = std::acos(std::clamp(cosine, -1.0, 1.0)) / kDegree;
        const Point tilted = Tilt(position.tilting).Turn(kUp);
        position.turning =
            (std::atan2(place.axis[1], place.axis[0]) - std::atan2(tilted[1], tilted[0])) / kDegree;
        position.turning *= isTurningReversed ? -1.0 : 1.0;
        // Tables do not shrink or bend, heads take along what they are given: where the position 0
        // goes tells the rest.
        const Place origin = At(position);
        Point way = place.tip - origin.tip;
        if (!hasRtcp && chain != Chain::kHeads) {
            way = Turn(-position.turning).Turn(way);
        }
        if (!hasRtcp && chain == Chain::kTables) {
            way = Tilt(-position.tilting).Turn(way);
        }
        position.linear = way;
        return position;
    }

    [[nodiscard]] std::string Dialect(double tolerance, double axisTolerance) const {
        static constexpr const char* kClasses[] = {"NC_TWO_AXIS_ON_TABLE_MACHINES",
                                                   "NC_TWO_AXIS_ON_HEAD_MACHINES",
                                                   "NC_AXIS_ON_TABLE_HEAD_MACHINES"};
        std::ostringstream text;
        text.precision(17);
        const auto axis = [&](char letter, const char* letterKey, const char* wayKey,
                              bool isReversed, const char* centreKey, const char* end,
                              const Point& centre) {
            text << letterKey << "\n"
                 << letter << "\n"
                 << wayKey << "\n"
                 << (isReversed ? 2 : 1) << "\n";
            for (std::size_t i = 0; i < 3; ++i) {
                text << "MFG_" << static_cast<char>('X' + static_cast<int>(i)) << centreKey << end
                     << "\n"
                     << centre[i] << "\n";
            }
        };
        const char* turning = "REV_ROTARY_2ND";
        const char* tilting = "REV_ROTARY_1ST";
        text << "MFG_CLASS_NAME\n" << kClasses[static_cast<int>(chain)] << "\n";
        if (chain == Chain::kTables) {
            axis(tilt, "MFG_ROTARY_AXIS", "MFG_ROT_POS_WAY", isTiltReversed, "_ROT_CENTER", "",
                 tiltCentre);
            axis('C', "MFG_ROTARY_AXIS_2", "MFG_ROT_POS_WAY_2", isTurningReversed, "_ROT_CNTR",
                 "_2", turningCentre);
        } else {
            std::swap(turning, tilting);
            if (chain == Chain::kHeads) {
                axis('C', "MFG_SPNDL_AXIS", "MFG_SPN_POS_WAY", isTurningReversed, "_SPNDL_CTR", "",
                     turningCentre);
                axis(tilt, "MFG_SPNDL_AXIS_2", "MFG_SPN_POS_WAY_2", isTiltReversed, "_SPNDL_CTR",
                     "_2", tiltCentre);
            } else {
                axis('C', "MFG_ROTARY_AXIS", "MFG_ROT_POS_WAY", isTurningReversed, "_ROT_CENTER",
                     "", turningCentre);
                axis(tilt, "MFG_SPNDL_AXIS", "MFG_SPN_POS_WAY", isTiltReversed, "_SPNDL_CTR", "",
                     tiltCentre);
            }
        }
        text << turning << "\nC\n1\nM5.3\n" << tilting << "\nB\n1\nM5.3\n";
        text << "REV_NUTATOR_ANGLE\n"
             << nutator << "\nREV_HEAD_TOOL_LENGTH\n1;" << toolLength << "\nREV_PIVOT_POSITIONS\n"
             << (givesPivot ? 1 : 0) << "\nREV_RTCP_ON\nG43.4\n"
             << "LINEAR_TOLERANCE\n"
             << tolerance << "\nREV_AXIS_TOLERANCE\n"
             << axisTolerance << "\n";
        return mill() + text.str();
    }
};

std::string blockOf(const Position& position) {
    char text[200];
    (void)std::snprintf(text, sizeof(text), "G0 X%.10f Y%.10f Z%.10f B%.10f C%.10f\n",
                        position.linear[0], position.linear[1], position.linear[2],
                        position.tilting, position.turning);
    return text;
}

// All places between two statements of the coolant.
std::vector<std::vector<Place>> placesOf(const std::string& dialect, const std::string& program) {
    const TempFolder folder;
    Controller controller;
    EXPECT_EQ(controller.execute(folder.write("dialect.pp", dialect).c_str(),
                                 folder.write("part.nc", program).c_str(),
                                 folder.path("part.apt").c_str(), nullptr, eOutputAPT),
              0)
        << dialect;
    std::vector<std::vector<Place>> blocks(1);
    std::istringstream stream(folder.read("part.apt"));
    for (std::string line; std::getline(stream, line);) {
        Place p{};
        if (std::sscanf(line.c_str(), "GOTO/ %lf, %lf, %lf, %lf, %lf, %lf", &p.tip[0], &p.tip[1],
                        &p.tip[2], &p.axis[0], &p.axis[1], &p.axis[2]) == 6) {
            blocks.back().push_back(p);
        } else if (line.starts_with("COOLNT")) {
            blocks.emplace_back();
        }
        EXPECT_EQ(line.find("TLAXIS"), std::string::npos);
    }
    blocks.pop_back();
    return blocks;
}

class Machines : public testing::Test {
protected:
    double number(double least, double most) {
        return std::uniform_real_distribution(least, most)(m_random);
    }
    bool chance(unsigned of) { return m_random() % of == 0; }

    Machine draw(Chain chain) {
        Machine machine = {.chain = chain,
                           .tilt = chance(2) ? 'A' : 'B',
                           .isTurningReversed = chance(2),
                           .isTiltReversed = chance(2),
                           .hasRtcp = chance(3),
                           .givesPivot = chance(3)};
        machine.nutator = chance(2) ? 90.0 : number(30.0, 80.0);
        machine.toolLength = chance(2) ? 0.0 : number(20.0, 200.0);
        machine.turningCentre = point(100.0);
        machine.tiltCentre = point(100.0);
        return machine;
    }
    Point point(double most) {
        return {number(-most, most), number(-most, most), number(-most, most)};
    }
    // An axis that the machine reaches, and not one where any angle of C does.
    Place reachable(const Machine& machine) {
        const double lowest = std::cos(std::min(2.0 * machine.nutator, 160.0) * kDegree);
        const double z = number(lowest + 0.02, 0.998);
        const double angle = number(-180.0, 180.0) * kDegree;
        const double across = std::sqrt(1.0 - z * z);
        return {point(300.0), {across * std::cos(angle), across * std::sin(angle), z}};
    }

    std::mt19937 m_random{16};
};

TEST_F(Machines, AreTurnedThereAndBack) {
    constexpr double kTip = 2e-5;  // five decimals
    constexpr double kAxis = 2e-7; // seven
    for (int i = 0; i < 60; ++i) {
        const Machine machine = draw(static_cast<Chain>(i % 3));
        std::string program = "T1 M6\n";
        program += machine.hasRtcp ? "G43.4\n" : "";
        std::vector<Place> expected;
        for (int block = 0; block < 50; ++block) {
            expected.push_back(reachable(machine));
            program += blockOf(machine.PositionOf(expected.back())) + "M8\n";
        }
        const std::string dialect = machine.Dialect(1e5, 170.0);
        const auto blocks = placesOf(dialect, program);
        ASSERT_EQ(blocks.size(), expected.size()) << dialect;
        for (std::size_t block = 0; block < blocks.size(); ++block) {
            ASSERT_FALSE(blocks[block].empty()) << dialect;
            const Place& found = blocks[block].back();
            ASSERT_LT(distance(found.tip, expected[block].tip), kTip) << dialect << program;
            ASSERT_LT(distance(found.axis, expected[block].axis), kAxis) << dialect << program;
        }
    }
}

// The tilting axis moves in one direction, so the height of the axis tells how much of the way was
// done.
TEST_F(Machines, LeaveTheCurveByNoMoreThanTheTolerance) {
    constexpr double kPrinted = 2e-5;
    for (int i = 0; i < 60; ++i) {
        Machine machine = draw(static_cast<Chain>(i % 3));
        machine.nutator = 90.0;
        const double tolerance = number(0.01, 0.5);
        const double axisTolerance = number(0.05, 2.0);
        const Position from = {point(200.0), number(-90.0, 90.0), number(5.0, 20.0)};
        const Position to = {point(200.0), number(-400.0, 400.0), number(70.0, 85.0)};
        const std::string dialect = machine.Dialect(tolerance, axisTolerance);
        const auto blocks =
            placesOf(dialect, "T1 M6\n" + std::string(machine.hasRtcp ? "G43.4\n" : "") +
                                  blockOf(from) + "M8\n" + blockOf(to) + "M8\n");
        ASSERT_EQ(blocks.size(), 2U);
        const auto truthAt = [&](double u) {
            return machine.At({from.linear + (to.linear - from.linear) * u,
                               from.turning + (to.turning - from.turning) * u,
                               from.tilting + (to.tilting - from.tilting) * u});
        };
        Place last = blocks[0].back();
        double begin = 0.0;
        for (const Place& place : blocks[1]) {
            const double end = &place == &blocks[1].back()
                                   ? 1.0
                                   : (std::acos(place.axis[2]) / kDegree - from.tilting) /
                                         (to.tilting - from.tilting);
            ASSERT_GT(end, begin);
            for (int sample = 0; sample <= 100; ++sample) {
                const double u = sample / 100.0;
                const Place truth = truthAt(begin + (end - begin) * u);
                const Point tip = last.tip + (place.tip - last.tip) * u;
                Point axis = last.axis + (place.axis - last.axis) * u;
                axis = axis * (1.0 / distance(axis, {}));
                ASSERT_LT(distance(tip, truth.tip), tolerance + 20.0 * kPrinted) << dialect;
                ASSERT_LT(2.0 * std::asin(distance(axis, truth.axis) / 2.0) / kDegree,
                          axisTolerance + kPrinted)
                    << dialect;
            }
            last = place;
            begin = end;
        }
    }
}

// The machine of an older file, whose update turns the directions of heads round.
TEST(OldMachines, TurnAsThoseWrittenByHand) {
    constexpr const char* kOldLines[] = {"*VERSION 5.3",  "*5XGABEL 1",    "*5XKRDAA 3",
                                         "*5XKRDUA 2",    "*5XAL3DR 2",    "*5XAL3ZW 10.5",
                                         "*5XAL3NP 90.",  "*5XAL2DR 1",    "*5XAL2ZW 150.",
                                         "*5XAL2MX 110.", "*5XAL2MN -110."};
    const std::string byHand = "MFG_CLASS_NAME\nNC_TWO_AXIS_ON_HEAD_MACHINES\n"
                               "MFG_SPNDL_AXIS\nC\nMFG_Z_SPNDL_CTR\n10.5\nMFG_SPN_POS_WAY\n1\n"
                               "N3C_SPNDL_INITPOS\n90\nMFG_SPNDL_AXIS_2\nB\n"
                               "MFG_Z_SPNDL_CTR_2\n150\nMFG_SPN_POS_WAY_2\n2\n";
    const std::string added = mill().substr(kHeader.size()) +
                              "REV_ROTARY_1ST\nC\n1\nM5.3\nREV_ROTARY_2ND\nB\n1\nM5.3\n"
                              "LINEAR_TOLERANCE\n0.5\n";
    const std::string program = "G0 X10 Y20 Z5 B30\nM8\nC45 X11\nM8\nB-20 C0\nM8\n";

    std::string coded;
    for (const char* const line : kOldLines) {
        coded += codedOld(line, "\n");
    }
    const TempFolder folder;
    std::FILE* const in = std::fopen(folder.write("old", coded).c_str(), "r");
    std::FILE* const out = std::fopen(folder.path("new").c_str(), "w");
    ASSERT_EQ(updatePP(in, out), 0);
    ASSERT_EQ(std::fclose(out), 0);
    const auto updated = placesOf(folder.read("new") + added, program);
    const auto written = placesOf(std::string(kHeader) + byHand + added, program);
    ASSERT_EQ(updated.size(), 3U);
    ASSERT_EQ(written.size(), updated.size());
    for (std::size_t block = 0; block < updated.size(); ++block) {
        ASSERT_EQ(updated[block].size(), written[block].size());
        for (std::size_t i = 0; i < updated[block].size(); ++i) {
            EXPECT_EQ(updated[block][i].tip, written[block][i].tip);
            EXPECT_EQ(updated[block][i].axis, written[block][i].axis);
        }
    }
    // C stands at 90 degrees, and B turns left-handed.
    const Place& first = updated[0].back();
    EXPECT_LT(distance(first.axis, {0.0, -0.5, std::cos(30.0 * kDegree)}), 1e-6);
    EXPECT_LT(distance(first.tip, {10.0, 95.0, 5.0 + 150.0 * (1.0 - std::cos(30.0 * kDegree))}),
              1e-4);
}

} // namespace
