#pragma once

#include "commands/ByteSet.h"
#include "commands/Command.h"
#include "commands/CommandGroup.h"
#include "commands/Comment.h"
#include "commands/RecordNumber.h"
#include "softCommon/Boolean.h"
#include "softCommon/CMathUtil/gmVec3.h"

/// The modal state of the machine while an NC program is scanned: position, speeds, tool, the
/// number format, the line cleaners and the six groups of mutually exclusive commands. Nothing is
/// reset between blocks.
class MachineStatus {
public:
    MachineStatus() noexcept = default;
    MachineStatus(const MachineStatus&) = delete;
    MachineStatus& operator=(const MachineStatus&) = delete;
    virtual ~MachineStatus();

    /// Computes the active command of each group for the block: movement type, feed rate,
    /// movement; then, on the trimmed block, coolant, spindle, tool. The movement type is thus
    /// settled before a coordinate is converted, and the feed is written before the move that uses
    /// it. The first non-zero result ends the sequence and is returned. Every group must have an
    /// active command.
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

    /// The bytes that occur on the block that is scanned; ByteSet::All() when nothing is known, as
    /// at first. Words whose first byte is missing are not searched for.
    void InitBlockBytes(const ByteSet& bytes) noexcept { m_blockBytes = bytes; }
    [[nodiscard]] const ByteSet& GetBlockBytes() const noexcept { return m_blockBytes; }

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
    [[nodiscard]] CommandGroup* GetMovementCom() noexcept { return &m_movementCom; }
    [[nodiscard]] CommandGroup* GetCoolantCom() noexcept { return &m_coolantCom; }
    [[nodiscard]] CommandGroup* GetSpindleCom() noexcept { return &m_spindleCom; }
    [[nodiscard]] CommandGroup* GetFeedRateCom() noexcept { return &m_feedRateCom; }
    [[nodiscard]] CommandGroup* GetMovTypeCom() noexcept { return &m_movTypeCom; }
    [[nodiscard]] CommandGroup* GetToolCom() noexcept { return &m_toolCom; }

private:
    gmVector3 m_basicPosition;
    gmVector3 m_endPosition;
    double m_spindleSpeed = 0.0;
    double m_feedRateSpeed = 0.0;
    int m_tool = 0;
    char m_decimalSeparator[2] = "";
    Comment m_comment;
    RecordNumber m_recordNumber;
    CommandGroup m_movementCom;
    CommandGroup m_coolantCom;
    CommandGroup m_spindleCom;
    CommandGroup m_feedRateCom;
    CommandGroup m_movTypeCom;
    CommandGroup m_toolCom;
    Boolean m_circleCenterMode = TRUE;
    ByteSet m_blockBytes = ByteSet::All();
};
