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

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Command, FindsItsWordAndCutsItOut) {
    struct Row {
        const char* syntax;
        int number;
        const char* line;
        bool found;
        const char* rest;
    };
    const Row rows[] = {
        {"G", 1, "G01X5", true, "X5"},
        {"G", 1, "G1", true, ""},
        {"G", 1, "X5 G001 Y6", true, "X5  Y6"},
        {"G", 1, "G010", false, "G010"},
        {"G", 1, "G10 G1", true, "G10 "},
        {"G", 1, "AG1", false, "AG1"},
        {"G", 1, "aG1 5G1", true, "aG1 5"},
        {"G", 1, "\xC4G1", true, "\xC4"}, // bytes above 0x7F are no letters
        {"G", 1, "g1", false, "g1"},
        {"G", 1, "G1 G1", true, " G1"},
        {"G", 1, "G-1 G+1 G 1 G", false, "G-1 G+1 G 1 G"},
        {"G", 0, "G00", true, ""},
        {"G", 0, "G", false, "G"},
        {"G54.", 1, "G54.1", true, ""},
        {"GG", 1, "GGG1", false, "GGG1"},
        {"M", -1, "M30X1", true, "X1"},
        {"M", -1, "M", true, ""},
        {"M", 2147483647, "M99999999999999999999", true, ""}, // clamped, not wrapped
        {"M", 1, "M4294967297", false, "M4294967297"},
        {nullptr, 5, "5", false, "5"},
        {"", -1, "X1", false, "X1"},
    };
    for (const Row& row : rows) {
        Command command;
        command.InitSyntax(row.syntax, row.number);
        std::string line = row.line;
        EXPECT_EQ(command.scanNC(line.data()), 0);
        EXPECT_EQ(command.GetNCLineStatus() == TRUE, row.found) << row.line;
        EXPECT_STREQ(line.c_str(), row.rest) << row.line;
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

struct NumberRow {
    const char* line;
    bool found;
    double value;
    bool incremental;
    const char* rest;
};

void expectNumbers(std::initializer_list<NumberRow> rows, const char* separator, int places) {
    MachineStatus machine;
    machine.InitDecimalSeparator(separator);
    for (const NumberRow& row : rows) {
        Parameter word("X");
        word.SetDecimalPlace(places);
        std::string line = row.line;
        EXPECT_EQ(word.scanNC(line.data(), &machine), row.found ? 1 : 0) << row.line;
        EXPECT_EQ(word.GetNCLineStatus() == TRUE, row.found) << row.line;
        EXPECT_EQ(word.GetValue(), row.value) << row.line;
        EXPECT_EQ(std::signbit(word.GetValue()), std::signbit(row.value)) << row.line;
        EXPECT_EQ(word.GetIncStatus() == TRUE, row.incremental) << row.line;
        EXPECT_STREQ(line.c_str(), row.rest) << row.line;
    }
}

TEST(Parameter, ReadsNumbersWithADecimalPoint) {
    const std::string huge = "X1" + std::string(238, '0');
    const std::string endless = "X" + std::string(400, '9');
    const std::string tiny = "X0." + std::string(150, '0') + "1";
    const std::string padded = "X" + std::string(200, '0') + "7." + std::string(20, '0');
    expectNumbers(
        {
            {"X12.05", true, 12.0 + 5 * 1e-2, false, ""},
            {"X-12.05Y1", true, -12.0 + -5 * 1e-2, false, "Y1"},
            {"G1 X.5 Z2", true, 0.5, false, "G1  Z2"},
            {"X-.5", true, -0.5, false, ""},
            {"X5.", true, 5.0, false, ""},
            {"X.", true, 0.0, false, ""},
            {"X-0", true, 0.0, false, ""}, // an integer product: no negative zero
            {"X-0.0", true, 0.0, false, ""},
            {"X+7", true, 7.0, false, ""},
            {"X+-5", true, -5.0, false, ""},
            {"X-+5", false, 0.0, false, "X-+5"},
            {"X- Y1 X5", true, -5.0, false, "X- Y1 "}, // the sign carries over
            {"X=AC(Y X5)", true, 5.0, false, "X=AC(Y "},
            {"X5.5.5", true, 5.5, false, ".5"},
            {"X1,5", true, 1.0, false, ",5"},
            {"X 5", false, 0.0, false, "X 5"},
            {"X", false, 0.0, false, "X"},
            {"XA X2", true, 2.0, false, "XA "},
            {"MAX5", false, 0.0, false, "MAX5"},
            {"\xFCX5", true, 5.0, false, "\xFC"},
            {"5X6", true, 6.0, false, "5"},
            {"x5", false, 0.0, false, "x5"},
            {"X=5", true, 5.0, false, ""},
            {"X=AC(12.5)Y", true, 12.5, false, "Y"},
            {"X=IC(-3)", true, -3.0, true, ""},
            {"X=AC(IC(4)", true, 4.0, true, ""},
            {"X=IC(5", true, 5.0, true, ""},
            {"X5)", true, 5.0, false, ")"},
            {"X=AC()", false, 0.0, false, "X=AC()"},
            {"X=IC() X1", true, 1.0, true, "X=IC() "},
            {"X9223372036854775807", true, 0x1p63, false, ""},
            {"X99999999999999999999", true, 1e20, false, ""},
            {"X-18446744073709551617.5", true, -0x1p64, false, ""},
            {"X0.2147483647", true, 2147483647 * 1e-10, false, ""},
            {"X0.2147483648", true, 0.2147483648, false, ""},
            {"X-3.14159265358979323846", true, -3.14159265358979323846, false, ""},
            {huge.c_str(), true, 1e238, false, ""},
            {endless.c_str(), true, kInfinity, false, ""},
            {tiny.c_str(), true, std::pow(10.0, -151), false, ""},
            {padded.c_str(), true, 7.0, false, ""},
        },
        ".", 3);
}

TEST(Parameter, ReadsNumbersWithOtherSeparators) {
    expectNumbers({{"X1,5", true, 1.5, false, ""}, {"X1.5", true, 1.0, false, ".5"}}, ",", 3);
    // Of a longer text the first byte alone counts.
    expectNumbers({{"X1,5", true, 1.5, false, ""}}, ",.", 3);
    // Without a separator the decimal places are implied, and the line's end separates nothing.
    expectNumbers(
        {
            {"X12345", true, 12.345, false, ""},
            {"X-1500", true, -1.5, false, ""},
            {"X0001", true, 0.001, false, ""},
            {"X=IC(-250)", true, -0.25, true, ""},
            {"X1.5", true, 0.001, false, ".5"},
            {"X", false, 0.0, false, "X"},
            {"X-", false, 0.0, false, "X-"},
        },
        "", 3);
    expectNumbers({{"X12345", true, 12345.0, false, ""}}, "", 0);
}

TEST(Parameter, KeepsAnExplicitMarkUntilTheValueIsConverted) {
    MachineStatus machine;
    Parameter word("X");
    word.InitStandardInc(TRUE);
    double base = 10.0;

    std::string absolute = "X=AC(5)";
    ASSERT_EQ(word.scanNC(absolute.data(), &machine), 1);
    word.SetIncStatus(TRUE);
    EXPECT_EQ(word.GetIncStatus(), FALSE);
    word.ConvertIncremental(base);
    EXPECT_EQ(word.GetValue(), 5.0);

    std::string incremental = "X=IC(5)";
    ASSERT_EQ(word.scanNC(incremental.data(), &machine), 1);
    word.SetIncStatus(FALSE);
    EXPECT_EQ(word.GetIncStatus(), TRUE);
    word.ConvertIncremental(base);
    EXPECT_EQ(word.GetValue(), 15.0);
    word.ConvertIncremental(base);
    EXPECT_EQ(word.GetValue(), 15.0) << "converted once";
    word.SetIncStatus(TRUE);
    EXPECT_EQ(word.GetIncStatus(), TRUE) << "the mark ends with the conversion";

    std::string plain = "X5";
    ASSERT_EQ(word.scanNC(plain.data(), &machine), 1);
    EXPECT_EQ(word.GetIncStatus(), TRUE) << "incremental by definition";
}

} // namespace
