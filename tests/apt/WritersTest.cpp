#include "apt/APTFactory.h"

#include "apt/AResCircularMovement.h"
#include "apt/ResCoolant.h"
#include "apt/ResEndCommand.h"
#include "apt/ResFeedRate.h"
#include "apt/ResLinearMovement.h"
#include "apt/ResMovTypeCom.h"
#include "apt/ResRegularCommand.h"
#include "apt/ResSpindle.h"
#include "tests/geometry/preconditionFailure.h"
#include "tests/support/TempFolder.h"
#include "tests/support/convert.h"

#include "softCommon/FileOwner.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {

struct Written {
    std::string output;
    std::string log;
};

// What `action` writes with the writers of a factory, with a log and without.
Written write(const std::function<void(Factory&)>& action, bool hasLog = true) {
    const TempFolder folder;
    {
        const FileOwner output(std::fopen(folder.path("apt").c_str(), "w"));
        const FileOwner log(std::fopen(folder.path("log").c_str(), "w"));
        APTFactory factory(output.get(), hasLog ? log.get() : nullptr);
        action(factory);
    }
    return {folder.read("apt"), folder.read("log")};
}

template<class Writer>
std::unique_ptr<Writer> own(Writer* writer) {
    return std::unique_ptr<Writer>(writer);
}

void writeArc(Factory& factory, Boolean clockwise, const Point& start, const Point& end,
              const Point& centre, const Point& normal) {
    own(factory.GetCirculCom())
        ->InitOutput(clockwise, start[0], start[1], start[2], end[0], end[1], end[2], centre[0],
                     centre[1], centre[2], normal[0], normal[1], normal[2]);
}

TEST(Writers, WriteTheSameStatementsToOutputAndLog) {
    double x = 1;
    double y = -2.000006;
    double z = 1e7;
    struct Row {
        std::function<void(Factory&)> action;
        const char* text;
    };
    const Row rows[] = {
        {[&](Factory& f) { own(f.GetLinearCom())->InitOutput(TRUE, x, y, z); },
         "RAPID\nGOTO/    1.00000,   -2.00001,10000000.00000\n"},
        {[&](Factory& f) { own(f.GetLinearCom())->InitOutput(FALSE, x, x, x); },
         "GOTO/    1.00000,    1.00000,    1.00000\n"},
        {[&](Factory& f) { own(f.GetLinearCom())->InitOutput(2, x, x, x); }, // no truth value
         "GOTO/    1.00000,    1.00000,    1.00000\n"},
        {[](Factory& f) { own(f.GetLinearCom())->InitOutput(gmVector3(0, 0.5, -1)); },
         "TLAXIS/    0.00000,    0.50000,   -1.00000\n"},
        {[](Factory& f) { own(f.GetFeedRaCom())->InitOutput(TRUE, 1000); },
         "FEDRAT/ 1000.0000,MMPM\n"},
        {[](Factory& f) { own(f.GetFeedRaCom())->InitOutput(-1, 0.125); },
         "FEDRAT/    0.1250,MMPR\n"},
        {[](Factory& f) { own(f.GetSpindlCom())->InitOutput(0, 2000); }, "SPINDL/OFF\n"},
        {[](Factory& f) { own(f.GetSpindlCom())->InitOutput(7, 500); },
         "SPINDL/  500.0000,RPM,CLW\n"},
        {[](Factory& f) { own(f.GetSpindlCom())->InitOutput(-1, -500); },
         "SPINDL/ -500.0000,RPM,CCLW\n"},
        {[](Factory& f) { own(f.GetCoolanCom())->InitOutput(TRUE); }, "COOLNT/ON\n"},
        {[](Factory& f) { own(f.GetCoolanCom())->InitOutput(3); }, "COOLNT/OFF\n"},
        {[](Factory& f) { own(f.GetMovTypCom())->InitOutput(TRUE); }, "MODE/INCR,OFF\n"},
        {[](Factory& f) { own(f.GetMovTypCom())->InitOutput(-1); }, "MODE/INCR,ON\n"},
        {[](Factory& f) { own(f.GetRegulaCom())->InitOutput(-12); }, "LOADTL/-12\n"},
        {[](Factory& f) { own(f.GetEndCom())->InitOutput(); }, "REWIND/0\nEND\n"},
    };
    for (const Row& row : rows) {
        const Written both = write(row.action);
        EXPECT_EQ(both.output, row.text);
        EXPECT_EQ(both.log, row.text);
        const Written alone = write(row.action, false);
        EXPECT_EQ(alone.output, row.text);
        EXPECT_EQ(alone.log, "");
    }
}

TEST(CircleWriter, StartsAlongTheTangent) {
    const char* const statements =
        "AUTOPS\n"
        "INDIRV/    0.00000,   -1.00000,     0.00000\n"
        "TLON,GOFWD/(CIRCLE/      0.00000,       0.00000,       0.00000,$\n"
        "     10.00000),ON,(LINE/      0.00000,      0.00000,      0.00000,$\n"
        "      0.00000,     10.00000,      0.00000)\n";
    const Written arc = write([](Factory& factory) {
        writeArc(factory, TRUE, {10, 0, 0}, {0, 10, 0}, {0, 0, 0}, {0, 0, 1});
    });
    EXPECT_EQ(arc.output, statements);
    EXPECT_EQ(arc.log, statements);

    struct Row {
        Boolean clockwise;
        Point start;
        Point normal;
        Point direction;
    };
    const Row rows[] = {
        {2, {10, 0, 0}, {0, 0, 1}, {0, 1, -0.0}}, // no truth value: counter-clockwise
        {TRUE, {0, 10, 0}, {0, 0, 1}, {1, 0, -0.0}},
        {TRUE, {3, 4, 9}, {0, 0, 5}, {0.8, -0.6, 0}},     // neither length nor height of the start
        {TRUE, {10, 0, 0}, {0, -1, 0}, {-0.0, -0.0, -1}}, // the plane of a lathe
        {TRUE, {0, 0, 1e-9}, {1, 0, 0}, {-0.0, 1, 0}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(
            write([&](Factory& factory) {
                writeArc(factory, row.clockwise, row.start, {0, 10, 0}, {0, 0, 0}, row.normal);
            }).output,
            arcTo(row.direction, {0, 0, 0}, 10, {0, 10, 0}));
    }
}

TEST(CircleWriter, EndsTheProcessWithoutADirection) {
    const Point normal = {0, 0, 1};
    struct Row {
        Point start;
        Point normal;
    };
    const Row rows[] = {
        {{0, 0, 0}, normal}, {{0, 0, 5}, normal}, {{1, 0, 0}, {0, 0, 0}}, {{9e-11, 0, 0}, normal}};
    for (const Row& row : rows) {
        (void)write([&](Factory& factory) {
            EXPECT_EQ(preconditionFailure([&] {
                          writeArc(factory, TRUE, row.start, {1, 0, 0}, {0, 0, 0}, row.normal);
                      }),
                      "!gmIsZero(len)");
        });
    }
}

} // namespace
