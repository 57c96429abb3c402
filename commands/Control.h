#pragma once

#include "apt/ResControl.h"
#include "commands/ActionQueue.h"
#include "commands/ArcRequest.h"
#include "commands/AxisMapping.h"
#include "commands/ControlWords.h"
#include "commands/CoordinateSystem.h"
#include "commands/LengthUnits.h"
#include "commands/PathWriter.h"
#include "commands/Plane.h"

#include <memory>
#include <optional>
#include <string>

class MachineStatus;
struct Movement;

/// The state of a control beyond the modal groups, and the stages that its movements pass. There is
/// one when the dialect has a key that asks for it; each part of it is at rest until a key or a
/// code uses it.
class Control {
public:
    /// `status` must outlive the control.
    explicit Control(MachineStatus& status) noexcept : m_status(status) {}

    // What the parameter file sets.
    ControlWords words;
    ArcTolerance arcTolerance;
    bool computesArcs = false;   ///< as controls do, with planes; else as the block says
    bool centreIsRadius = false; ///< the centre word of a diameter axis is a radius
    bool forgetsFeed = false;    ///< a change of the feed mode leaves no feed, and none is an error
    bool hasStages = false;      ///< movements pass them; else they are written as described
    bool tellsUnits = false;     ///< the output says in which unit it is
    PathWriter path;
    std::unique_ptr<ResControl> writer;

    /// The first block is read: from now on something is told.
    bool isRunning = false;

    // What the program changes.
    ActionQueue actions;
    Plane plane = Plane::kXY;
    std::optional<bool> centresAreAbsolute; ///< none: as the words' own addresses say
    CoordinateSystem coordinates;
    LengthUnits units;

    /// Forgets what belongs to the block before.
    void BeginBlock() noexcept;

    /// Has the command act when its turn comes. Returns 0, or the code of a block that contradicts
    /// itself.
    int Perform(Command& command);
    /// For a command to which the axis words of its block belong: takes them, so that nothing
    /// moves.
    [[nodiscard]] AxisValues TakeAxisWords(char* line);
    /// The movement command of the block has a word; a second one in a block is refused.
    int NoteMovementCommand();
    /// Whether a movement code moves though no word with it says where to.
    [[nodiscard]] bool MovesWithoutWords() const noexcept {
        return !computesArcs && !m_axisWordsAreTaken;
    }

    /// A point of the program, as its words give it, as lengths without diameters.
    [[nodiscard]] gmVector3 ToLengths(const gmVector3& point, const AxisMapping& mapping) const;
    [[nodiscard]] gmVector3 FromLengths(const gmVector3& point, const AxisMapping& mapping) const;
    /// The tolerance of arcs in the program's unit.
    [[nodiscard]] ArcTolerance Tolerance() const noexcept {
        return units.IsInch() ? arcTolerance.InInches() : arcTolerance;
    }

    /// Refuses a feed movement without a feed where the control does.
    int CheckFeed(const Movement& movement);
    /// Takes a movement in coordinates of the program (its sweep in lengths) through the stages and
    /// writes it. Returns 0 or the code of a refusal.
    int Pass(Movement& movement, const AxisMapping& mapping);

    /// The program's unit from now on: all that is kept in lengths follows.
    void SwitchUnits(bool isInch);
    /// Tells the unit of the output, unless that was done.
    void WriteUnits();

    /// Keeps the reason and returns the code.
    int Refuse(int code, std::string reason);
    [[nodiscard]] const std::string& Reason() const noexcept { return m_reason; }

private:
    void toOutput(gmVector3& point, const AxisMapping& mapping) const;
    void directionToOutput(gmVector3& direction, const AxisMapping& mapping) const;
    [[nodiscard]] static bool isRound(const Sweep& sweep);

    MachineStatus& m_status;
    std::string m_reason;
    bool m_axisWordsAreTaken = false;
    bool m_hasMovementCommand = false;
};
