#include "apt/AResControl.h"

#include "apt/StatementText.h"

void AResControl::WriteDelay(double seconds) {
    StatementText text;
    text.add("DELAY/").exact(seconds).add("\n");
    write(StatementKind::kDelay, text);
}

void AResControl::WriteDelayInTurns(double turns) {
    StatementText text;
    text.add("DELAY/").exact(turns).add(",REV\n");
    write(StatementKind::kDelay, text);
}

void AResControl::WriteUnits(bool isInch) {
    write(StatementKind::kUnits, isInch ? "UNITS/INCHES\n" : "UNITS/MM\n");
}

void AResControl::WriteCompensation(bool isLeft, std::optional<int> number) {
    StatementText text;
    text.add(isLeft ? "CUTCOM/LEFT" : "CUTCOM/RIGHT");
    if (number) {
        text.add(",").add(*number);
    }
    text.add("\n");
    write(StatementKind::kCompensation, text);
}

void AResControl::WriteCompensationOff() { write(StatementKind::kCompensation, "CUTCOM/OFF\n"); }

void AResControl::WriteStop(bool isOptional) {
    write(StatementKind::kStop, isOptional ? "OPSTOP\n" : "STOP\n");
}

void AResControl::WriteGoHome() { write(StatementKind::kHome, "GOHOME\n"); }

void AResControl::WriteSpeedLimit(double speed) {
    StatementText text;
    text.add("SPINDL/MAXRPM,").exact(speed).add("\n");
    write(StatementKind::kSpindle, text);
}

void AResControl::WriteMultiAxis() { write(StatementKind::kMode, "MULTAX/ON\n"); }
