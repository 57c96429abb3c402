#include "path/UnknownStatements.h"

#include <algorithm>

namespace {

constexpr std::size_t kMostNames = 64;
constexpr std::size_t kLongestName = 24;

} // namespace

void UnknownStatements::Add(std::string_view name, std::uint32_t line) {
    name = name.substr(0, kLongestName);
    const auto row = std::ranges::find(m_rows, name, &Row::name);
    if (row != m_rows.end()) {
        ++row->count;
    } else if (m_rows.size() < kMostNames) {
        m_rows.push_back({std::string(name), line, 1});
    } else {
        ++m_others;
    }
}
