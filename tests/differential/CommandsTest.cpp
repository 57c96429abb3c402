// The choice of commands by what stands on a block against trying every one in turn.

#include "commands/CommandIndex.h"
#include "commands/MachineStatus.h"
#include "commands/Parameter.h"
#include "softCommon/CStringUtil/string_mani.h"

#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

// Takes an X word as well, which can bring a command's text and its number together: "-X=AC(5)1". A
// host's one reads blanks and points among its digits, and changes text in place.
class Recording : public Command {
public:
    Recording(int id, bool isOfHost, std::vector<int>& found)
        : m_id(id), m_isOfHost(isOfHost), m_found(found) {
        if (!isOfHost) {
            MarkAsBuiltIn();
        }
    }
    void InitStatus(char* line) override {
        m_found.push_back(m_id);
        m_word.scanNC(line, &m_status);
        if (char* const letter = std::strchr(line, 'M'); m_isOfHost && letter != nullptr) {
            *letter = 'G';
        }
    }
    char* MoveAfterNumber(char* p) override {
        return m_isOfHost ? p + std::strspn(p, " .0123456789") : Command::MoveAfterNumber(p);
    }

private:
    int m_id;
    bool m_isOfHost;
    std::vector<int>& m_found;
    MachineStatus m_status;
    Parameter m_word{"X"};
};

template<std::size_t Size>
const char* anyOf(std::mt19937& random, const char* const (&texts)[Size]) {
    return texts[random() % Size];
}

// Numbers that share a class of the index, words that begin alike, bytes of equal low six bits.
void registerAny(std::mt19937& random, AvailableCommands& commands, std::vector<int>& found) {
    constexpr int kNumbers[] = {-1, 0, 1, 2, 10, 65, 74, 100, 129, 2147483647};
    const int count = 1 + static_cast<int>(random() % 90);
    for (int id = 0; id < count; ++id) {
        auto command = std::make_unique<Recording>(id, random() % 8 == 0, found);
        command->InitSyntax(anyOf(random, {"G", "M", "m", "-", "GM", "G1", "MG", "(", ""}),
                            kNumbers[random() % std::size(kNumbers)]);
        commands.NewCommand(command.release());
    }
    commands.SortCommands();
}

std::string anyBlock(std::mt19937& random) {
    std::string block;
    for (std::size_t pieces = random() % 9; pieces > 0; --pieces) {
        block += anyOf(random, {"G",    "M",     "m",          "-",          "(",   "X=AC(5)", " ",
                                "1",    "2",     "0",          "01",         "065", "74",      "G1",
                                "M129", "G100 ", "2147483647", "2147483648", ".",   " 1"});
    }
    return block;
}

TEST(Differential, TheIndexFindsWhatTryingEveryCommandFinds) {
    std::mt19937 random(9);
    std::vector<int> found;
    std::size_t finds = 0;
    for (int dialect = 0; dialect < 300; ++dialect) {
        AvailableCommands commands;
        registerAny(random, commands, found);
        CommandIndex index(commands);
        for (int i = 0; i < 200; ++i) {
            const std::string block = anyBlock(random);
            std::string plain = block;
            for (int k = 0; k < commands.GetCommandCount() && plain[0] != '\0'; ++k) {
                if (plain[0] == ' ') {
                    string_mani(3, plain.data());
                }
                commands.GetCommand(k)->scanNC(plain.data());
            }
            const std::vector<int> expected = std::exchange(found, {});
            Block indexed;
            indexed.Begin(block, {});
            index.scanNC(indexed);
            ASSERT_EQ(std::exchange(found, {}), expected) << "block '" << block << "'";
            ASSERT_STREQ(indexed.Rest(), plain.c_str()) << "block '" << block << "'";
            finds += expected.size();
        }
    }
    EXPECT_GT(finds, 10'000U);
}

} // namespace
