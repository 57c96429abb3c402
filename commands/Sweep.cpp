#include "commands/Sweep.h"

#include <cmath>

gmVector3 Sweep::PointAt(double a) const {
    const double part = a / angle;
    const double scale = 1.0 + part * (growth - 1.0);
    return centre + (from * std::cos(a) + across * std::sin(a)) * scale + rise * part;
}
