#include "apt/AResLinearMovement.h"

#include "apt/toolAxisStatement.h"

void AResLinearMovement::InitOutput(const gmVector3& axis) {
    write(StatementKind::kToolAxis, toolAxisStatement(axis));
}

// RAPID holds for the next motion statement only, so it stands in front of every rapid point.
void AResLinearMovement::InitOutput(Boolean rapid, double& x, double& y, double& z) {
    StatementText text;
    if (rapid == TRUE) {
        text.add("RAPID\n");
    }
    text.add("GOTO/").coordinate(x).add(",").coordinate(y).add(",").coordinate(z).add("\n");
    write(rapid == TRUE ? StatementKind::kRapidMove : StatementKind::kFeedMove, text);
}
