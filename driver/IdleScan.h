#pragma once

#include "driver/IdleCause.h"
#include "program/Vocabulary.h"
#include "text/TextRules.h"

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

/// Looks through the beginning of a program that did not move for the likely cause. Reads a
/// regular file anew from its begin; of a pipe it knows nothing. Its constructor and CauseOf may
/// throw std::bad_alloc.
class IdleScan {
public:
    /// What the conversion saw of the program.
    struct Seen {
        bool hasText = false;        ///< a block held more than blanks
        bool hasWords = false;       ///< a block held something besides comments
        bool hasMoreThanEnd = false; ///< a block held words, and not the program's end
        bool hasOpenComment = false; ///< a comment without its end
    };

    explicit IdleScan(std::FILE* file);

    /// kWideCharacters or kCompressed, by the first bytes; else kNone.
    [[nodiscard]] IdleCause Encoding() const noexcept;
    [[nodiscard]] IdleCause CauseOf(const Seen& seen, const TextRules& rules,
                                    const Vocabulary& vocabulary) const;

private:
    [[nodiscard]] bool definesSubprograms() const;
    [[nodiscard]] bool beginsAsCommentsOnly() const noexcept;

    bool m_isRead = false;
    std::string m_text;
    std::vector<std::string_view> m_lines; // the first ones that hold more than blanks
};
