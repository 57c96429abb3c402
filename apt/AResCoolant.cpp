#include "apt/AResCoolant.h"

void AResCoolant::InitOutput(Boolean on) { write(on == TRUE ? "COOLNT/ON\n" : "COOLNT/OFF\n"); }
