#pragma once

#include "commands/AxisMapping.h"
#include "commands/AxisWords.h"
#include "commands/ModalCommand.h"
#include "commands/Movement.h"
#include "commands/Parameter.h"
#include "softCommon/CMathUtil/gmVec3.h"

#include <array>

class Control;
class MachineStatus;

/// What every movement has: the six coordinate words, the resolution of the end point, the axis
/// mapping and the one-shot tool axis. Parameters and status are not owned; a null parameter means
/// that the dialect has no such word.
class MovementCommand : public ModalCommand {
public:
    MovementCommand() noexcept = default;
    explicit MovementCommand(MachineStatus* status) noexcept : m_status(status) {}
    ~MovementCommand() override;

    void InitMovementSyntax(const char* syntax, const int& number, CommandGroup* group,
                            MachineStatus* status) noexcept;

    /// Takes the coordinate words, the incremental one of each axis first.
    bool TakeWords(char* line) override;

    void InitXParm(Parameter* word) noexcept { m_axes[0].absolute = word; }
    void InitYParm(Parameter* word) noexcept { m_axes[1].absolute = word; }
    void InitZParm(Parameter* word) noexcept { m_axes[2].absolute = word; }
    void InitIncXParm(Parameter* word) noexcept { m_axes[0].incremental = word; }
    void InitIncYParm(Parameter* word) noexcept { m_axes[1].incremental = word; }
    void InitIncZParm(Parameter* word) noexcept { m_axes[2].incremental = word; }
    /// Has the coordinate words and the axis mapping of another movement.
    void MoveLike(const MovementCommand& other) noexcept {
        m_axes = other.m_axes;
        m_mapping = other.m_mapping;
    }
    [[nodiscard]] const std::array<AxisWords, 3>& Axes() const noexcept { return m_axes; }

    /// Axis factor and assignment from a text of the parameter file; see AxisMapping::SetDivisor.
    void SetXDivisor(const char* text) noexcept { m_mapping.SetDivisor(AxisMapping::kX, text); }
    void SetYDivisor(const char* text) noexcept { m_mapping.SetDivisor(AxisMapping::kY, text); }
    void SetZDivisor(const char* text) noexcept { m_mapping.SetDivisor(AxisMapping::kZ, text); }

    /// Asks for a tool-axis statement before the next movement, whichever command makes it.
    static void SetInsertTLAXIS(const bool& insert) noexcept { m_insertTLAXIS = insert; }
    /// The direction of that statement; usually a unit vector, but written as it is given.
    static void SetTLAXISdirection(const gmVector3& direction) { m_TLAXISdirection = direction; }

    [[nodiscard]] static const gmVector3& GetTLAXISdirection() noexcept {
        return m_TLAXISdirection;
    }
    [[nodiscard]] const AxisMapping& Mapping() const noexcept { return m_mapping; }

protected:
    /// Scans one more word on the block, if the dialect has it; tells whether it was found.
    bool scanWord(Parameter* word, char* line) const;
    /// Sets the end point in program coordinates: the last end position, changed by the words
    /// found, which are thereby consumed.
    /// Returns 0 or the code of a refusal.
    [[nodiscard]] int resolveEndPoint(gmVector3& point) const;
    /// Whether the movement can be one in coordinates of the machine.
    [[nodiscard]] virtual bool canMoveInMachine() const noexcept { return false; }

    /// Whether words without a mark of their own count from the last position.
    [[nodiscard]] bool isIncrementalMode() const;

    [[nodiscard]] MachineStatus& status() const noexcept { return *m_status; }
    /// Gives the movement the tool axis to be told ahead of it, when one is asked for; once.
    static void takeToolAxis(Movement& movement) noexcept {
        movement.toolAxis.reset();
        if (m_insertTLAXIS) {
            movement.toolAxis = m_TLAXISdirection;
            m_insertTLAXIS = false;
        }
    }

private:
    [[nodiscard]] int resolveWith(Control& control, gmVector3& point) const;

    MachineStatus* m_status = nullptr;
    std::array<AxisWords, 3> m_axes;
    AxisMapping m_mapping;

    // One tool axis for all movements of a conversion: the first movement writes it.
    static bool m_insertTLAXIS;
    static gmVector3 m_TLAXISdirection;
};
