#pragma once

#include "driver/NCScan.h"
#include "program/Vocabulary.h"

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

/// The words that the keys of a dialect know: those of its commands and addresses, and those that
/// have no effect, are their own or are not converted.
class ModelVocabulary final : public Vocabulary {
public:
    /// Made when the model is configured. Throws std::bad_alloc.
    explicit ModelVocabulary(NCScan& scan);

    [[nodiscard]] bool isKnown(std::string_view word) const override;
    [[nodiscard]] bool followsBlocks(long number) const noexcept override;
    [[nodiscard]] int impliedDecimals(std::string_view address) const override;
    [[nodiscard]] char separator() const override { return m_separator; }

private:
    void addPassed(const PassedWords::List& list);

    std::unordered_set<std::string> m_codes;          // by WordCode::Spelling
    std::vector<long> m_following;                    // numbers of G codes
    std::unordered_set<std::string> m_prefixes;       // codes that take any digits along
    std::unordered_map<std::string, int> m_addresses; // with their implied decimals
    char m_separator;
    bool m_areNamesWhole;
};
