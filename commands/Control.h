#pragma once

#include "apt/ResControl.h"
#include "apt/ResFeedRate.h"
#include "commands/ActionQueue.h"
#include "commands/ArcRequest.h"
#include "commands/AxisKnowledge.h"
#include "commands/AxisMapping.h"
#include "commands/ControlWords.h"
#include "commands/CoordinateSystem.h"
#include "commands/CycleCalls.h"
#include "commands/CycleMode.h"
#include "commands/DiameterMode.h"
#include "commands/LengthUnits.h"
#include "commands/PathWriter.h"
#include "commands/Plane.h"
#include "commands/PolarCoordinates.h"
#include "commands/RotaryAxes.h"
#include "commands/ToolStage.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class InverseTime;
class MachineStatus;
struct Movement;

/// The state of a control beyond the modal groups, and the stages that its movements pass. There is
/// one when the dialect has a key that asks for it; each part of it is at rest until a key or a
/// code uses it.
class Control {
public:
    /// `status` must outlive the control. Throws std::bad_alloc.
    explicit Control(MachineStatus& status) : m_status(status) {}

    // What the parameter file sets.
    ControlWords words;
    ArcTolerance arcTolerance;
    bool computesArcs = false;   ///< as controls do, with planes; else as the block says
    bool centreIsRadius = false; ///< the centre word of a diameter axis is a radius
    /// Of the family whose order stops first: a code of the feed mode leaves no feed, none is an
    /// error, and so are other blocks that further families forgive.
    bool isStrict = false;
    bool hasStages = false;  ///< movements pass them; else they are written as described
    bool tellsUnits = false; ///< the output says in which unit it is
    bool isLathe = false;
    bool hasThousandths = false; ///< a factor of scaling without a decimal point counts them
    double mostParts = 0.0;      ///< that all blocks may add to their movements
    gmVector3 home;              ///< the reference point in coordinates of the machine
    const AxisMapping* axisMapping = nullptr; ///< of the rapid movement; not owned
    PathWriter path;
    std::unique_ptr<ResControl> writer;
    std::unique_ptr<RotaryAxes> rotary;         ///< null where the dialect has no word for them
    std::vector<InverseTime*> inverseTimeCodes; ///< the feed modes of inverse time; not owned
    std::unique_ptr<ResFeedRate> feedWriter;    ///< for those; else null

    /// The first block is read: from now on something is told.
    bool isRunning = false;

    // What the program changes.
    ActionQueue actions;
    ActionQueue beforeMovement; ///< those that wait in a dialect without an order of acting
    Plane plane = Plane::kXY;
    std::optional<bool> centresAreAbsolute; ///< none: as the words' own addresses say
    CoordinateSystem coordinates;
    LengthUnits units;
    CycleMode cycles;
    CycleCalls calls;
    DiameterMode diameter;
    PolarCoordinates polar;
    bool awaitsSpindle = false;  ///< a tool change stopped it, and no code has started it since
    bool isCompensated = false;  ///< for the radius of the tool
    bool hasToolLength = false;  ///< in force, and nobody tells how long the tool is
    bool movesInMachine = false; ///< of the block: its coordinates are those of the machine
    bool isCuttingSpeed = false; ///< the number of the speed is m/min or ft/min, not rev/min
    /// Of threads whose pitch is the word of the feed, until that gives a feed again.
    std::optional<double> pitch;

    // Of the block at hand.
    bool hasDwell = false;
    std::optional<double> inverseFeed; ///< 1/min, where the feed counts so
    bool pitchIsOfBlock = false;       ///< and counts in the unit that the block begins
    bool speedWaits = false;           ///< it or its mode is to be told, unless a spindle code does

    /// Whether a cycle is the active movement.
    [[nodiscard]] bool IsCycleActive() const;
    /// Forgets what belongs to the block before.
    void BeginBlock() noexcept;

    /// The block has been read: has all act whose turn comes now. Returns 0 or a code.
    int FinishBlock();
    /// Has the command act when its turn comes. Returns 0, or the code of a block that contradicts
    /// itself.
    int Perform(Command& command);
    /// For a command to which the axis words of its block belong: takes them, so that nothing
    /// moves.
    [[nodiscard]] AxisValues TakeAxisWords(char* line);
    /// What those words said of rotary axes; to be taken at once.
    [[nodiscard]] RotaryValues TakeRotaryValues() const noexcept;
    /// By what the coordinates of a rotary axis are less than those of the machine.
    [[nodiscard]] double RotaryOffset(std::size_t axis) const;
    /// Refuses rotary axes that belong to a code which has no use for them, or that the machine
    /// does not have.
    int CheckRotary(const RotaryValues& values, bool areUsed);
    /// Whether the command has to wait for the modes of its block although nothing else waits.
    [[nodiscard]] bool NeedsModes(const Command& command) const noexcept;
    /// Refuses a block in which an address stands twice, where the control does.
    int CheckAddresses(const char* block);
    /// Refuses a block of which two codes use the axis words, where the control does.
    int CheckAxisWords();
    [[nodiscard]] bool AreAxisWordsTaken() const noexcept { return m_axisWordsAreTaken; }
    /// Refuses what cannot be under radius compensation, where the control does.
    int CheckUncompensated();
    /// The movement command of the block has a word; a second one in a block is refused.
    int NoteMovementCommand();
    /// Whether a movement code moves though no word with it says where to.
    [[nodiscard]] bool MovesWithoutWords() const noexcept {
        return !computesArcs && !m_axisWordsAreTaken && !hasDwell;
    }
    [[nodiscard]] bool HasMovementCommand() const noexcept { return m_hasMovementCommand; }

    /// A point of the program, as its words give it, as lengths without diameters.
    [[nodiscard]] gmVector3 ToLengths(const gmVector3& point, const AxisMapping& mapping) const;
    [[nodiscard]] gmVector3 FromLengths(const gmVector3& point, const AxisMapping& mapping) const;
    /// The same with the mapping of the dialect.
    [[nodiscard]] gmVector3 ToLengths(const gmVector3& point) const {
        return ToLengths(point, *axisMapping);
    }
    [[nodiscard]] gmVector3 FromLengths(const gmVector3& point) const {
        return FromLengths(point, *axisMapping);
    }
    /// The place of the tool in lengths of the program.
    [[nodiscard]] gmVector3 Position() const;
    void SetPosition(const gmVector3& point);
    /// What the words of some axes say in lengths; 0 for the others.
    [[nodiscard]] gmVector3 LengthsOf(const AxisValues& values) const;

    /// Whether points are more than the axis words added up.
    [[nodiscard]] bool ReadsPoints() const noexcept {
        return movesInMachine || polar.IsInUse() || diameter.AreIncrementsLengths();
    }
    /// The point of the program that the words of a block ask for, from `point` on. Returns 0 or
    /// the code of a refusal.
    int ResolvePoint(AxisValues values, gmVector3& point);
    /// Changes what the coordinates of the program mean; the tool stays where it is.
    template<class Change>
    void Recoordinate(Change change) {
        const gmVector3 place = coordinates.ToStart(Position());
        change();
        coordinates.Settle();
        SetPosition(coordinates.FromStart(place));
    }
    [[nodiscard]] bool IsIncrementalMode() const;
    /// Whether positions of the words count from the one before.
    [[nodiscard]] bool IsIncremental(const AxisValue& value) const {
        return value.isIncremental || (!value.isAbsolute && IsIncrementalMode());
    }
    /// Machine zero in the zero of the start, of one axis of the program; none where nobody tells
    /// it for the tip of the tool.
    [[nodiscard]] std::optional<double> MachineZero(int axis) const;
    /// Refuses what begins or ends where nobody knows.
    int CheckKnown(const gmVector3& point);
    /// Whether a rapid movement was never written, since nobody knows where it ends.
    [[nodiscard]] bool HoldsRapid() const noexcept { return m_knowledge.IsHolding(); }
    [[nodiscard]] MachineStatus& Status() const noexcept { return m_status; }

    /// The tolerance of arcs in the program's unit.
    [[nodiscard]] ArcTolerance Tolerance() const noexcept {
        return units.IsInch() ? arcTolerance.InInches() : arcTolerance;
    }

    /// Refuses a feed movement without a feed where the control does, and notes it elsewhere.
    int CheckFeed(const Movement& movement);
    /// Whether the feed says how often in a minute a block could be run.
    [[nodiscard]] bool IsInverseTime() const;
    /// Tells the feed of a movement on a way of that length, where its number is inverse time.
    /// Returns 0 or the code of a refusal.
    int WriteInverseFeed(const Movement& movement, double length);
    /// Whether a movement along an axis of the program runs along the tool, where that can turn.
    [[nodiscard]] bool RunsAlongTool(int axis) const;
    /// Refuses an arc that would take too many statements, and adds those to the parts.
    int CheckParts(const Sweep& sweep);
    /// Counts what a block puts into its movements: points of curves, pecks, repeats. Few blocks
    /// can ask for many, again and again, and more than `mostParts` are refused.
    int AddParts(double parts);
    /// Takes a movement in coordinates of the program (its sweep in lengths) through the stages and
    /// writes it. Returns 0 or the code of a refusal.
    int Pass(Movement& movement, const AxisMapping& mapping);

    /// The program's unit from now on: all that is kept in lengths follows.
    void SwitchUnits(bool isInch);
    /// Tells the unit of the output, unless that was done.
    void WriteUnits();

    /// Tells the highest speed of the spindle, rev/min. Returns 0 or the code of a refusal.
    int LimitSpeed(double limit);

    /// Keeps the reason and returns the code.
    int Refuse(int code, std::string reason);
    [[nodiscard]] const std::string& Reason() const noexcept { return m_reason; }

private:
    int resolveInMachine(const AxisValues& values, gmVector3& point);
    [[nodiscard]] double lengthFactor(const AxisMapping& mapping,
                                      AxisMapping::Axis axis) const noexcept;
    int turnArc(Arc& arc) const;
    void toOutput(gmVector3& point, const AxisMapping& mapping) const;
    void directionToOutput(gmVector3& direction, const AxisMapping& mapping) const;
    [[nodiscard]] static bool isRound(const Sweep& sweep);

    MachineStatus& m_status;
    AxisKnowledge m_knowledge;
    ToolStage m_toolStage;
    std::string m_reason;
    double m_parts = 0.0;
    bool m_axisWordsAreTaken = false;
    bool m_axisWordsAreTakenTwice = false;
    bool m_hasMovementCommand = false;
};
