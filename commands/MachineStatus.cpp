#include "commands/MachineStatus.h"

#include "softCommon/CStringUtil/string_mani.h"

MachineStatus::~MachineStatus() = default;

int MachineStatus::scanNC(char* line) {
    for (std::size_t i = 0; i < m_groups.size(); ++i) {
        if (static_cast<ModalGroup>(i) == ModalGroup::kCoolant) {
            string_mani(3, line);
        }
        Command* const active = m_groups[i].GetActiveCommand();
        if (active == nullptr) {
            continue;
        }
        // A host's own command may do to the block what it likes.
        const bool isForeign = m_block != nullptr && !active->IsBuiltIn();
        if (isForeign) {
            m_block->ForgetBytes();
        }
        if (const int code = active->Compute(line); code != 0) {
            return code;
        }
        if (isForeign) {
            m_block->RefreshBytes();
        }
    }
    return 0;
}
