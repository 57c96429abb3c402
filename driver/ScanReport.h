#pragma once

#include "apt/StatementCounts.h"
#include "commands/Block.h"
#include "driver/IdleCause.h"
#include "driver/RestScan.h"
#include "driver/Warning.h"
#include "driver/WordTally.h"

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

/// What is noticed once and counted, without a list.
enum class Oddity : std::size_t {
    kDroppedArc,    ///< an arc of radius 0, of which no statement was written
    kLongLine,      ///< a line longer than a block, read in pieces: a number can be cut in two
    kNulByte,       ///< a block with a NUL byte: the rest of the block is not read
    kOpenComment,   ///< a comment without its end: the rest of the block is not read
    kSkipMark,      ///< a block with a mark to skip it, which was converted all the same
    kRestart,       ///< an end behind which a control would begin the main program again
    kComputes,      ///< a block of a program that computes, read by a dialect that does not
    kAxisNotGiven,  ///< a movement before every axis was given: 0 is taken for the others
    kUnknownOrigin, ///< a work offset of which nobody says where it lies
    kUnknownPlace,  ///< a way to a place of the machine of which nobody says where it lies
    kHeldRapid,     ///< a rapid movement that was never written, since an axis is unknown
    kCompensation,  ///< a radius compensation: the path is the programmed contour
    kRotaryLimit,   ///< a rotary axis that left its limits for the first time
    kHeadLength,    ///< a tool on a turning head of which nobody says how long it is
    kCycleAside,    ///< a cycle that does not run along the tool
    kRotaryFeed,    ///< the first movement of a rotary axis alone at a feed along the path
    kNoFeed,        ///< a feed movement while the program has given no feed
    kCount
};

/// What one conversion did not understand, and its figures. It is told by the driver and read by
/// a front end; it changes nothing in output or log. Lists keep the first entries up to a bound,
/// counts go on. Nothing here throws: what memory cannot hold is counted all the same.
class ScanReport {
public:
    static constexpr std::size_t kMaxBlocks = 100;
    static constexpr std::size_t kMaxWarnings = 100;
    static constexpr std::size_t kMaxCauses = 100;

    /// A block whose source says something of it: a NUL byte, a line too long, a restart.
    void NotePlace(const Block& block) noexcept;
    /// A block of which a rest was left when all recognisers had run. A rest of blanks is none.
    void NoteRest(const Block& block, const RestContext& context) noexcept;
    /// The dangers of that rest become warnings; to be told before words without effect are gone.
    void WarnOfRest(const Block& block, const RestScan& scan) noexcept;
    /// The first G word of the rest becomes a warning, if it is none already and harmless neither
    /// in the dialect nor by its usual number; to be told before words without effect are gone.
    void WarnOfGWord(const Block& block, const RestContext& context) noexcept;
    void Warn(Warning::Kind kind, const Block& block, std::string_view word) noexcept;
    void Note(Oddity oddity, const Block& block) noexcept {
        m_oddities[static_cast<std::size_t>(oddity)].Add(block.GetPlace());
    }

    /// Why the program did not move at all; kNone when it did, or when another warning says so.
    void SetIdle(IdleCause cause) noexcept { m_idleCause = cause; }
    [[nodiscard]] IdleCause Idle() const noexcept { return m_idleCause; }
    /// Whether something moved, or would have but for what is warned of.
    [[nodiscard]] bool KnowsOfMovement() const noexcept;

    [[nodiscard]] StatementCounts& Statements() noexcept { return m_statements; }
    [[nodiscard]] const StatementCounts& Statements() const noexcept { return m_statements; }

    [[nodiscard]] const Tally& Of(Oddity oddity) const noexcept {
        return m_oddities[static_cast<std::size_t>(oddity)];
    }
    [[nodiscard]] long UnrecognisedBlocks() const noexcept { return m_unrecognisedBlocks; }
    /// The first of them, with their rests.
    [[nodiscard]] std::span<const ReportedBlock> FirstRests() const noexcept {
        return m_firstRests;
    }
    [[nodiscard]] WordTally& Words() noexcept { return m_words; }
    [[nodiscard]] long WarningCount() const noexcept { return m_warningCount; }
    [[nodiscard]] std::span<const Warning> FirstWarnings() const noexcept {
        return m_firstWarnings;
    }
    /// The warnings, each cause once, in the order of their first blocks.
    [[nodiscard]] std::span<const WarningCause> Causes() const noexcept { return m_causes; }
    /// How many warnings are of that kind.
    [[nodiscard]] long CountOf(Warning::Kind kind) const noexcept {
        return m_warningCounts[static_cast<std::size_t>(kind)];
    }
    /// Whether a word of the tally is that of a warning, too.
    [[nodiscard]] bool IsWarnedOf(const std::string& word) const noexcept {
        return m_warnedWords.contains(word);
    }

private:
    void addCause(Warning::Kind kind, const Block& block, std::string_view word) noexcept;
    void keepWarnedWord(std::string_view word) noexcept;
    void tallyWords(std::string_view word, std::string_view words, const RestContext& context,
                    const Block::Place& place) noexcept;

    StatementCounts m_statements;
    std::array<Tally, static_cast<std::size_t>(Oddity::kCount)> m_oddities;
    IdleCause m_idleCause = IdleCause::kNone;
    long m_lastLongLine = 0;
    long m_unrecognisedBlocks = 0;
    std::vector<ReportedBlock> m_firstRests;
    WordTally m_words;
    long m_warningCount = 0;
    std::vector<Warning> m_firstWarnings;
    std::vector<WarningCause> m_causes;
    std::array<long, static_cast<std::size_t>(Warning::Kind::kCount)> m_warningCounts = {};
    std::unordered_set<std::string> m_warnedWords; // as many as the tally holds at most
};
