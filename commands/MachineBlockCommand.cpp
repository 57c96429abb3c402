#include "commands/MachineBlockCommand.h"

#include "commands/Control.h"
#include "driver/returnCodes.h"

MachineBlockCommand::~MachineBlockCommand() = default;

int MachineBlockCommand::Act() {
    const ActionQueue& actions = control().actions;
    if (control().isStrict && !actions.Has(ActionKind::kMovement)) {
        return control().Refuse(kBlockRefused, "coordinates of the machine belong to a movement");
    }
    control().movesInMachine = true;
    return 0;
}
