#include "commands/TechnologyCommand.h"

#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "commands/Parameter.h"
#include "driver/returnCodes.h"

#include <utility>

TechnologyCommand::~TechnologyCommand() = default;

void TechnologyCommand::InitStatus(char* line) {
    TakeWords(line);
    const int code = checkValue();
    keepCode(code != 0 ? code : perform());
    SetNCLineStatus(FALSE);
    InitActiveCommand();
}

int TechnologyCommand::Compute(char* line) {
    if (!TakeWords(line)) {
        return 0;
    }
    const int code = checkValue();
    return code == 0 && actsOnValueAlone() ? perform() : code;
}

int TechnologyCommand::checkValue() {
    Control* const control = m_status == nullptr ? nullptr : m_status->GetControl();
    const bool isNegative = std::exchange(m_isNegative, false);
    return isNegative && control != nullptr && control->actions.IsInUse()
               ? control->Refuse(kBlockRefused, "a feed, a speed or a tool is below 0")
               : 0;
}

bool TechnologyCommand::TakeWords(char* line) {
    if (m_valueWord == nullptr || m_valueWord->scanNC(line, m_status) == 0) {
        return false;
    }
    m_valueWord->SetNCLineStatus(FALSE);
    m_isNegative = m_valueWord->GetValue() < 0.0;
    keepValue(m_valueWord->GetValue());
    return true;
}
