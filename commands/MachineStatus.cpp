#include "commands/MachineStatus.h"

#include "commands/Control.h"
#include "softCommon/CStringUtil/string_mani.h"

MachineStatus::MachineStatus() noexcept = default;

MachineStatus::~MachineStatus() = default;

int MachineStatus::scanNC(char* line) {
    if (m_control != nullptr) {
        if (const int code = claimWords(line); code != 0) {
            return code;
        }
        if (const int code = m_control->beforeMovement.Run(); code != 0) {
            return code;
        }
    }
    if (const int code = computeGroups(0, kFirstOfTrimmedBlock, line); code != 0) {
        return code;
    }
    string_mani(3, line);
    if (const int code = computeGroups(kFirstOfTrimmedBlock, kModalGroupCount, line); code != 0) {
        return code;
    }
    return m_control == nullptr ? 0 : m_control->FinishBlock();
}

Control& MachineStatus::MakeControl() {
    if (m_control == nullptr) {
        m_control = std::make_unique<Control>(*this);
    }
    return *m_control;
}

int MachineStatus::claimWords(char* line) {
    for (const CommandGroup* const group : {GetToolCom(), GetMovementCom()}) {
        Command* const active = group->GetActiveCommand();
        if (const int code = active == nullptr ? 0 : active->ClaimWords(line); code != 0) {
            return code;
        }
    }
    return 0;
}

int MachineStatus::computeGroups(std::size_t first, std::size_t last, char* line) {
    for (std::size_t i = first; i < last; ++i) {
        Command* const active = m_groups[i].GetActiveCommand();
        if (active == nullptr || (active->IsIdle() && active->IsBuiltIn())) {
            continue;
        }
        const int code =
            active->IsBuiltIn() ? active->Compute(line) : computeForeign(*active, line);
        if (code != 0) {
            return code;
        }
    }
    return 0;
}

// A host's own command may do to the block what it likes.
int MachineStatus::computeForeign(Command& command, char* line) {
    m_block.BeginForeign();
    const int code = command.Compute(line);
    m_block.EndForeign();
    return code;
}
