#include "commands/RegularCommand.h"

#include "apt/Factory.h"
#include "commands/MachineStatus.h"

#include <limits>

namespace {

// Truncates toward zero; numbers beyond an int become its limits, and what is no number becomes 0.
int toolNumber(double value) noexcept {
    constexpr double kLowest = std::numeric_limits<int>::min();
    constexpr double kHighest = std::numeric_limits<int>::max();
    if (value >= kHighest) {
        return std::numeric_limits<int>::max();
    }
    if (value <= kLowest) {
        return std::numeric_limits<int>::min();
    }
    return value == value ? static_cast<int>(value) : 0;
}

} // namespace

RegularCommand::RegularCommand(MachineStatus* status, Factory* factory)
    : WithWriter(factory->GetRegulaCom(), status) {}

RegularCommand::~RegularCommand() = default;

void RegularCommand::InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                                    CommandGroup* group, MachineStatus* status) {
    InitModalSyntax(syntax, number, group);
    initStatus(status);
    replaceWriter(factory->GetRegulaCom());
}

void RegularCommand::keepValue(double value) noexcept { status().InitTool(toolNumber(value)); }

int RegularCommand::Act() {
    writer().InitOutput(status().GetTool());
    return 0;
}
