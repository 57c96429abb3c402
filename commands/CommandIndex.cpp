#include "commands/CommandIndex.h"

#include <algorithm>

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
        const char byte = *m_commands[i]->GetSyntaxString();
        auto row = std::ranges::find(m_firstBytes, byte, &FirstByte::byte);
        if (row == m_firstBytes.end()) {
            row = m_firstBytes.insert(row, {byte, decltype(m_selected)(m_selected.size())});
        }
        row->members[i / kBits] |= std::uint64_t{1} << (i % kBits);
    }
}

void CommandIndex::Select(const ByteSet& bytes) noexcept {
    for (std::size_t word = 0; word < m_selected.size(); ++word) {
        std::uint64_t selected = 0;
        for (const FirstByte& row : m_firstBytes) {
            selected |= bytes.MayContain(row.byte) ? row.members[word] : 0;
        }
        m_selected[word] = selected;
    }
}
