#pragma once

#include "macro/Expression.h"

#include <optional>
#include <string>

/// One word of a block while its grammar reads it.
struct BlockWord {
    std::string letters;          ///< the address; empty for other text and for an assignment
    std::string text;             ///< as it stands; of a value what stands in front of its number
    std::string behind;           ///< of a value what stands behind its number
    std::optional<double> number; ///< when it is a mere number
    std::optional<Expression> value;  ///< when it must be computed
    std::optional<Expression> target; ///< of an assignment

    [[nodiscard]] bool isCode(char letter, double code) const noexcept {
        return letters.size() == 1 && letters.front() == letter && number == code;
    }
};
