#pragma once

#include "path/ToolPath.h"

#include <cstddef>
#include <cstdint>
#include <string>

/// A path as the page in the browser reads it, in few bytes: numbers in groups of 7 bits, low ones
/// first, the sign in the lowest bit, most of them as the difference from the one before. Positions
/// are in units of the last digit that one of them needs. pathData.js is the reader.
class PathBytes {
public:
    explicit PathBytes(const ToolPath& path);

    [[nodiscard]] const std::string& Bytes() const noexcept { return m_bytes; }

private:
    struct Place {
        std::int64_t part[3] = {};
    };

    void addHead();
    void addStates();
    void addEvents();
    void addMovements();
    void addMovement(std::size_t index);
    void addArc(std::size_t index, const Place& start, const Place& end);
    void addNormal(const gmVector3& normal);
    void addBlock(std::uint32_t line);

    [[nodiscard]] Place placeOf(const gmVector3& point) const noexcept;
    void addPlace(const Place& place, const Place& before);
    void number(std::int64_t value);
    void difference(std::int64_t value, std::int64_t& before);

    const ToolPath& m_path;
    const double m_unit; // mm
    const std::int64_t m_grain;
    std::string m_bytes;

    Place m_end;
    Place m_axis;
    gmVector3 m_normal;
    std::int64_t m_line = 0;
    std::int64_t m_block = 0;
    std::uint32_t m_state = 0;
    std::uint32_t m_axisIndex = 0;
};
