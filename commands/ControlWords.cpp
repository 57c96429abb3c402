#include "commands/ControlWords.h"

std::optional<double> ControlWords::TakeSpeed(char* line, MachineStatus& status) const {
    if (speed == nullptr || speed->scanNC(line, &status) == 0) {
        return std::nullopt;
    }
    speed->SetNCLineStatus(FALSE);
    return speed->GetValue();
}
