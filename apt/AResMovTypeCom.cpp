#include "apt/AResMovTypeCom.h"

void AResMovTypeCom::InitOutput(Boolean absolute) {
    write(StatementKind::kMode, absolute == TRUE ? "MODE/INCR,OFF\n" : "MODE/INCR,ON\n");
}
