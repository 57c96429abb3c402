#include "apt/AResCircularMovement.h"

#include "apt/toolAxisStatement.h"
#include "softCommon/CMathUtil/gmAssert.h"
#include "softCommon/CMathUtil/gmUtil.h"

#include <cmath>

void AResCircularMovement::InitOutput(const gmVector3& axis) {
    write(toolAxisStatement(axis).view());
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
    text.add("AUTOPS\nINDIRV/").add(direction[0], 11, 5).add(",").add(direction[1], 11, 5);
    text.add(", ").add(direction[2], 11, 5).add("\nTLON,GOFWD/(CIRCLE/");
    text.add(centre[0], 13, 5).add(", ").add(centre[1], 13, 5).add(", ").add(centre[2], 13, 5);
    text.add(",$\n").add(radius, 13, 5).add("),ON,(LINE/");
    text.add(centre[0], 13, 5).add(",").add(centre[1], 13, 5).add(",").add(centre[2], 13, 5);
    text.add(",$\n");
    text.add(end[0], 13, 5).add(",").add(end[1], 13, 5).add(",").add(end[2], 13, 5).add(")\n");
    write(text.view());
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
