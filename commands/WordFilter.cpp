#include "commands/WordFilter.h"

#include "commands/ncNumber.h"
#include "softCommon/CStringUtil/asciiBytes.h"

namespace {

constexpr std::uint8_t kAnyWord = 1;
constexpr std::uint8_t kFirstRow = 2;

} // namespace

void WordFilter::addLetters(std::string_view letters) noexcept {
    if (!letters.empty()) {
        m_rows[indexOf(letters.front())] = kAnyWord;
    }
}

void WordFilter::Add(const WordCode& code) {
    const std::string_view letters = code.Letters();
    if (letters.size() != 1 || !code.HasNumber()) {
        addLetters(letters);
        return;
    }
    std::uint8_t& row = m_rows[indexOf(letters.front())];
    if (row == 0 && m_numbers.size() + kFirstRow < m_rows.size()) {
        m_numbers.emplace_back();
        row = static_cast<std::uint8_t>(m_numbers.size() - 1 + kFirstRow);
    }
    if (row >= kFirstRow) {
        m_numbers[row - kFirstRow].set(static_cast<std::size_t>(code.Number()) % kNumberClasses);
    }
}

bool WordFilter::MayHold(const char* block) const noexcept {
    for (const char* p = block; *p != '\0'; ++p) {
        const std::uint8_t row = m_rows[indexOf(*p)];
        if (row == 0) {
            continue;
        }
        if (row == kAnyWord) {
            return true;
        }
        if (!isDigitByte(p[1])) {
            continue;
        }
        const auto number = static_cast<std::size_t>(readCommandNumber(p + 1));
        if (m_numbers[row - kFirstRow].test(number % kNumberClasses)) {
            return true;
        }
    }
    return false;
}
