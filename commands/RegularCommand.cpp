#include "commands/RegularCommand.h"

#include "apt/Factory.h"
#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "driver/returnCodes.h"

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

int powerOfTen(int exponent) noexcept {
    int power = 1;
    for (; exponent > 0; --exponent) {
        power *= 10;
    }
    return power;
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

void RegularCommand::ChangeByWord(int digits, int offsetDigits) noexcept {
    m_words = powerOfTen(digits);
    m_wordsPerTool = powerOfTen(offsetDigits);
}

void RegularCommand::keepValue(double value) noexcept {
    const int number = toolNumber(value);
    const Control* const control = status().GetControl();
    const bool wantsWhole = control != nullptr && control->actions.IsInUse();
    m_isRefused = (m_words != 0 && (number < 0 || number >= m_words)) ||
                  (wantsWhole && static_cast<double>(number) != value);
    status().InitTool(number / m_wordsPerTool);
}

bool RegularCommand::actsOnValueAlone() const noexcept {
    const int tool = status().GetTool();
    return m_isRefused || (m_words != 0 && tool != 0 && tool != m_changedTo);
}

int RegularCommand::ClaimWords(char* line) { return m_words == 0 ? 0 : Compute(line); }

int RegularCommand::Act() {
    if (m_isRefused) {
        return status().GetControl()->Refuse(
            kBlockRefused, "the number of a tool has too many digits or a fraction");
    }
    m_changedTo = status().GetTool();
    if (Control* const control = status().GetControl()) {
        if (const int code = control->CheckUncompensated(); code != 0) {
            return code;
        }
        control->awaitsSpindle = control->isStrict;
        if (control->rotary != nullptr) {
            control->rotary->ChangeTool(status().GetTool(), status());
        }
    }
    writer().InitOutput(status().GetTool());
    return 0;
}
