#include "apt/AResMovTypeCom.h"

void AResMovTypeCom::InitOutput(Boolean absolute) {
    write(absolute == TRUE ? "MODE/INCR,OFF\n" : "MODE/INCR,ON\n");
}
