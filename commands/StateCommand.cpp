#include "commands/StateCommand.h"

StateCommand::~StateCommand() = default;

int StateCommand::Act() {
    m_change(control());
    return 0;
}
