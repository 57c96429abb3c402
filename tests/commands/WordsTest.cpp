#include "commands/AvailableCommands.h"
#include "commands/CommandGroup.h"
#include "commands/MachineStatus.h"
#include "commands/ModalCommand.h"
#include "commands/Parameter.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Command, FindsItsWordAndCutsItOut) {
    struct Row {
        const char* syntax;
        int number;
        const char* line;
        const char* rest; // null when the word is not found
    };
    // Bytes above 0x7F are no letters, and a number beyond 32 bits is clamped, not wrapped.
    const Row rows[] = {{"G", 1, "G01X5", "X5"},
                        {"G", 1, "X5 G001 Y6", "X5  Y6"},
                        {"G", 1, "G1", ""},
                        {"G", 1, "G010", nullptr},
                        {"G", 1, "AG1", nullptr},
                        {"G", 1, "G10 G1", "G10 "},
                        {"G", 1, "g1", nullptr},
                        {"G", 1, "aG1 5G1", "aG1 5"},
                        {"G", 0, "G00", ""},
                        {"G", 1, "\xC4G1", "\xC4"},
                        {"G", 0, "G", nullptr},
                        {"G", 1, "G-1 G+1 G 1", nullptr},
                        {"M", -1, "M30X1", "X1"},
                        {"G", 1, "G1 G1", " G1"},
                        {"M", -1, "M", ""},
                        {"G54.", 1, "G54.1", ""},
                        {nullptr, 5, "5", nullptr},
                        {"GG", 1, "GGG1", nullptr},
                        {"", -1, "X1", nullptr},
                        {"M", 1, "M4294967297", nullptr},
                        {"M", 2147483647, "M99999999999999999999", ""}};
    for (const Row& row : rows) {
        Command command;
        command.InitSyntax(row.syntax, row.number);
        std::string line = row.line;
        EXPECT_EQ(command.scanNC(line.data()), 0);
        EXPECT_EQ(command.GetNCLineStatus() == TRUE, row.rest != nullptr) << row.line;
        EXPECT_STREQ(line.c_str(), row.rest != nullptr ? row.rest : row.line) << row.line;
    }
}

TEST(Command, KeepsItsTextWhenOnlyTheNumberChanges) {
    Command command;
    command.InitSyntax("M", 6);
    command.InitSyntax(nullptr, 5);
    EXPECT_STREQ(command.GetSyntaxString(), "M");
    EXPECT_EQ(command.GetSyntaxNumber(), 5);
}

TEST(AvailableCommands, KnowsTheLengthOfAWord) {
    struct Row {
        const char* syntax;
        int number;
        int length;
    };
    const Row rows[] = {{"T", -1, 1},  {"G", 0, 2},       {"G", 9, 2},
                        {"G", 10, 3},  {"G", 99, 3},      {"G", 100, 4},
                        {"G", 999, 4}, {nullptr, 100, 0}, {"M", 2147483647, 11}};
    for (const Row& row : rows) {
        EXPECT_EQ(AvailableCommands().GetCommandLength(row.syntax, row.number), row.length)
            << row.number;
    }
}

TEST(AvailableCommands, TriesLongWordsFirstAndAmongEqualsTheOneRegisteredLast) {
    AvailableCommands commands;
    const std::pair<const char*, int> words[] = {{"M", 0},   {"G", 0},  {"T", -1},
                                                 {"G", 100}, {"G", 10}, {nullptr, 7},
                                                 {"M", 6},   {"AB", 1}, {"S", 12}};
    for (const auto& [syntax, number] : words) {
        auto command = std::make_unique<Command>();
        command->InitSyntax(syntax, number);
        commands.NewCommand(command.release());
    }
    EXPECT_STREQ(commands.GetCommand(0)->GetSyntaxString(), "S") << "newest first until sorted";
    commands.SortCommands();
    std::string order;
    for (int i = 0; i < commands.GetCommandCount(); ++i) {
        const Command& command = *commands.GetCommand(i);
        const char* const syntax = command.GetSyntaxString();
        order += std::string(syntax == nullptr ? "-" : syntax) +
                 std::to_string(command.GetSyntaxNumber()) + " ";
    }
    EXPECT_EQ(order, "G100 S12 AB1 G10 M6 G0 M0 T-1 -7 ");
}

TEST(CommandGroup, ListsTheNewestMemberFirstAndFollowsTheActiveOne) {
    CommandGroup group;
    ModalCommand first;
    ModalCommand second;
    ModalCommand stray;
    group.NewCommand(&first);
    group.NewCommand(&second);
    EXPECT_EQ(group.GetCommandCount(), 2);
    EXPECT_EQ(group.GetCommand(0), &second);
    EXPECT_EQ(group.GetCommand(1), &first);
    second.InitModalSyntax("G", 1, &group);
    stray.InitModalSyntax("G", 2, nullptr);
    second.InitActiveCommand();
    stray.InitActiveCommand();
    EXPECT_EQ(group.GetActiveCommand(), &second);
}

struct Number {
    const char* line;
    double value;
    const char* rest = "";
};

// What a word reads on each line. A line without a word reads 0 and stays whole.
void expectNumbers(const char* separator, bool incremental, std::vector<Number> numbers,
                   const std::vector<const char*>& noNumbers = {}) {
    MachineStatus machine;
    machine.InitDecimalSeparator(separator);
    const std::size_t found = numbers.size();
    for (const char* const line : noNumbers) {
        numbers.push_back({line, 0.0, line});
    }
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto& [text, value, rest] = numbers[i];
        Parameter word("X");
        word.SetDecimalPlace(3);
        std::string line = text;
        EXPECT_EQ(word.scanNC(line.data(), &machine) == 1, i < found) << text;
        EXPECT_EQ(word.GetNCLineStatus() == TRUE, i < found) << text;
        EXPECT_EQ(word.GetValue(), value) << text;
        EXPECT_EQ(std::signbit(word.GetValue()), std::signbit(value)) << text;
        EXPECT_EQ(word.GetIncStatus() == TRUE, incremental) << text;
        EXPECT_STREQ(line.c_str(), rest);
    }
}

TEST(Parameter, ReadsNumbersWithADecimalPoint) {
    const std::string huge = "X1" + std::string(238, '0');
    const std::string endless = "X" + std::string(400, '9');
    const std::string tiny = "X0." + std::string(150, '0') + "1";
    const std::string padded = "X" + std::string(200, '0') + "7." + std::string(20, '0');
    // "-0" is an integer product without a negative zero; a sign, as a mark, carries over to the
    // next word; a fraction is an integer scaled down, until it exceeds an int.
    expectNumbers(".", false,
                  {{"X12.05", 12.0 + 5 * 1e-2},
                   {"X.5", 0.5},
                   {"X-.5", -0.5},
                   {"X5.", 5.0},
                   {"X.", 0.0},
                   {"X-0", 0.0},
                   {"X-0.0", 0.0},
                   {"X+7", 7.0},
                   {"X+-5", -5.0},
                   {"X=5", 5.0},
                   {"X0.2147483647", 2147483647 * 1e-10},
                   {"X0.2147483648", 0.2147483648},
                   {"X-3.1415926535897932", -3.1415926535897932},
                   {"X9223372036854775807", 0x1p63},
                   {"X99999999999999999999", 1e20},
                   {"X-18446744073709551617.5", -0x1p64},
                   {huge.c_str(), 1e238},
                   {endless.c_str(), kInfinity},
                   {tiny.c_str(), std::pow(10.0, -151)},
                   {padded.c_str(), 7.0}},
                  {"X-+5", "X 5", "X", "MAX5", "x5", "X=AC()", "X-"});
    expectNumbers(".", false,
                  {{"X-12.05Y1", -12.0 + -5 * 1e-2, "Y1"},
                   {"X5)", 5.0, ")"},
                   {"X5.5.5", 5.5, ".5"},
                   {"X1,5", 1.0, ",5"},
                   {"5X6", 6.0, "5"},
                   {"XA X2", 2.0, "XA "},
                   {"G1 X3 Z", 3.0, "G1  Z"},
                   {"\xFCX5", 5.0, "\xFC"},
                   {"X- Y1 X5", -5.0, "X- Y1 "},
                   {"X=AC(Y X5)", 5.0, "X=AC(Y "},
                   {"X=AC(12.5)Y", 12.5, "Y"}});
    expectNumbers(
        ".", true,
        {{"X=IC(-3)", -3.0}, {"X=AC(IC(4)", 4.0}, {"X=IC(5", 5.0}, {"X=IC() X1", 1.0, "X=IC() "}},
        {"X=IC()", "X=IC(Z"});
}

TEST(Parameter, ReadsNumbersWithOtherSeparators) {
    expectNumbers(",", false, {{"X1,5", 1.5}, {"X1.5", 1.0, ".5"}});
    // Of a longer text the first byte alone counts.
    expectNumbers(",.", false, {{"X1,5", 1.5}, {"X1.5", 1.0, ".5"}});
    // Without a separator three decimal places are implied, and the line's end separates nothing.
    expectNumbers("", false,
                  {{"X12345", 12.345}, {"X-1500", -1.5}, {"X0001", 0.001}, {"X1.5", 0.001, ".5"}},
                  {"X", "X-"});
    expectNumbers("", true, {{"X=IC(-250)", -0.25}});
}

TEST(Parameter, KeepsAnExplicitMarkUntilTheValueIsConverted) {
    MachineStatus machine;
    Parameter word("X");
    double base = 10.0;
    for (const auto& [text, value] : {std::pair{"X=AC(5)", 5.0}, std::pair{"X=IC(5)", 15.0}}) {
        std::string line = text;
        ASSERT_EQ(word.scanNC(line.data(), &machine), 1);
        word.SetIncStatus(word.GetIncStatus() == TRUE ? FALSE : TRUE);
        word.ConvertIncremental(base);
        word.ConvertIncremental(base);
        EXPECT_EQ(word.GetValue(), value) << text;
    }
}

} // namespace
