#include "commands/MachineStatus.h"

#include "softCommon/CStringUtil/string_mani.h"

MachineStatus::~MachineStatus() = default;

int MachineStatus::scanNC(char* line) {
    for (CommandGroup* const group : {&m_movTypeCom, &m_feedRateCom, &m_movementCom}) {
        if (const int code = group->GetActiveCommand()->Compute(line); code != 0) {
            return code;
        }
    }
    string_mani(3, line);
    for (CommandGroup* const group : {&m_coolantCom, &m_spindleCom, &m_toolCom}) {
        if (const int code = group->GetActiveCommand()->Compute(line); code != 0) {
            return code;
        }
    }
    return 0;
}
