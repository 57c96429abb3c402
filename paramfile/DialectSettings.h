#pragma once

#include "text/TextRules.h"

#include <optional>
#include <string>
#include <vector>

class MachineStatus;

/// What the keys of a parameter file say about the text of programs, before the defaults of its
/// language stand in for what they leave open.
struct DialectSettings {
    bool isInUse = false; ///< whether there is any such key
    ProgramLanguage language = ProgramLanguage::kNone;
    std::optional<bool> anyCase;
    std::optional<bool> ignoresBlanks;
    std::optional<bool> endStops;
    std::optional<bool> skipsBlocks;
    std::optional<bool> printsTexts;
    std::vector<std::string> lineComments;
    std::vector<std::string> skipMarks;
    std::vector<std::string> frames;
    std::vector<std::string> programNames;
    std::vector<std::string> blockEnds;

    /// The rules that come of it; comments and block numbers are those of `status`. Throws
    /// std::bad_alloc.
    [[nodiscard]] TextRules Resolve(MachineStatus& status) const;
};

/// The family that a value of REV_PROGRAM_LANGUAGE names; none for any other text.
[[nodiscard]] std::optional<ProgramLanguage> languageOf(std::string_view name) noexcept;
