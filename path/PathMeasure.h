#pragma once

#include "path/PathBox.h"
#include "path/ToolPath.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

/// The lowest and the highest of some numbers.
struct Range {
    double low = 0.0;
    double high = 0.0;
    bool isEmpty = true;

    void Add(double value) noexcept;
};

/// Some movements: their number, the way in mm and the time in seconds.
struct MovementSum {
    std::size_t count = 0;
    double length = 0.0;
    double seconds = 0.0;
    std::size_t untimed = 0; ///< of those, without a feed, a speed or a start that tells their time
};

/// What one tool does, in all its uses.
struct ToolMeasure {
    std::optional<int> tool; ///< none: in front of the first LOADTL
    MovementSum rapid{};
    MovementSum cutting{}; ///< straight ones at feed, and arcs
    double dwellSeconds = 0.0;
    Range z{};        ///< of all its movements, mm
    Range cuttingZ{}; ///< of the cutting ones
};

/// What can be measured along a path. Lengths in mm, times in seconds.
struct PathMeasure {
    PathBox box;
    PathBox cuttingBox;
    MovementSum rapid; ///< its time is 0 without a speed for rapid traverse
    MovementSum feed;  ///< straight ones
    MovementSum arcs;
    std::vector<ToolMeasure> tools; ///< in the order of their first use
    double dwellSeconds = 0.0;
    std::size_t untimedDwells = 0; ///< in turns of a spindle that stands still
    std::size_t toolChanges = 0;
    std::size_t stops = 0; ///< optional ones included
    Range feedPerMinute;   ///< of cutting movements, mm/min
    Range feedPerTurn;     ///< mm/rev
    Range speed;           ///< while the spindle turns and the tool cuts, rev/min
    Range cuttingSpeed;    ///< m/min
    /// Movements at rapid of which a part lies below the highest point of the cutting ones, those
    /// of them that do not go straight along Z, and the line of the first of the latter, 0 for
    /// none.
    std::size_t rapidsBelow = 0;
    std::size_t rapidsBelowAcross = 0;
    std::uint32_t firstBelowAcross = 0;
};

/// Measures a path. `rapid` is the speed of rapid traverse in mm/min; 0: not known.
[[nodiscard]] PathMeasure measurePath(const ToolPath& path, double rapid);
