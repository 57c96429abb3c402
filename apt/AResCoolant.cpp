#include "apt/AResCoolant.h"

void AResCoolant::InitOutput(Boolean on) {
    write(StatementKind::kCoolant, on == TRUE ? "COOLNT/ON\n" : "COOLNT/OFF\n");
}

void AResCoolant::WriteMist() { write(StatementKind::kCoolant, "COOLNT/MIST\n"); }
