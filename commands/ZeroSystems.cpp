#include "commands/ZeroSystems.h"

#include <algorithm>

namespace {

void rescale(std::optional<double>& length, double factor) noexcept {
    if (length) {
        *length *= factor;
    }
}

void rescale(std::optional<gmVector3>& point, double factor) {
    if (point) {
        *point *= factor;
    }
}

} // namespace

ZeroSystems::ZeroSystems() : m_systems(1) { StartIn(0); }

void ZeroSystems::Add() {
    if (m_isNamed) {
        m_systems.emplace_back();
    }
    m_isNamed = true;
}

bool ZeroSystems::SetFileOrigin(const gmVector3& origin) {
    System& system = m_systems.back();
    if (!m_isNamed || system.fileOrigin) {
        return false;
    }
    system.fileOrigin = origin;
    for (int axis = 0; axis < 3; ++axis) {
        system.origin.at(static_cast<std::size_t>(axis)).inMachine = origin[axis];
    }
    return true;
}

std::optional<gmVector3> ZeroSystems::MachineZero() const {
    if (m_machineZero) {
        return m_machineZero;
    }
    const std::optional<gmVector3>& origin = m_systems[m_start].fileOrigin;
    return origin ? std::optional(*origin * -1.0) : std::nullopt;
}

void ZeroSystems::StartIn(std::size_t index) {
    for (Place& place : m_systems[m_start].origin) {
        place.inStart.reset();
    }
    m_start = index;
    m_current = index;
    for (Place& place : m_systems.at(m_start).origin) {
        place.inStart = 0.0;
    }
}

gmVector3 ZeroSystems::OriginOf(std::size_t index) {
    const System& system = m_systems.at(index);
    return {settledPlace(system.origin[0], 0), settledPlace(system.origin[1], 1),
            settledPlace(system.origin[2], 2)};
}

double ZeroSystems::settledPlace(const Place& place, int axis) {
    if (place.inStart) {
        return *place.inStart;
    }
    if (!place.inMachine) {
        return 0.0;
    }
    if (const std::optional<gmVector3> zero = MachineZero()) {
        return *place.inMachine + (*zero)[axis];
    }
    std::optional<double>& supposed = m_supposedZero.at(static_cast<std::size_t>(axis));
    if (!supposed) {
        supposed = -*place.inMachine;
    }
    return *place.inMachine + *supposed;
}

void ZeroSystems::SetOrigin(std::size_t index, int axis, double value) {
    m_systems.at(index).origin.at(static_cast<std::size_t>(axis)).inStart = value;
}

void ZeroSystems::SetMachineOrigin(std::size_t index, int axis, double value) {
    m_systems.at(index).origin.at(static_cast<std::size_t>(axis)) = {std::nullopt, value};
}

bool ZeroSystems::IsKnown(std::size_t index) const {
    const bool knowsMachine = MachineZero().has_value();
    return std::ranges::all_of(m_systems.at(index).origin, [&](const Place& place) {
        return place.inStart || (place.inMachine && knowsMachine);
    });
}

void ZeroSystems::Rescale(double factor) {
    for (System& system : m_systems) {
        rescale(system.fileOrigin, factor);
        for (Place& place : system.origin) {
            rescale(place.inStart, factor);
            rescale(place.inMachine, factor);
        }
    }
    rescale(m_machineZero, factor);
    for (std::optional<double>& length : m_supposedZero) {
        rescale(length, factor);
    }
}
