#include "apt/AResSpindle.h"

#include "apt/StatementText.h"

void AResSpindle::InitOutput(int direction, double speed) {
    if (direction == 0) {
        write(StatementKind::kSpindle, "SPINDL/OFF\n");
        return;
    }
    StatementText text;
    text.add("SPINDL/").rate(speed).add(direction > 0 ? ",RPM,CLW\n" : ",RPM,CCLW\n");
    write(StatementKind::kSpindle, text);
}
