#pragma once

#include "commands/AxisWords.h"

#include <algorithm>
#include <optional>
#include <vector>

class MachineStatus;
class Parameter;

/// The address words of one meaning, each spelling a Parameter. Does not own them.
class WordList {
public:
    /// Throws std::bad_alloc.
    void Add(Parameter* word) { m_words.push_back(word); }
    [[nodiscard]] bool IsEmpty() const noexcept { return m_words.empty(); }
    [[nodiscard]] bool HasAny(auto predicate) const {
        return std::ranges::any_of(m_words,
                                   [&](const Parameter* word) { return predicate(*word); });
    }

    /// Takes the first of them that stands in the block out of it, with its value.
    [[nodiscard]] std::optional<double> Take(char* line, MachineStatus& status) const;
    /// The same with what the word says of the way it counts.
    [[nodiscard]] std::optional<AxisValue> TakeValue(char* line, MachineStatus& status) const;
    /// The same, with the word itself; null when there is none.
    [[nodiscard]] Parameter* TakeWord(char* line, MachineStatus& status) const;

private:
    std::vector<Parameter*> m_words;
};
