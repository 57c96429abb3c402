#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

/// The NC blocks of a conversion, from its log, with the statements that each of them gave.
class BlockTable {
public:
    /// Of a movement without a block.
    static constexpr std::uint32_t kNone = UINT32_MAX;

    /// Reads a log beside the APT of the same conversion. Returns an empty text, or why the log is
    /// none or not that of this APT; the table is empty then.
    [[nodiscard]] std::string Read(std::FILE* log, std::FILE* apt);

    [[nodiscard]] bool IsEmpty() const noexcept { return m_blocks.empty(); }
    [[nodiscard]] std::uint32_t Count() const noexcept {
        return static_cast<std::uint32_t>(m_blocks.size());
    }
    /// The block that gave the statement in a line of the APT, counted from 0; or kNone.
    [[nodiscard]] std::uint32_t At(std::uint32_t line) const noexcept;
    /// A block as the log has it. It stays valid as long as the table.
    [[nodiscard]] std::string_view Text(std::uint32_t block) const noexcept;

private:
    struct Row {
        std::uint32_t nextLine = 0; ///< of the APT, behind the statements of the blocks before
        std::size_t textEnd = 0;
    };

    void add(std::string_view text, std::uint32_t nextLine);

    std::vector<Row> m_blocks;
    std::string m_texts; // one behind the other
};
