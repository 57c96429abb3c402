#include "commands/PassedWords.h"

#include "commands/wordMatcher.h"

#include <algorithm>
#include <array>

namespace {

std::optional<WordPlace> findCode(const PassedWords::List& list, char* rest,
                                  WordRule rule) noexcept {
    for (const WordCode& code : list.codes) {
        if (const auto place = code.FindIn(rest, rule)) {
            return place;
        }
    }
    return std::nullopt;
}

bool hasLetters(const PassedWords::List& list, std::string_view letters) noexcept {
    return std::ranges::find(list.addresses, letters, &WordAddress::Letters) !=
           list.addresses.end();
}

} // namespace

void PassedWords::BuildFilter() {
    for (const List* const list : {&own, &notConverted}) {
        for (const WordCode& code : list->codes) {
            m_filter.Add(code);
        }
        for (const WordAddress& address : list->addresses) {
            m_filter.Add(address);
        }
    }
}

std::string_view PassedWords::FindNotConverted(char* rest, char separator) const noexcept {
    if (const auto place = findCode(notConverted, rest, rule)) {
        return place->Text();
    }
    if (notConverted.addresses.empty() || findCode(own, rest, rule)) {
        return {};
    }
    const bool isDwell = findCode(dwell, rest, rule).has_value();
    for (const WordAddress& address : notConverted.addresses) {
        if (isDwell && hasLetters(dwell, address.Letters())) {
            continue;
        }
        if (const auto place = address.FindValue(rest, rule, separator)) {
            return place->Text();
        }
    }
    return {};
}

bool PassedWords::DropOwn(char* rest) const noexcept {
    if (!findCode(own, rest, rule)) {
        return false;
    }
    *rest = '\0';
    return true;
}

void PassedWords::DropWithoutEffect(char* rest, char separator) const noexcept {
    if (findCode(noEffect, rest, rule)) {
        *rest = '\0';
        return;
    }
    for (const WordAddress& address : noEffect.addresses) {
        while (const auto place = address.FindNumber(rest, rule, separator)) {
            cutOut(place->begin, place->end);
        }
    }
}

bool PassedWords::HasNoEffect(std::string_view word, char separator) const noexcept {
    std::array<char, 64> copy;
    if (noEffect.IsEmpty() || word.size() >= copy.size()) {
        return false;
    }
    *std::ranges::copy(word, copy.data()).out = '\0';
    DropWithoutEffect(copy.data(), separator);
    return copy[0] == '\0';
}
