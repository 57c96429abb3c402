#pragma once

#include "macro/StoredPool.h"
#include "macro/SystemPool.h"
#include "text/TextRules.h"

#include <span>
#include <string_view>

/// The values of the machine that system variables name.
enum class MachineQuantity : int {
    kPosition, ///< of the first axis; places count the axes on, and those behind the third are 0
    kPositionY,
    kPositionZ,
    kTool,
    kFeed,
    kSpeed,
    kIsMetric,
    kIsImperial,
    kIsAbsolute,
    kIsIncremental,
    kMovementCode,
    kDistanceCode, ///< 90 or 91
    kUnitsCode,    ///< 20 or 21
    kZero,         ///< always 0; what is written is passed over
    kAlarm         ///< writing ends the program
};

/// What a family has beside its spelling: its variables, and what its blocks mean.
struct LanguageTraits {
    std::span<const NumberRange> localNumbers;   ///< new ones for a call with locals
    std::span<const NumberRange> programNumbers; ///< one set for the whole program
    std::span<const SystemVariable> system;
    bool (*takesLocalName)(std::string_view name);   ///< null: names are declared
    bool (*takesProgramName)(std::string_view name); ///< null: there are none
    std::string_view resultName;    ///< variable with what a subprogram returned; empty: none
    std::string_view hasResultName; ///< variable with whether it did
    bool assignsBehindBlock;        ///< all assignments of a block take effect behind it
    bool roundsWholeWords;          ///< a fraction in a word of whole numbers is rounded
    double wholeTolerance;          ///< else it may be off by so much
};

/// The traits of a family that computes.
[[nodiscard]] const LanguageTraits& traitsOf(ProgramLanguage language) noexcept;
