#include "driver/WordTally.h"

#include <algorithm>
#include <new>

void WordTally::Add(std::string_view word, long line) noexcept {
    ++m_total;
    if (const auto known = m_words.find(word); known != m_words.end()) {
        known->second.Add(line);
    } else if (!addNew(word, line)) {
        ++m_others;
    }
}

bool WordTally::addNew(std::string_view word, long line) noexcept {
    if (m_words.size() >= kMaxWords) {
        return false;
    }
    try {
        m_order.reserve(kMaxWords); // sorting must not need memory
        const auto added = m_words.emplace(word, Tally{1, line}).first;
        m_order.push_back(&*added);
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

std::span<const WordTally::Entry* const> WordTally::MostFrequentFirst() noexcept {
    std::ranges::sort(m_order, [](const Entry* left, const Entry* right) {
        const Tally& l = left->second;
        const Tally& r = right->second;
        if (l.count != r.count) {
            return l.count > r.count;
        }
        return l.firstLine != r.firstLine ? l.firstLine < r.firstLine : left->first < right->first;
    });
    return m_order;
}
