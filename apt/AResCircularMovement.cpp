#include "apt/AResCircularMovement.h"

#include "apt/toolAxisStatement.h"
#include "softCommon/CMathUtil/gmAssert.h"
#include "softCommon/CMathUtil/gmUtil.h"

#include <cmath>

void AResCircularMovement::InitOutput(const gmVector3& axis) {
    write(StatementKind::kToolAxis, toolAxisStatement(axis));
}

void AResCircularMovement::InitOutput(Boolean clockwise, const double& startX, const double& startY,
                                      const double& startZ, const double& endX, const double& endY,
                                      const double& endZ, const double& centreX,
                                      const double& centreY, const double& centreZ,
                                      const double& normalX, const double& normalY,
                                      const double& normalZ) {
    const gmVector3 end(endX, endY, endZ);
    const gmVector3 centre(centreX, centreY, centreZ);
    const double radius = (end - centre).length();
    if (gmIsZero(radius)) {
        count(StatementKind::kDroppedArc);
        writeToLog("Circle with radius 0 not allowed! Continuing!\n");
        return;
    }
    gmVector3 normal(normalX, normalY, normalZ);
    if (clockwise != TRUE) {
        normal = -normal;
    }
    const gmVector3 direction = computeTangent(startX, startY, startZ, centreX, centreY, centreZ,
                                               normal[0], normal[1], normal[2]);
    // The blank behind the second comma of INDIRV belongs to the format. "$" continues a line.
    StatementText text;
    text.add("AUTOPS\nINDIRV/").coordinate(direction[0]).add(",").coordinate(direction[1]);
    text.add(", ").coordinate(direction[2]).add("\nTLON,GOFWD/(CIRCLE/");
    text.circleValue(centre[0]).add(", ").circleValue(centre[1]).add(", ").circleValue(centre[2]);
    text.add(",$\n").circleValue(radius).add("),ON,(LINE/");
    text.circleValue(centre[0]).add(",").circleValue(centre[1]).add(",").circleValue(centre[2]);
    text.add(",$\n");
    text.circleValue(end[0]).add(",").circleValue(end[1]).add(",").circleValue(end[2]).add(")\n");
    write(StatementKind::kArc, text);
}

gmVector3 AResCircularMovement::computeTangent(const double& startX, const double& startY,
                                               const double& startZ, const double& centreX,
                                               const double& centreY, const double& centreZ,
                                               const double& normalX, const double& normalY,
                                               const double& normalZ) {
    const gmVector3 toCentre =
        gmVector3(centreX, centreY, centreZ) - gmVector3(startX, startY, startZ);
    gmVector3 tangent = cross(gmVector3(normalX, normalY, normalZ), toCentre);
    const double len = tangent.length();
    gmAssert(!gmIsZero(len));
    tangent /= len;
    return tangent;
}
