#include "commands/TechnologyCommand.h"

#include "commands/Parameter.h"

TechnologyCommand::~TechnologyCommand() = default;

void TechnologyCommand::InitStatus(char* line) {
    TakeWords(line);
    keepCode(perform());
    SetNCLineStatus(FALSE);
    InitActiveCommand();
}

int TechnologyCommand::Compute(char* line) {
    return TakeWords(line) && actsOnValueAlone() ? perform() : 0;
}

bool TechnologyCommand::TakeWords(char* line) {
    if (m_valueWord == nullptr || m_valueWord->scanNC(line, m_status) == 0) {
        return false;
    }
    m_valueWord->SetNCLineStatus(FALSE);
    keepValue(m_valueWord->GetValue());
    return true;
}
