#pragma once

#include "commands/CycleMode.h"
#include "commands/CycleMovement.h"
#include "commands/HeldWords.h"

/// A cycle of its plane: every block with a position, in which it is the active movement, drills
/// there. Its clearance and the others of its words belong to such a block or to its own code.
class DrillingCycle final : public CycleMovement {
public:
    /// All must outlive the command.
    DrillingCycle(Control& control, MachineStatus& status, const CycleKind& kind) noexcept
        : CycleMovement(control, status), m_kind(kind) {}
    ~DrillingCycle() override;

    void InitStatus(char* line) override;
    bool TakeWords(char* line) override;
    int Act() override;

private:
    // What the block has beside its position.
    struct Words {
        std::optional<double> clearance;
        std::optional<double> peck;
        std::optional<double> dwell; // seconds
        std::optional<double> repeat;
    };

    [[nodiscard]] std::optional<CycleHeight> takeDepth() const;
    [[nodiscard]] std::optional<double> takeDwell(char* line) const;
    void keepNumbers();
    int checkCode();
    int checkMachine();
    int settle(CycleNumbers& numbers) const;
    int drill(const CycleNumbers& numbers);
    int approach(gmVector3 place, const CycleNumbers& numbers);
    int refuse(const char* reason) const;

    const CycleKind& m_kind;
    // Of the block at hand:
    Words m_words;
    std::optional<CycleHeight> m_depth;
    HeldWords m_position;
    bool m_hasPosition = false;
    bool m_hasCode = false;
    // Since the code became the active one:
    std::optional<double> m_ownDwell;
};
