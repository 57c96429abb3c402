#pragma once

/// What a command notices of the block at hand and a report is to tell. It changes nothing else.
enum class BlockNote : unsigned {
    kAxisNotGiven,  ///< a movement of which an axis was never given: its place is taken to be 0
    kUnknownOrigin, ///< a work offset of which nobody says where it lies
    kCompensation,  ///< a radius compensation, of which the path is the programmed contour
    kUnknownPlace,  ///< a way to a place of the machine of which nobody says where it lies
    kRotaryLimit,   ///< the first rotary axis leaves its limits
    kRotaryLimit2,  ///< the second one does
    kRotaryFeed,    ///< a rotary axis that moves alone, at a feed along the path
    kHeadLength,    ///< a tool on a turning head of which nobody says how long it is
    kCycleAside,    ///< a cycle that does not run along the tool
    kNoFeed,        ///< a feed movement while the program has given no feed
    kTwoMovements,  ///< the words of two movements: one of them acts
    kCount
};
