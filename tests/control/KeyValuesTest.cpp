// Every key of controls with a value that nobody understands, without one, and twice.

#include "driver/Controller.h"
#include "driver/returnCodes.h"
#include "paramfile/keys.h"
#include "tests/support/TempFolder.h"
#include "tests/support/dialects.h"

#include <gmock/gmock.h>
#include <map>
#include <string_view>
#include <vector>

namespace {

std::vector<Key> controlKeys() {
    std::vector<Key> keys;
    for (const auto& table :
         {pathKeys(), technologyKeys(), coordinateKeys(), cycleKeys(), axisKeys()}) {
        for (const Key& key : table) {
            if (key.kind == KeyKind::kWhole) {
                keys.push_back(key);
            }
        }
    }
    return keys;
}

struct Values {
    const char* good;
    const char* bad;
};

// A code has letters, and an address begins with one.
Values valuesOf(const Key& key) {
    static const std::map<std::string, Values> kValues = {
        {"REV_EXECUTION_ORDER", {"OFF_LAST", "FIRST"}},
        {"REV_CENTRE_IS_RADIUS", {"1", "2"}},
        {"REV_CIRCLE_TOLERANCE", {"0.1;0.2;3", "3;0.1;0.2"}},
        {"REV_RADIUS_TOLERANCE", {"0.1", "-0.1"}},
        {"REV_TOOL_BY_WORD", {"4;2", "2;4"}},
        {"REV_ZERO_ORIGIN", {"1;2;3", "1;2"}},
        {"REV_MACHINE_ZERO", {"1;2;3", "1;2;Z"}},
        {"REV_FRAME_FACTOR_THOUSANDTHS", {"1", "1000"}},
        {"REV_CYCLE_CALL", {"CYCLE81 DRILL", "CYCLE81 MILL"}},
        {"REV_CYCLE_LIFT", {"0.5", "-0.5"}},
        {"REV_CYCLE_FEED_TO_RETURN", {"1", "YES"}},
        {"REV_CYCLE_STRAIGHT", {"0", "-1"}},
        {"REV_CYCLE_STRICT", {"0", "01"}},
        {"REV_CARRIER", {"2", "3"}},
        {"REV_AXIS_TOLERANCE", {"0.5", "0"}},
        {"REV_RTCP_START", {"1", "ON"}},
        {"REV_RTCP_TABLE_ONLY", {"1", "2"}},
        {"REV_RTCP_HEAD_ONLY", {"1", "C"}},
        {"REV_PIVOT_POSITIONS", {"1", "TIP"}},
        {"REV_NUTATOR_ANGLE", {"45", "45;45"}},
        {"REV_HEAD_TOOL_LENGTH", {"3;120", "3.5;120"}},
        {"REV_ROTARY_WAY", {"SHORTEST", "SHORT"}},
    };
    const auto found = kValues.find(key.text);
    if (found != kValues.end()) {
        return found->second;
    }
    return key.form == Key::Form::kAddress ? Values{"U", "7"} : Values{"G77", "77"};
}

std::string entry(const Key& key, const char* value) {
    return std::string(key.text) + "\n" + value + "\n" +
           (key.form == Key::Form::kAddress ? "1\nM5.3\n" : "");
}

struct Outcome {
    int code = 0;
    std::string apt;
    std::string message;
    bool operator==(const Outcome&) const = default;
};

// The machine has what some keys want to stand above them.
Outcome outcomeOf(const std::string& entries) {
    const TempFolder folder;
    Controller controller;
    const std::string dialect =
        mill({{"REV_PROGRAM_LANGUAGE", "HASH"}, {"REV_ZERO_SYSTEM", "G54"}}) + entries;
    const int code = controller.execute(
        folder.write("dialect.pp", dialect).c_str(),
        folder.write("part.nc", "G0 Z5\nG77 X1 Y2 Z1 U3 F50\nX4\nCYCLE81(9,0,1,-5)\nX5\n").c_str(),
        folder.path("part.apt").c_str(), nullptr, eOutputAPT);
    const char* const text = controller.LastFailure().text;
    return {code, folder.read("part.apt"), text == nullptr ? "" : text};
}

TEST(KeyValues, AreUnderstoodOrRefused) {
    for (const Key& key : controlKeys()) {
        const char* const bad = valuesOf(key).bad;
        const Outcome outcome = outcomeOf(entry(key, bad));
        EXPECT_EQ(outcome.code, kKeyValueUnknown) << key.text;
        EXPECT_EQ(outcome.message, std::string(key.text) + " has no value '" + bad + "'");
    }
}

TEST(KeyValues, ACodeIsOneWord) {
    for (const char* const bad : {"G17 G18", "G-17", "?", "=G17", "G1,5"}) {
        EXPECT_EQ(outcomeOf(std::string("REV_PLANE_XY\n") + bad + "\n").code, kKeyValueUnknown)
            << bad;
    }
}

TEST(KeyValues, AreNotMissing) {
    for (const Key& key : controlKeys()) {
        EXPECT_EQ(outcomeOf(std::string(key.text) + "\n").code, kParameterFileEndsEarly)
            << key.text;
    }
}

// A system has one origin.
TEST(KeyValues, MayStandTwice) {
    for (const Key& key : controlKeys()) {
        const std::string once = entry(key, valuesOf(key).good);
        const Outcome outcome = outcomeOf(once);
        EXPECT_TRUE(outcome.code == 0 || outcome.code >= kBlockUnreadable)
            << key.text << ": " << outcome.message;
        const Outcome twice = outcomeOf(once + once);
        if (std::string_view(key.text) == "REV_ZERO_ORIGIN") {
            EXPECT_EQ(twice.code, kKeyValueUnknown);
        } else {
            EXPECT_EQ(twice, outcome) << key.text << ": " << twice.message;
        }
    }
}

} // namespace
