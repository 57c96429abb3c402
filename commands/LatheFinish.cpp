#include "commands/LatheFinish.h"

#include "commands/MachineStatus.h"

#include <utility>

LatheFinish::~LatheFinish() = default;

void LatheFinish::InitStatus(char* /*line*/) {
    SetNCLineStatus(FALSE);
    keepCode(perform());
}

int LatheFinish::Act() {
    if (const auto start = std::exchange(m_start, std::nullopt)) {
        return goTo(TRUE, *start);
    }
    m_start = status().GetEndPosition();
    return 0;
}
