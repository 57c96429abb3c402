#pragma once

#include "softCommon/CMathUtil/gmVec3.h"

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

/// The zero systems of a control ("G54" and so on), of which one is in force, and where they lie in
/// the one that was in force at the start. Lengths are in the unit of the program.
///
/// What nobody tells is not made up: an axis of a system whose origin is unknown counts as that of
/// the start's zero, and IsKnown says so. The same holds for origins in coordinates of the machine
/// as long as nobody says where machine zero lies: the first of them that is used is taken for the
/// start's zero, and the others lie where they do in respect to it.
class ZeroSystems {
public:
    ZeroSystems();

    /// One more system, from the parameter file. Until the first, there is a nameless one.
    void Add();
    [[nodiscard]] std::size_t Count() const noexcept { return m_systems.size(); }
    /// What the file says: the origin of the system added last in coordinates of the machine, and
    /// machine zero in the zero of the start.
    /// An origin is refused, with false, when there is no system to have it or it has one already.
    [[nodiscard]] bool SetFileOrigin(const gmVector3& origin);
    void SetMachineZero(const gmVector3& place) { m_machineZero = place; }
    /// Machine zero in the zero of the start, as far as the file tells.
    [[nodiscard]] std::optional<gmVector3> MachineZero() const;

    /// The system in force when the program begins: the first one, unless this names another.
    void StartIn(std::size_t index);
    void Use(std::size_t index) noexcept { m_current = index; }
    [[nodiscard]] std::size_t Current() const noexcept { return m_current; }

    /// The origin of a system in the zero of the start. What is unknown is settled as said above.
    [[nodiscard]] gmVector3 OriginOf(std::size_t index);
    /// One coordinate of it, from now on.
    void SetOrigin(std::size_t index, int axis, double value);
    /// The same in coordinates of the machine.
    void SetMachineOrigin(std::size_t index, int axis, double value);
    /// Whether file or program tell where the system lies.
    [[nodiscard]] bool IsKnown(std::size_t index) const;

    /// By how much a system is turned about its Z, degrees.
    [[nodiscard]] double AngleOf(std::size_t index) const { return m_systems.at(index).angle; }
    void SetAngle(std::size_t index, double angle) { m_systems.at(index).angle = angle; }

    void Rescale(double factor);

private:
    /// One coordinate of an origin, as far as it is told.
    struct Place {
        std::optional<double> inStart; ///< counts when both are there
        std::optional<double> inMachine;
    };
    struct System {
        std::array<Place, 3> origin;
        std::optional<gmVector3> fileOrigin;
        double angle = 0.0;
    };

    [[nodiscard]] double settledPlace(const Place& place, int axis);

    std::vector<System> m_systems;
    std::size_t m_start = 0;
    std::size_t m_current = 0;
    bool m_isNamed = false; // the file added one
    std::optional<gmVector3> m_machineZero;
    // Where machine zero lies if the first system used is the start's: it tells of systems only.
    std::array<std::optional<double>, 3> m_supposedZero;
};
