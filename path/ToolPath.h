#pragma once

#include "commands/Sweep.h"
#include "path/BlockTable.h"
#include "path/PathEvent.h"
#include "path/ToolMovement.h"
#include "path/ToolState.h"
#include "path/UnknownStatements.h"

#include <cstddef>
#include <vector>

/// The path of a tool as an APT source tells it, in mm whatever unit the source has. What holds for
/// many movements stands once, and the movements hold its index.
struct ToolPath {
    std::vector<ToolMovement> movements;
    std::vector<ToolArc> arcs;
    std::vector<gmVector3> axes{gmVector3(0.0, 0.0, 1.0)}; ///< of length 1; the first is assumed
    std::vector<ToolState> states{ToolState{}};            ///< the first holds before any statement
    std::vector<PathEvent> events;
    UnknownStatements unknown;
    BlockTable blocks;           ///< empty without a log
    std::uint32_t lines = 0;     ///< of the source
    bool isInch = false;         ///< the unit of the source
    bool hasToolAxis = false;    ///< a TLAXIS or six numbers tell it
    bool isMultiAxis = false;    ///< movements have axes of their own
    bool endsWithinLine = false; ///< the last line has no end, so the file may have been cut off

    /// Where a movement begins; its own end when nobody tells. An arc that comes first begins in
    /// the origin, where the converter has the tool before its first movement.
    [[nodiscard]] gmVector3 StartOf(std::size_t movement) const noexcept;
    /// The movement, which is an arc, as a sweep from its start to its end.
    [[nodiscard]] Sweep SweepOf(std::size_t movement) const noexcept;
    /// The same for an arc that is not part of the path yet.
    [[nodiscard]] static Sweep SweepOf(const ToolArc& arc, const gmVector3& start,
                                       const gmVector3& end) noexcept;
    /// mm along the movement; 0 where it begins nobody tells.
    [[nodiscard]] double LengthOf(std::size_t movement) const noexcept;
    /// The point at a fraction of the movement, 0 to 1.
    [[nodiscard]] gmVector3 PointAt(std::size_t movement, double part) const noexcept;
    [[nodiscard]] const ToolState& StateOf(const ToolMovement& movement) const noexcept {
        return states[movement.state];
    }
    /// The NC block of a movement, or BlockTable::kNone.
    [[nodiscard]] std::uint32_t BlockOf(const ToolMovement& movement) const noexcept {
        return blocks.At(movement.line);
    }
};
