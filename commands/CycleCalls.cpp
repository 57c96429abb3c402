#include "commands/CycleCalls.h"

#include "commands/CycleCall.h"

void CycleCalls::BeginBlock() noexcept {
    m_called.reset();
    m_isModalBlock = false;
}

CycleCall* CycleCalls::Due(bool moves, const Control& control) {
    if (std::exchange(m_isModalBlock, false)) {
        m_modal = std::exchange(m_called, std::nullopt);
        if (m_modal) {
            m_modal->mark = CoordinateMark(control);
        }
        return nullptr;
    }
    const std::optional<Request>& due = m_called ? m_called : m_modal;
    if (!due || (!m_called && !moves)) {
        return nullptr;
    }
    due->command->SetArguments(due->arguments, due->mark);
    return due->command;
}
