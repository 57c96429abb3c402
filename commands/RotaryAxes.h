#pragma once

#include "commands/RotaryWord.h"
#include "commands/ShiftRegister.h"
#include "commands/WordList.h"
#include "kinematics/MachineChain.h"
#include "softCommon/CMathUtil/gmVec3.h"

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <vector>

class Control;
class MachineStatus;

/// How the tool turns in one movement.
struct Turning {
    MachineChain::Angles from; ///< degrees of the machine
    MachineChain::Angles to;
    gmVector3 axisFrom;      ///< of the tool in the part's frame, length 1
    gmVector3 axisTo;        ///< likewise
    bool byAngles = false;   ///< an axis of the machine turns
    bool onGreatArc = false; ///< the tool turns on the great arc, whatever the axes do

    [[nodiscard]] bool Turns() const { return byAngles || (onGreatArc && axisFrom != axisTo); }
};

/// The rotary axes of a program: its words for them and for tool vectors, where they stand, and
/// what shifts their coordinates. An axis keeps its place in the machine; its coordinate in the
/// program follows from that, and zero of the machine is that of its kinematics. An angle that
/// nobody knows is not a number.
class RotaryAxes {
public:
    using Angles = MachineChain::Angles;

    // What the parameter file sets.
    std::array<WordList, 2> words;
    std::array<WordList, 3> vectorWords;
    MachineChain chain;
    RotaryWay way = RotaryWay::kLinear;
    double axisTolerance = 1.0;                        ///< degrees, above 0
    Compensation rtcp = {.table = true, .head = true}; ///< what it does where it is on
    bool isRtcpOn = false;
    bool hasVectorCode = false; ///< vectors count where it is in force
    std::map<int, double> toolLengths;
    struct Limits {
        double low = 0.0;
        double high = 0.0; ///< none unless above `low`
    };
    std::array<Limits, 2> limits;
    /// Where the axes stand at the start, degrees of the machine.
    void StartAt(const Angles& angles) noexcept { m_angles = angles; }

    /// Whether the machine has such axes; else only their words are known.
    [[nodiscard]] bool IsInUse() const noexcept { return chain.Count() > 0; }

    // Words of the block at hand.

    /// Takes those of the rotary axes. Tells whether there was one.
    bool TakeWords(char* line, MachineStatus& status);
    /// Takes the tool vector, where one counts.
    bool TakeVector(char* line, const Control& control);
    [[nodiscard]] RotaryValues TakeValues() noexcept;
    /// Has these count as the words of the block.
    void GiveValues(const RotaryValues& values) noexcept { m_values = values; }
    /// Whether the words ask for other angles than the present ones.
    [[nodiscard]] bool AskForTurn(const Control& control) const;
    /// Has words that were used count once more, for a block that repeats its movement.
    void Repeat() noexcept { m_values = m_usedValues; }
    void ForgetWords() noexcept;
    /// Whether words wait for a movement.
    [[nodiscard]] bool HasWords() const noexcept;
    /// The next movement takes these axes of the machine to its zero.
    void AimAtZero(const std::array<bool, 2>& axes) noexcept { m_aimsAtZero = axes; }
    /// They are there, by a way that nobody writes.
    void StandAsAimed() noexcept;

    // Coordinates.

    /// By what the coordinates of the program are less than those of the machine.
    [[nodiscard]] double OffsetOf(std::size_t axis, std::size_t system) const;
    /// The origin of a zero system in degrees of the machine.
    [[nodiscard]] double OriginOf(std::size_t axis, std::size_t system) const;
    [[nodiscard]] double AngleOf(std::size_t axis) const { return m_angles.at(axis); }
    ShiftRegister shift;  ///< of which elements 0 and 1 count, as of the next ones
    gmVector3 localShift; ///< where a control keeps that apart
    gmVector3 frameShift;
    void SetOrigin(std::size_t system, std::size_t axis, double angle);

    // The way of movements.

    /// What the words ask for; the axes stand there from then on. Returns 0 or the code of a
    /// refusal.
    int Resolve(Control& control, Turning& turning);
    [[nodiscard]] Compensation InForce() const noexcept { return isRtcpOn ? rtcp : Compensation(); }
    /// What the machine makes of positions as it stands.
    [[nodiscard]] MachinePose Pose() const { return chain.PoseAt(m_angles, InForce()); }
    /// The direction of the tool in the part's frame.
    [[nodiscard]] gmVector3 ToolAxis() const { return m_vector ? *m_vector : Pose().ToolAxis(); }
    /// Whether the axes stand so that a position of the tip is none of the machine.
    [[nodiscard]] bool HidesMachine() const;
    /// A code of the block at hand switches it: the block's words mean what they do then.
    void AnnounceRtcp(bool isOn, bool takesVectors) noexcept {
        m_countsVectors = isOn && (takesVectors || !hasVectorCode);
    }
    /// The tip stays and its coordinates are computed anew. A length of the tool is in force with
    /// it and ends with it.
    void SwitchRtcp(Control& control, bool isOn, bool takesVectors);
    /// Tool `number` is in the spindle.
    void ChangeTool(int number, MachineStatus& status);

private:
    [[nodiscard]] bool takesVectors() const noexcept {
        return m_countsVectors.value_or(isRtcpOn && (m_takesVectors || !hasVectorCode));
    }
    [[nodiscard]] double targetOf(std::size_t axis, const RotaryWord& word,
                                  const Control& control) const;
    int turnByWords(Control& control, const RotaryValues& values);
    int turnByVector(Control& control, gmVector3& vector);
    void noteLength(MachineStatus& status);
    void checkLimits(std::size_t axis, const std::optional<RotaryWord>& word,
                     MachineStatus& status);

    Angles m_angles = {};
    std::optional<gmVector3> m_vector; // the tool stands along it, and nobody knows the angles
    std::vector<gmVector3> m_origins;  // of the zero systems, as far as set
    RotaryValues m_values;             // of the block at hand
    RotaryValues m_usedValues;
    std::array<bool, 2> m_aimsAtZero = {};
    std::array<std::optional<double>, 3> m_vectorValues;
    std::optional<bool> m_countsVectors; // as a code of the block says
    bool m_takesVectors = false;
    std::array<bool, 2> m_isLimitTold = {};
    bool m_lacksLength = false; // the tool in the spindle does, and nobody was told
};
