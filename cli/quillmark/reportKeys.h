#pragma once

#include "driver/ScanReport.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <variant>

/// The names under which the front end tells what a conversion reports.

/// Statements of one kind; `text` names them in a sentence. Those of which every summary tells come
/// first.
struct StatementRow {
    StatementKind kind;
    const char* key;
    const char* text;
    bool isAlwaysTold = true; ///< else only when there are some
};

inline constexpr StatementRow kStatementRows[] = {
    {StatementKind::kRapidMove, "rapid_moves", "rapid moves"},
    {StatementKind::kFeedMove, "feed_moves", "feed moves"},
    {StatementKind::kArc, "arcs", "arcs"},
    {StatementKind::kToolAxis, "tool_axes", "tool axes"},
    {StatementKind::kFeedRate, "feed_rates", "feed rates"},
    {StatementKind::kSpindle, "spindle", "spindle"},
    {StatementKind::kCoolant, "coolant", "coolant"},
    {StatementKind::kTool, "tools", "tools"},
    {StatementKind::kMode, "modes", "modes"},
    {StatementKind::kProgramEnd, "program_ends", "program ends"},
    {StatementKind::kText, "texts", "texts"},
    {StatementKind::kDelay, "delays", "delays", false},
    {StatementKind::kUnits, "units", "units", false},
    {StatementKind::kCompensation, "compensations", "compensations", false},
    {StatementKind::kStop, "stops", "stops", false},
    {StatementKind::kHome, "reference_points", "reference points", false},
};

// A dropped arc writes no statement: it is an oddity.
static_assert([] {
    for (std::size_t i = 0; i < static_cast<std::size_t>(StatementKind::kCount); ++i) {
        const auto kind = static_cast<StatementKind>(i);
        const bool isStatement = kind != StatementKind::kDroppedArc;
        if (std::ranges::count(kStatementRows, kind, &StatementRow::kind) !=
            (isStatement ? 1 : 0)) {
            return false;
        }
    }
    return true;
}());

enum class Level {
    kNote,   ///< worth knowing: told with the figures only
    kWarning ///< the path may be wrong
};

/// An oddity, what it is and what follows from it.
struct OddityRow {
    Oddity oddity;
    const char* key;
    const char* text;
    const char* consequence;
    Level level = Level::kWarning;
};

inline constexpr OddityRow kOddityRows[] = {
    {Oddity::kDroppedArc, "dropped_arcs", "arcs of radius 0", "nothing was written for them"},
    {Oddity::kLongLine, "long_blocks", "blocks longer than 255 characters",
     "they were read in pieces, a number can be cut in two"},
    {Oddity::kNulByte, "nul_bytes", "blocks with a NUL byte", "what follows it was not read"},
    {Oddity::kOpenComment, "unterminated_comments", "comments without an end",
     "the rest of the block was not read"},
    {Oddity::kSkipMark, "skip_marked_blocks", "blocks with a mark to skip them",
     "they were converted, as with the operator's switch off", Level::kNote},
    {Oddity::kRestart, "restarts", "returns from the main program",
     "the conversion ends there, and a control would begin the program again", Level::kNote},
    {Oddity::kComputes, "computing_blocks",
     "the program computes, and the APT does not follow it; such blocks",
     "a dialect that names their language with REV_PROGRAM_LANGUAGE runs them"},
    {Oddity::kAxisNotGiven, "axes_not_given", "movements before every axis was given",
     "0 was taken for the others", Level::kNote},
    {Oddity::kUnknownOrigin, "unknown_origins", "work offsets whose origin is unknown",
     "the positions count from the zero of the first blocks", Level::kNote},
    {Oddity::kUnknownPlace, "unknown_machine_places",
     "ways to places of the machine that the parameter file does not tell",
     "REV_MACHINE_ZERO says where machine zero lies"},
    {Oddity::kHeldRapid, "held_rapids", "rapid movements at the end to an axis that is unknown",
     "nothing was written for them"},
    {Oddity::kRotaryLimit, "rotary_limits", "rotary axes that leave their limits",
     "the tool path is written all the same"},
    {Oddity::kHeadLength, "head_lengths", "tools on a turning head whose length nobody tells",
     "REV_HEAD_TOOL_LENGTH tells it; without it the tip lies where a tool of length 0 has it"},
    {Oddity::kCycleAside, "cycles_aside", "cycles that do not run along the tool",
     "their movements are written as the program has them"},
    {Oddity::kRotaryFeed, "rotary_feeds", "rotary axes that move alone at a feed",
     "the feed is that of the axis, and was kept as one along the path"},
    {Oddity::kNoFeed, "feeds_missing", "feed movements before the program gave a feed",
     "the APT has none for them, or 0", Level::kNote},
    {Oddity::kCompensation, "compensations", "blocks with radius compensation",
     "the path is the programmed contour", Level::kNote},
};

/// A cause of a program without a movement.
struct IdleRow {
    const char* key; ///< null: there is nothing to tell
    const char* text;
    Level level = Level::kWarning;
};

inline constexpr IdleRow kIdleRows[] = {
    {nullptr, ""},
    {"only_subprograms", "the file only defines subprograms", Level::kNote},
    {"utf_16", "by its first bytes it is UTF-16, two bytes for each character"},
    {"gzip", "by its first bytes it is compressed (gzip)"},
    {"lower_case", "its words are in lower case, which the dialect does not read"},
    {"comments", "the dialect takes it for comments, or its comments are of another style"},
    {"no_word", "no word of the dialect is in its first 100 lines"},
    {"unknown", "its blocks hold no position that the dialect reads"},
};
static_assert(std::size(kIdleRows) == static_cast<std::size_t>(IdleCause::kCount));

[[nodiscard]] constexpr const OddityRow& rowOf(Oddity oddity) noexcept {
    return *std::ranges::find(kOddityRows, oddity, &OddityRow::oddity);
}

[[nodiscard]] constexpr const IdleRow& rowOf(IdleCause cause) noexcept {
    return kIdleRows[static_cast<std::size_t>(cause)];
}

struct WarningRow {
    Warning::Kind kind;
    const char* key;
    const char* text;
};

inline constexpr WarningRow kWarningRows[] = {
    {Warning::Kind::kUnknownGWord, "unrecognised_g_word",
     "not recognised, in a block that moves the tool"},
    {Warning::Kind::kArcWithoutCentre, "arc_without_centre", "arc without a centre word"},
    {Warning::Kind::kHelix, "helix", "helix, but the APT has an arc that ends at another height"},
    {Warning::Kind::kRadiiDiffer, "radii_differ", "the end of the arc is not on its circle"},
    {Warning::Kind::kTwoMovements, "two_movement_codes",
     "is one of two movement codes and acts alone; coordinates of the block can be lost"},
    {Warning::Kind::kFractionBehindCode, "fraction_behind_code",
     "taken for the code without its fraction"},
    {Warning::Kind::kTextBehindNumber, "text_behind_number", "read up to its first number only"},
    {Warning::Kind::kUnreadAxis, "unread_axis",
     "not read, and the block moves without that word or not at all"},
    {Warning::Kind::kPlane, "plane",
     "not recognised, may be another plane: the arcs behind it lie wrong"},
    {Warning::Kind::kInch, "inch", "not recognised, may mean inches: coordinates are taken as mm"},
    {Warning::Kind::kCycle, "cycle",
     "not recognised, may be a cycle: its holes or passes are missing"},
};

static_assert([] {
    for (std::size_t i = 0; i < static_cast<std::size_t>(Warning::Kind::kCount); ++i) {
        if (kWarningRows[i].kind != static_cast<Warning::Kind>(i)) {
            return false;
        }
    }
    return std::size(kWarningRows) == static_cast<std::size_t>(Warning::Kind::kCount);
}());

[[nodiscard]] constexpr const WarningRow& rowOf(Warning::Kind kind) noexcept {
    return kWarningRows[static_cast<std::size_t>(kind)];
}

/// All that is warned of while a program is read, what spoils most of its path first.
inline constexpr std::variant<Oddity, Warning::Kind> kWorstFirst[] = {
    // All of it.
    Oddity::kComputes,
    Warning::Kind::kInch,
    // What is missing or leads elsewhere.
    Warning::Kind::kArcWithoutCentre,
    Oddity::kDroppedArc,
    Warning::Kind::kPlane,
    Warning::Kind::kCycle,
    Oddity::kUnknownPlace,
    Oddity::kHeldRapid,
    Oddity::kHeadLength,
    // Single blocks.
    Warning::Kind::kUnreadAxis,
    Warning::Kind::kUnknownGWord,
    Warning::Kind::kTextBehindNumber,
    Warning::Kind::kFractionBehindCode,
    Warning::Kind::kTwoMovements,
    Warning::Kind::kRadiiDiffer,
    Oddity::kLongLine,
    Oddity::kNulByte,
    Oddity::kOpenComment,
    // The shape of single movements, their limits and feeds.
    Warning::Kind::kHelix,
    Oddity::kCycleAside,
    Oddity::kRotaryLimit,
    Oddity::kRotaryFeed,
};

// Every kind once, and every oddity that is a warning.
static_assert([] {
    std::size_t oddities = 0;
    for (const OddityRow& row : kOddityRows) {
        const bool isWarning = row.level == Level::kWarning;
        oddities += isWarning ? 1 : 0;
        if (std::ranges::count(kWorstFirst, std::variant<Oddity, Warning::Kind>(row.oddity)) !=
            (isWarning ? 1 : 0)) {
            return false;
        }
    }
    return std::ranges::all_of(kWarningRows,
                               [](const WarningRow& row) {
                                   return std::ranges::count(
                                              kWorstFirst,
                                              std::variant<Oddity, Warning::Kind>(row.kind)) == 1;
                               }) &&
           std::size(kWorstFirst) == oddities + std::size(kWarningRows);
}());

/// Whether a conversion was warned of.
[[nodiscard]] inline bool hasWarnings(const ScanReport& report) noexcept {
    const IdleRow& idle = rowOf(report.Idle());
    const bool isIdle = idle.key != nullptr && idle.level == Level::kWarning;
    return isIdle || report.WarningCount() > 0 ||
           std::ranges::any_of(kOddityRows, [&](const OddityRow& row) {
               return row.level == Level::kWarning && report.Of(row.oddity).count > 0;
           });
}
