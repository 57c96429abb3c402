#include "commands/ZeroSystemCommand.h"

#include "commands/Control.h"
#include "commands/MachineStatus.h"

ZeroSystemCommand::~ZeroSystemCommand() = default;

int ZeroSystemCommand::Act() {
    ZeroSystems& zeros = control().coordinates.zeros;
    if (!control().isRunning) {
        zeros.StartIn(m_index);
        return 0;
    }
    if (const int code = control().CheckUncompensated(); code != 0) {
        return code;
    }
    control().Recoordinate([&] { zeros.Use(m_index); });
    if (!zeros.IsKnown(m_index)) {
        control().Status().Note(BlockNote::kUnknownOrigin);
    }
    return 0;
}
