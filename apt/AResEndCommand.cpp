#include "apt/AResEndCommand.h"

void AResEndCommand::InitOutput() { write(StatementKind::kProgramEnd, "REWIND/0\nEND\n"); }
