#include "commands/CycleCalls.h"

#include "commands/CycleCall.h"

void CycleCalls::BeginBlock() noexcept {
    m_called.reset();
    m_isModalBlock = false;
}

CycleCall* CycleCalls::Due(bool moves) {
    if (std::exchange(m_isModalBlock, false)) {
        m_modal = std::exchange(m_called, std::nullopt);
        return nullptr;
    }
    const std::optional<Request>& due = m_called ? m_called : m_modal;
    if (!due || (!m_called && !moves)) {
        return nullptr;
    }
    due->command->SetArguments(due->arguments);
    return due->command;
}
