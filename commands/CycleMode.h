#pragma once

#include "commands/CoordinateMark.h"
#include "commands/WordList.h"
#include "softCommon/CMathUtil/gmVec3.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

class Command;
class Control;

/// How a control reads and runs its cycles, as the parameter file says.
struct CycleRules {
    double lift = 0.254;        ///< mm, between pecks
    bool feedsToReturn = false; ///< the slow way out goes on to the return height
    bool goesStraight = false;  ///< the way to the place is straight, also in height
    /// A cycle's code wants its words anew, see CycleMode, and where no movement is active a
    /// position wants a code.
    bool isStrict = false;
    bool returnsToStart = true; ///< to the height at the start; else to the clearance
};

/// The address words of cycles; none is owned.
struct CycleWords {
    WordList clearance;
    WordList peck;
    WordList pause; ///< seconds
    WordList pauseMilliseconds;
    WordList repeat;
    WordList taper; ///< of the passes of lathes
};

/// The spindle as cycles turn it; none is owned, null where the dialect has none.
struct CycleSpindle {
    Command* stop = nullptr;
    Command* clockwise = nullptr;
    Command* counterClockwise = nullptr;
};

/// A height as programmed, and the mode in which it was.
struct CycleHeight {
    double value = 0.0;
    bool isIncremental = false;
};

/// The mode that cycles make up: from the first of them to another movement code or the end, they
/// keep the height of its start and the numbers given before. On strict controls a further cycle
/// code wants them anew, and a number kept counts in the distance mode of the block that uses it.
class CycleMode {
public:
    CycleRules rules;
    CycleWords words;
    CycleSpindle spindle;

    // The numbers given before.
    std::optional<CycleHeight> clearance;
    std::optional<CycleHeight> depth;
    std::optional<double> peck;
    std::optional<double> dwell; ///< seconds

    /// Throws std::bad_alloc.
    void Join(const Command& cycle) { m_cycles.push_back(&cycle); }
    [[nodiscard]] bool Has(const Command* command) const noexcept;

    /// A cycle becomes the active movement, which was `before` up to now.
    void Enter(const Command& cycle, Command* before) noexcept;
    /// The movement that was active before the mode; null before there was a mode.
    [[nodiscard]] Command* Before() const noexcept { return m_before; }
    /// Whether the code has been given a block to move in since it became the active one.
    [[nodiscard]] bool IsNewCode() const noexcept { return m_isNewCode; }

    /// For a block that moves: begins the mode unless that was done. Returns 0, or 511 when plane,
    /// unit or zero are others than at the start: the numbers kept would mean something else.
    /// A block that gives all of them anew at that height begins the mode again.
    int Use(Control& control, double height, bool givesAll);
    /// The block has been read.
    void EndCode() noexcept { m_isNewCode = false; }
    /// Along the normal of the plane, in coordinates of the program.
    [[nodiscard]] double StartHeight() const noexcept { return m_startHeight; }

private:
    std::vector<const Command*> m_cycles; // not owned
    Command* m_before = nullptr;
    CoordinateMark m_mark;
    double m_startHeight = 0.0;
    bool m_isFresh = false;
    bool m_isNewCode = false;
};
