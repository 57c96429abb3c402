#include "commands/PlaneCommand.h"

#include "commands/Control.h"

PlaneCommand::~PlaneCommand() = default;

int PlaneCommand::Act() {
    if (const int code = m_plane == control().plane ? 0 : control().CheckUncompensated();
        code != 0) {
        return code;
    }
    control().plane = m_plane;
    return 0;
}
