#include "commands/CoordinateSystem.h"

gmVector3 CoordinateSystem::ToStart(const gmVector3& point) const { return point; }

gmVector3 CoordinateSystem::FromStart(const gmVector3& point) const { return point; }

gmVector3 CoordinateSystem::DirectionToStart(const gmVector3& direction) const { return direction; }

void CoordinateSystem::Rescale(double /*factor*/) {}
