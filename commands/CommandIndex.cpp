#include "commands/CommandIndex.h"

#include "commands/ncNumber.h"
#include "softCommon/CStringUtil/asciiBytes.h"
#include "softCommon/CStringUtil/string_mani.h"

#include <algorithm>
#include <bit>
#include <cstring>

CommandIndex::CommandIndex(const AvailableCommands& commands) {
    for (int i = 0; i < commands.GetCommandCount(); ++i) {
        Command* const command = commands.GetCommand(i);
        // Without a text a command never matches.
        if (command != nullptr && command->GetSyntaxString() != nullptr &&
            *command->GetSyntaxString() != '\0') {
            m_commands.push_back(command);
        }
    }
    m_selected.resize((m_commands.size() + kBits - 1) / kBits);
    for (std::size_t i = 0; i < m_commands.size(); ++i) {
        const char* const syntax = m_commands[i]->GetSyntaxString();
        const int number = m_commands[i]->GetSyntaxNumber();
        FirstByte& row = rowOf(*syntax);
        const bool isLetterWithNumber = syntax[1] == '\0' && number >= 0;
        Set& set = isLetterWithNumber ? row.byNumber[numberClass(number)] : row.any;
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

void CommandIndex::select(const char* block, const ByteSet& bytes) noexcept {
    std::ranges::fill(m_selected, 0);
    for (const FirstByte& row : m_rows) {
        if (!bytes.MayContain(row.byte)) {
            continue;
        }
        add(row.any);
        for (const char* p = std::strchr(block, row.byte); p != nullptr;
             p = std::strchr(p, row.byte)) {
            if (isDigitByte(*++p)) {
                add(row.byNumber[numberClass(readCommandNumber(p))]);
            }
        }
    }
}

int CommandIndex::scanNC(char* block, const ByteSet& bytes) {
    if (!bytes.MayMeet(m_firstBytes)) {
        return 0;
    }
    select(block, bytes);
    for (std::size_t word = 0; word < m_selected.size(); ++word) {
        std::uint64_t untried = ~std::uint64_t{0};
        while (const std::uint64_t bits = m_selected[word] & untried) {
            const int bit = std::countr_zero(bits);
            untried = ~std::uint64_t{0} << bit << 1;
            std::size_t length = std::strlen(block);
            if (*block == ' ') {
                length = trimText(block, length);
            }
            if (length == 0) {
                return 0;
            }
            Command& command = *m_commands[word * kBits + static_cast<std::size_t>(bit)];
            if (const int code = command.scanNC(block); code != 0) {
                return code;
            }
            // Words that a command takes can stand between a text and its number: "-X=AC(5)1".
            if (std::strlen(block) != length) {
                select(block, bytes);
            }
        }
    }
    return 0;
}
