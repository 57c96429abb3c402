#include "cli/shared/movementCommands.h"

bool configuresMovement(NCScan& model) noexcept {
    const CommandGroup& movements = *model.Machinestatus().GetMovementCom();
    for (int i = 0; i < movements.GetCommandCount(); ++i) {
        if (movements.GetCommand(i)->GetSyntaxString() != nullptr) {
            return true;
        }
    }
    return false;
}
