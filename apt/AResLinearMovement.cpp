#include "apt/AResLinearMovement.h"

#include "apt/toolAxisStatement.h"

#include <cmath>

namespace {

// What the decimals do not show is 0.
double shown(double value, double leastShown) noexcept {
    return std::abs(value) < leastShown ? 0.0 : value;
}

} // namespace

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

void AResLinearMovement::InitOutput(Boolean rapid, const gmVector3& point, const gmVector3& axis) {
    constexpr double kLeastLength = 0.5e-5;
    constexpr double kLeastComponent = 0.5e-7;
    StatementText text;
    if (rapid == TRUE) {
        text.add("RAPID\n");
    }
    text.add("GOTO/");
    for (int i = 0; i < 3; ++i) {
        text.coordinate(shown(point[i], kLeastLength)).add(",");
    }
    for (int i = 0; i < 3; ++i) {
        text.direction(shown(axis[i], kLeastComponent)).add(i < 2 ? "," : "\n");
    }
    write(rapid == TRUE ? StatementKind::kRapidMove : StatementKind::kFeedMove, text);
}
