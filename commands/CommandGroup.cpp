#include "commands/CommandGroup.h"

CommandGroup::~CommandGroup() = default;
