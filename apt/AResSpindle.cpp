#include "apt/AResSpindle.h"

#include "apt/StatementText.h"

void AResSpindle::InitOutput(int direction, double speed) {
    writeTurning(direction, speed, ",RPM");
}

void AResSpindle::WriteCuttingSpeed(int direction, double speed, bool isInch) {
    writeTurning(direction, speed, isInch ? ",SFM" : ",SMM");
}

void AResSpindle::writeTurning(int direction, double speed, const char* unit) const {
    if (direction == 0) {
        write(StatementKind::kSpindle, "SPINDL/OFF\n");
        return;
    }
    StatementText text;
    text.add("SPINDL/").rate(speed).add(unit).add(direction > 0 ? ",CLW\n" : ",CCLW\n");
    write(StatementKind::kSpindle, text);
}
