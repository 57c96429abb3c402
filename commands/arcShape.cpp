#include "commands/arcShape.h"

#include "commands/Movement.h"

ArcShape arcShapeOf(const Movement& movement) {
    const Arc& arc = *movement.arc;
    const double length = arc.normal.length();
    const gmVector3 axis = arc.normal * (length > 0.0 ? 1.0 / length : 0.0);
    const gmVector3 chord = movement.end - movement.start;
    return {cross(axis, movement.start - arc.centre).length(),
            cross(axis, movement.end - arc.centre).length(),
            axis[0] * chord[0] + axis[1] * chord[1] + axis[2] * chord[2]};
}
