#include "driver/WordTally.h"

#include <algorithm>
#include <new>

namespace {

std::string nameOf(const Block::Place& place) { return place.file == nullptr ? "" : place.file; }

} // namespace

void Tally::Add(const Block::Place& place) noexcept {
    if (count++ == 0) {
        firstLine = place.line;
        try {
            firstFile = nameOf(place);
        } catch (const std::bad_alloc&) {
            firstFile = "?";
        }
    }
}

void WordTally::Add(std::string_view word, const Block::Place& place) noexcept {
    ++m_total;
    if (const auto known = m_words.find(word); known != m_words.end()) {
        known->second.Add(place);
    } else if (!addNew(word, place)) {
        ++m_others;
    }
}

bool WordTally::addNew(std::string_view word, const Block::Place& place) noexcept {
    if (m_words.size() >= kMaxWords) {
        return false;
    }
    try {
        m_order.reserve(kMaxWords); // sorting must not need memory
        const auto added = m_words.emplace(word, Tally{1, place.line, nameOf(place)}).first;
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
