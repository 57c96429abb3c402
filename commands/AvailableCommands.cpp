#include "commands/AvailableCommands.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

AvailableCommands::~AvailableCommands() = default;

void AvailableCommands::NewCommand(Command* command) {
    std::unique_ptr<Command> owned(command);
    m_commands.push_back(std::move(owned));
}

void AvailableCommands::SortCommands() {
    const auto place = [this](const std::unique_ptr<Command>& command) {
        return command == nullptr
                   ? std::pair(CommandRank::kPlain, 0)
                   : std::pair(command->Rank(), GetCommandLength(command->GetSyntaxString(),
                                                                 command->GetSyntaxNumber()));
    };
    std::stable_sort(m_commands.rbegin(), m_commands.rend(),
                     [&](const auto& a, const auto& b) { return place(a) > place(b); });
}

int AvailableCommands::GetCommandLength(const char* syntax, const int& number) const noexcept {
    if (syntax == nullptr) {
        return 0;
    }
    int digits = 0;
    if (number == 0) {
        digits = 1;
    } else if (number > 0) {
        digits = static_cast<int>(std::log10(number) + 1.0);
    }
    return static_cast<int>(std::strlen(syntax)) + digits;
}
