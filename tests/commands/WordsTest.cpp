#include "commands/AvailableCommands.h"
#include "commands/MachineStatus.h"
#include "commands/Parameter.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

// Each line comes with what is left of it once the word is cut out; without the word it stays
// whole.
void expectWords(const char* syntax, int number,
                 const std::vector<std::pair<const char*, std::string>>& lines) {
    for (const auto& [text, rest] : lines) {
        Command command;
        command.InitSyntax(syntax, number);
        std::string line = text;
        EXPECT_EQ(command.scanNC(line.data()), 0);
        EXPECT_EQ(command.GetNCLineStatus() == TRUE, text != rest) << text;
        EXPECT_STREQ(line.c_str(), rest.c_str()) << text;
    }
}

TEST(Command, FindsItsWordAndCutsItOut) {
    expectWords("G", 1, {{"X5 G001Y6", "X5 Y6"}, {"G10 G1 G1", "G10  G1"}, {"aG1 5G1", "aG1 5"}});
    expectWords("G", 1, {{"\xC4G1", "\xC4"}}); // a byte above 0x7F is no letter
    expectWords("G", 1, {{"G010", "G010"}, {"AG1", "AG1"}, {"g1", "g1"}, {"G-1 G+1", "G-1 G+1"}});
    expectWords("G", 0, {{"G00", ""}, {"G", "G"}});
    expectWords("M", -1, {{"M30X1", "X1"}, {"M", ""}});
    expectWords("G54.", 1, {{"G54.1", ""}});
    // A search that resumes looks at every letter again.
    expectWords("G", 1, {{"GG1", "GG1"}, {"G.G1", "G."}});
    expectWords("GG", 1, {{"GGG1", "GGG1"}});
    expectWords(nullptr, 5, {{"5", "5"}});
    expectWords("", -1, {{"X1", "X1"}});
    // A number beyond 32 bits is clamped, not wrapped.
    expectWords("M", 1, {{"M4294967297", "M4294967297"}});
    expectWords("M", 2147483647, {{"M99999999999999999999", ""}});
}

TEST(AvailableCommands, TriesLongWordsFirstAndAmongEqualsTheOneRegisteredLast) {
    AvailableCommands commands;
    for (const auto& [syntax, number] : std::initializer_list<std::pair<const char*, int>>{
             {"M", 0}, {"T", -1}, {"G", 100}, {"G", 10}, {nullptr, 7}, {"AB", 1}, {"S", 12}}) {
        auto command = std::make_unique<Command>();
        command->InitSyntax(syntax, number);
        commands.NewCommand(command.release());
    }
    commands.SortCommands();
    std::string order;
    for (int i = 0; i < commands.GetCommandCount(); ++i) {
        const char* const syntax = commands.GetCommand(i)->GetSyntaxString();
        order += std::string(syntax == nullptr ? "-" : syntax) +
                 std::to_string(commands.GetCommand(i)->GetSyntaxNumber()) + " ";
    }
    EXPECT_EQ(order, "G100 S12 AB1 G10 M0 T-1 -7 ");
}

// What a host makes of the framework: its digits are read as the C library reads them.
class Spaced : public Command {
    char* MoveAfterNumber(char* p) override { return p + std::strspn(p, " +-0123456789"); }
    int Compute(char* /*line*/) override { return 7; }
};

TEST(Command, ReadsTheDigitsThatADerivedCommandTakes) {
    for (const auto& [number, text] : {std::pair{1, "G 01"}, {-2, "G-2"}, {3, "G +3"}, {0, "G "}}) {
        Spaced command;
        command.InitSyntax("G", number);
        std::string line = text;
        EXPECT_EQ(command.scanNC(line.data()), 0);
        EXPECT_STREQ(line.c_str(), "") << text;
        MachineStatus machine;
        machine.GetBlock().Begin(std::string(255, 'x'), {}); // fills its buffers
        machine.GetFeedRateCom()->SetActiveCommand(&command);
        EXPECT_EQ(machine.scanNC(line.data()), 7) << "its code ends the block";
    }
}

struct Number {
    const char* line;
    double value;
    const char* rest = "";
};

// What a word reads on each line, which without a number stays whole.
void expectNumbers(const char* separator, bool incremental, const std::vector<Number>& numbers) {
    MachineStatus machine;
    machine.InitDecimalSeparator(separator);
    for (const auto& [text, value, rest] : numbers) {
        const bool found = std::string(text) != rest;
        Parameter word("X");
        word.SetDecimalPlace(3);
        std::string line = text;
        EXPECT_EQ(word.scanNC(line.data(), &machine) == 1, found) << text;
        EXPECT_EQ(word.GetNCLineStatus() == TRUE, found) << text;
        EXPECT_EQ(word.GetValue(), value) << text;
        EXPECT_EQ(std::signbit(word.GetValue()), std::signbit(value)) << text;
        EXPECT_EQ(word.GetIncStatus() == TRUE, incremental) << text;
        EXPECT_STREQ(line.c_str(), rest);
        double base = 10.0;
        word.ConvertIncremental(base);
        word.ConvertIncremental(base); // is absolute by now
        EXPECT_EQ(word.GetValue(), incremental ? value + base : value) << text;
    }
}

TEST(Parameter, ReadsNumbersWithADecimalPoint) {
    const std::string endless = "X" + std::string(400, '9');
    // "-0" is an integer product without a negative zero.
    expectNumbers(".", false, {{"X.5", 0.5}, {"X-.5", -0.5}, {"X5.", 5}, {"X.", 0}, {"X-0.0", 0}});
    expectNumbers(".", false, {{"X+7", 7}, {"X+-5", -5}, {"X=5", 5}});
    for (const char* const none : {"X-+5", "X 5", "X", "MAX5", "XX5", "x5", "X=AC()", "X-"}) {
        expectNumbers(".", false, {{none, 0, none}});
    }
    expectNumbers(".", false, {{endless.c_str(), std::numeric_limits<double>::infinity()}});
    // A sign, as a mark, carries over to the next word.
    expectNumbers(".", false, {{"X- Y1 X5", -5, "X- Y1 "}, {"X=AC(Y X5)", 5, "X=AC(Y "}});
    expectNumbers(".", true, {{"X=IC() X1", 1, "X=IC() "}, {"X=IC(Z", 0, "X=IC(Z"}});
    expectNumbers(".", true, {{"X=IC(-3)", -3}, {"X=AC(IC(4)", 4}, {"X=IC(5", 5}});
    expectNumbers(".", false, {{"X=AC(12.5)Y", 12.5, "Y"}, {"X-12.05Y1", -12 + -5 * 1e-2, "Y1"}});
    expectNumbers(".", false, {{"X5)", 5, ")"}, {"X5.5.5", 5.5, ".5"}, {"X1,5", 1, ",5"}});
    expectNumbers(".", false, {{"5X6", 6, "5"}, {"XA X2", 2, "XA "}, {"\xFCX5", 5, "\xFC"}});
}

TEST(Parameter, ReadsNumbersWithOtherSeparators) {
    // Of a longer text the first byte alone counts.
    expectNumbers(",.", false, {{"X1,5", 1.5}, {"X1.5", 1, ".5"}});
    // Without a separator three decimal places are implied, and the line's end separates nothing.
    expectNumbers("", false, {{"X12345", 12.345}, {"X-1501", -1.501}, {"X1.5", 0.001, ".5"}});
    expectNumbers("", false, {{"X", 0, "X"}, {"X-", 0, "X-"}});
    expectNumbers("", true, {{"X=IC(-250)", -0.25}});
}

} // namespace
