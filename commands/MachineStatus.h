#pragma once

#include "commands/Block.h"
#include "commands/BlockNote.h"
#include "commands/Command.h"
#include "commands/CommandGroup.h"
#include "commands/Comment.h"
#include "commands/ModalGroup.h"
#include "commands/RecordNumber.h"
#include "softCommon/Boolean.h"
#include "softCommon/CMathUtil/gmVec3.h"

#include <array>
#include <memory>

class Control;
struct Movement;

/// The modal state of the machine while an NC program is scanned: position, speeds, tool, the
/// number format, the line cleaners and the groups of mutually exclusive commands. Nothing is
/// reset between blocks.
class MachineStatus {
public:
    MachineStatus() noexcept;
    MachineStatus(const MachineStatus&) = delete;
    MachineStatus& operator=(const MachineStatus&) = delete;
    virtual ~MachineStatus();

    /// Computes the active command of each group for the block, in the order of ModalGroup; from
    /// the coolant on, the block is trimmed. The first non-zero result ends the sequence and is
    /// returned. A group without an active command has nothing to compute; that of the movement
    /// type counts as absolute.
    virtual int scanNC(char* line);

    /// Last position as handed to the output, after the axis factors, in mm.
    void InitBasicPosition(double x, double y, double z) { m_basicPosition.assign(x, y, z); }
    /// Last position in NC coordinates, before the axis factors: the base of incremental words and
    /// of omitted coordinates.
    void InitEndPosition(double x, double y, double z) { m_endPosition.assign(x, y, z); }
    void InitSpindleSpeed(double speed) noexcept { m_spindleSpeed = speed; }
    void InitFeedRateSpeed(double feed) noexcept { m_feedRateSpeed = feed; }
    void InitTool(int tool) noexcept { m_tool = tool; }
    /// Stored for hosts only; the centre words themselves carry the mode in force.
    void InitCircleCenterMode(Boolean mode) noexcept { m_circleCenterMode = mode; }
    /// Takes the first character of `separator` only. An empty text means that numbers carry
    /// implied decimal places.
    void InitDecimalSeparator(const char* separator) noexcept {
        m_decimalSeparator[0] = separator[0];
    }

    /// The block at hand. It stands here, where every recogniser can ask for its bytes; whoever
    /// gives the machine lines of its own leaves it alone.
    [[nodiscard]] Block& GetBlock() noexcept { return m_block; }
    [[nodiscard]] const Block& GetBlock() const noexcept { return m_block; }
    /// False only when `byte` is certainly not in `line`: words that begin with it are not searched
    /// for then. Only of the rest of the block at hand the bytes are known.
    [[nodiscard]] bool MayHold(const char* line, char byte) const noexcept {
        return m_block.Bytes().MayContain(byte) || !m_block.IsRest(line);
    }

    /// Begins another block: its movement and what is noted of it belong to the one before.
    void ForgetBlock() noexcept {
        m_movement = nullptr;
        m_movementWord = nullptr;
        m_notes = 0;
    }
    /// Something of the block at hand for the report; once or more often is the same.
    void Note(BlockNote note) noexcept { m_notes |= bitOf(note); }
    [[nodiscard]] bool HasNotes() const noexcept { return m_notes != 0; }
    [[nodiscard]] bool HasNote(BlockNote note) const noexcept {
        return (m_notes & bitOf(note)) != 0;
    }
    /// The word of a movement was found in the block at hand; that of a second one is noted.
    void KeepMovementWord(const Command& movement) noexcept {
        if (m_movementWord != nullptr && m_movementWord != &movement) {
            Note(BlockNote::kTwoMovements);
        }
        m_movementWord = &movement;
    }
    /// The movement found last, which acts; null without one.
    [[nodiscard]] const Command* GetMovementWord() const noexcept { return m_movementWord; }

    /// A movement of the axes whose bits are set (bit 0 for X) has a position of its own for these;
    /// for the others that of the movement before stays. Notes when an axis has none at all.
    void GiveAxes(unsigned axes) noexcept {
        m_givenAxes |= axes;
        if (m_givenAxes != kAllAxes) {
            Note(BlockNote::kAxisNotGiven);
        }
    }

    /// Whether a movement gave the axis a position.
    [[nodiscard]] bool IsAxisGiven(int axis) const noexcept {
        return (m_givenAxes >> static_cast<unsigned>(axis) & 1U) != 0;
    }

    /// The last movement of the block at hand, which its command owns; null before there is one.
    void KeepMovement(const Movement* movement) noexcept { m_movement = movement; }
    [[nodiscard]] const Movement* GetMovement() const noexcept { return m_movement; }

    /// Makes the control unless there is one. Throws std::bad_alloc.
    Control& MakeControl();
    /// What a dialect has beyond the modal groups; null when no key asks for it.
    [[nodiscard]] Control* GetControl() const noexcept { return m_control.get(); }

    [[nodiscard]] gmVector3 GetBasicPosition() const { return m_basicPosition; }
    [[nodiscard]] gmVector3 GetEndPosition() const { return m_endPosition; }
    /// rev/min, as programmed.
    [[nodiscard]] double GetSpindleSpeed() const noexcept { return m_spindleSpeed; }
    /// mm/min or mm/rev, as programmed.
    [[nodiscard]] double GetFeedRateSpeed() const noexcept { return m_feedRateSpeed; }
    [[nodiscard]] int GetTool() const noexcept { return m_tool; }
    [[nodiscard]] Boolean GetCircleCenterMode() const noexcept { return m_circleCenterMode; }
    /// A string of at most one character.
    [[nodiscard]] const char* GetDecimalSeparator() const noexcept { return m_decimalSeparator; }

    [[nodiscard]] Comment* GetComment() noexcept { return &m_comment; }
    [[nodiscard]] RecordNumber* GetRecordNumber() noexcept { return &m_recordNumber; }
    [[nodiscard]] CommandGroup* GetGroup(ModalGroup group) noexcept {
        return &m_groups[static_cast<std::size_t>(group)];
    }
    [[nodiscard]] CommandGroup* GetMovementCom() noexcept {
        return GetGroup(ModalGroup::kMovement);
    }
    [[nodiscard]] CommandGroup* GetCoolantCom() noexcept { return GetGroup(ModalGroup::kCoolant); }
    [[nodiscard]] CommandGroup* GetSpindleCom() noexcept { return GetGroup(ModalGroup::kSpindle); }
    [[nodiscard]] CommandGroup* GetFeedRateCom() noexcept {
        return GetGroup(ModalGroup::kFeedRate);
    }
    [[nodiscard]] CommandGroup* GetMovTypeCom() noexcept {
        return GetGroup(ModalGroup::kMovementType);
    }
    [[nodiscard]] CommandGroup* GetToolCom() noexcept { return GetGroup(ModalGroup::kTool); }

private:
    static constexpr unsigned kAllAxes = 7;

    static_assert(static_cast<unsigned>(BlockNote::kCount) <= 32, "a bit for each note");
    [[nodiscard]] static constexpr unsigned bitOf(BlockNote note) noexcept {
        return 1U << static_cast<unsigned>(note);
    }

    int claimWords(char* line);
    int computeGroups(std::size_t first, std::size_t last, char* line);
    int computeForeign(Command& command, char* line);

    gmVector3 m_basicPosition;
    gmVector3 m_endPosition;
    double m_spindleSpeed = 0.0;
    double m_feedRateSpeed = 0.0;
    int m_tool = 0;
    char m_decimalSeparator[2] = "";
    Comment m_comment;
    RecordNumber m_recordNumber;
    std::array<CommandGroup, kModalGroupCount> m_groups;
    Boolean m_circleCenterMode = TRUE;
    Block m_block;
    const Movement* m_movement = nullptr;
    const Command* m_movementWord = nullptr; // not owned
    unsigned m_notes = 0;                    // of the block at hand
    unsigned m_givenAxes = 0;
    std::unique_ptr<Control> m_control;
};
