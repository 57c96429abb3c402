#include "commands/CommandIndex.h"

#include <algorithm>
#include <bit>
#include <cstring>

CommandIndex::CommandIndex(const AvailableCommands& commands) {
    const auto count = static_cast<std::size_t>(commands.GetCommandCount());
    m_selected.resize((count + kBits - 1) / kBits);
    for (std::size_t i = 0; i < count; ++i) {
        Command* const command = commands.GetCommand(static_cast<int>(i));
        m_commands.push_back(command);
        // Without a text a command never matches.
        if (command == nullptr || command->Word().Text().empty()) {
            continue;
        }
        const CommandWord& word = command->Word();
        FirstByte& row = rowOf(word.Text().front());
        const bool isChosenByNumber = command->IsBuiltIn() && word.IsLetterWithNumber();
        Set& set = isChosenByNumber ? row.byNumber[numberClass(word.Number())] : row.any;
        set.resize(m_selected.size());
        set[i / kBits] |= std::uint64_t{1} << (i % kBits);
    }
}

CommandIndex::FirstByte& CommandIndex::rowOf(char byte) {
    const auto found = std::ranges::find(m_rows, byte, &FirstByte::byte);
    if (found != m_rows.end()) {
        return *found;
    }
    // Made in steps: g++ 12 touches an aggregate after its end when one of its parts throws.
    FirstByte& row = m_rows.emplace_back();
    row.byte = byte;
    m_firstBytes = m_firstBytes | ByteSet::Of({&byte, 1});
    row.byNumber.resize(kNumberClasses);
    return row;
}

// An empty set adds nothing, so sets without members take no memory.
void CommandIndex::add(const Set& set) noexcept {
    for (std::size_t word = 0; word < set.size(); ++word) {
        m_selected[word] |= set[word];
    }
}

void CommandIndex::select(const Block& block) noexcept {
    std::ranges::fill(m_selected, 0);
    for (const FirstByte& row : m_rows) {
        if (!block.Bytes().MayContain(row.byte)) {
            continue;
        }
        add(row.any);
        for (const char* p = std::strchr(block.Rest(), row.byte); p != nullptr;
             p = std::strchr(p, row.byte)) {
            if (const std::optional<int> number = CommandWord::NumberAt(++p)) {
                add(row.byNumber[numberClass(*number)]);
            }
        }
    }
}

std::size_t CommandIndex::nextSelected(std::size_t from) const noexcept {
    std::size_t word = from / kBits;
    if (word >= m_selected.size()) {
        return m_commands.size();
    }
    std::uint64_t bits = m_selected[word] & ~std::uint64_t{0} << (from % kBits);
    while (bits == 0) {
        if (++word == m_selected.size()) {
            return m_commands.size();
        }
        bits = m_selected[word];
    }
    return word * kBits + static_cast<std::size_t>(std::countr_zero(bits));
}

int CommandIndex::scanNC(Block& block) {
    const char* const rest = block.Rest();
    if (!block.Bytes().MayMeet(m_firstBytes)) {
        if (*rest == ' ' && !m_commands.empty()) {
            block.TrimRest();
        }
        return 0;
    }
    select(block);
    for (std::size_t i = 0; i < m_commands.size(); ++i) {
        // Before the commands left out as well: a host's command sees what they would leave.
        if (*rest == ' ') {
            block.TrimRest();
        }
        if (*rest == '\0') {
            return 0;
        }
        i = nextSelected(i);
        if (i == m_commands.size()) {
            return 0;
        }
        if (const int code = tryCommand(*m_commands[i], block); code != 0) {
            return code;
        }
    }
    return 0;
}

int CommandIndex::tryCommand(Command& command, Block& block) {
    if (!command.IsBuiltIn()) {
        block.BeginForeign();
        const int code = command.scanNC(block.Rest());
        block.EndForeign();
        select(block);
        return code;
    }
    const int code = command.scanNC(block.Rest());
    // Words that a command takes can stand between a text and its number: "-X=AC(5)1".
    if (command.WasFound()) {
        select(block);
    }
    return code;
}
