#include "commands/ModalCycle.h"

ModalCycle::~ModalCycle() = default;

void ModalCycle::InitStatus(char* /*line*/) {
    SetNCLineStatus(FALSE);
    m_control.calls.MakeModal();
}
