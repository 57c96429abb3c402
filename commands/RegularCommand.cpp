#include "commands/RegularCommand.h"

#include "apt/Factory.h"
#include "commands/MachineStatus.h"
#include "commands/consumeWord.h"

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
    : WithWriter(factory->GetRegulaCom()), m_status(status) {}

RegularCommand::~RegularCommand() = default;

void RegularCommand::InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                                    CommandGroup* group, MachineStatus* status) {
    InitModalSyntax(syntax, number, group);
    m_status = status;
    replaceWriter(factory->GetRegulaCom());
}

bool RegularCommand::TakeWords(char* line) {
    const std::optional<double> tool = consumeWord(m_toolWord, line, m_status);
    if (tool) {
        m_status->InitTool(toolNumber(*tool));
    }
    return tool.has_value();
}

int RegularCommand::Act() {
    writer().InitOutput(m_status->GetTool());
    return 0;
}
