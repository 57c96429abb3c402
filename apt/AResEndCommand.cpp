#include "apt/AResEndCommand.h"

void AResEndCommand::InitOutput() { write("REWIND/0\nEND\n"); }
