#include "commands/ModalCommand.h"

#include "commands/CommandGroup.h"

ModalCommand::~ModalCommand() = default;

bool ModalCommand::TakeWords(char* /*line*/) { return false; }

void ModalCommand::InitModalSyntax(const char* syntax, const int& number,
                                   CommandGroup* group) noexcept {
    InitSyntax(syntax, number);
    m_group = group;
}

void ModalCommand::InitActiveCommand() noexcept {
    if (m_group != nullptr) {
        m_group->SetActiveCommand(this);
    }
}
