#include "path/BlockTable.h"

#include "path/WholeLines.h"

#include <algorithm>

namespace {

constexpr int kBannerLines = 2;

bool movesTool(std::string_view statement) noexcept {
    return statement.starts_with("GOTO/") || statement.starts_with("TLON,");
}

} // namespace

// A block stands between line ends, its statements behind it as in the APT. Lines that are none of
// the APT are messages of the converter.
std::string BlockTable::Read(std::FILE* log, std::FILE* apt) {
    WholeLines logLines(log);
    WholeLines aptLines(apt);
    std::string_view line;
    for (int i = 0; i < kBannerLines; ++i) {
        if (!logLines.Next(line)) {
            return "it is no log: its banner is missing";
        }
    }
    std::string_view statement;
    bool isLeft = aptLines.Next(statement);
    while (logLines.Next(line)) {
        if (line.empty()) {
            if (logLines.Next(line)) {
                add(line, aptLines.Number() + (isLeft ? 0U : 1U));
            }
        } else if (isLeft && line == statement) {
            isLeft = aptLines.Next(statement);
        } else if (!isLeft && movesTool(line)) {
            *this = BlockTable();
            return "it goes on behind the end of this APT, which may have been cut off";
        }
    }
    if (isLeft || logLines.Error() != 0 || aptLines.Error() != 0) {
        const std::string number = std::to_string(aptLines.Number());
        *this = BlockTable();
        return "it is not the log of this APT: line " + number + " of the APT is not in it";
    }
    return {};
}

void BlockTable::add(std::string_view text, std::uint32_t nextLine) {
    m_texts += text;
    m_blocks.push_back({nextLine, m_texts.size()});
}

std::uint32_t BlockTable::At(std::uint32_t line) const noexcept {
    const auto behind = std::ranges::upper_bound(m_blocks, line, {}, &Row::nextLine);
    return behind == m_blocks.begin() ? kNone
                                      : static_cast<std::uint32_t>(behind - m_blocks.begin()) - 1;
}

std::string_view BlockTable::Text(std::uint32_t block) const noexcept {
    const std::size_t begin = block == 0 ? 0 : m_blocks[block - 1].textEnd;
    return std::string_view(m_texts).substr(begin, m_blocks[block].textEnd - begin);
}
