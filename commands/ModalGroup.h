#pragma once

#include <cstddef>

/// The groups of commands that exclude each other, in the order in which they act on a block: the
/// movement type is settled before a coordinate is converted, and the feed is written before the
/// movement that uses it. Their members, and which one is active at first, stand with the makers of
/// the commands. A group is one line here.
enum class ModalGroup : std::size_t {
    kMovementType,
    kFeedRate,
    kMovement,
    kCoolant,
    kSpindle,
    kTool,
    kCount
};

inline constexpr std::size_t kModalGroupCount = static_cast<std::size_t>(ModalGroup::kCount);

/// From this group on the block is trimmed: the movement has taken its words.
inline constexpr auto kFirstOfTrimmedBlock = static_cast<std::size_t>(ModalGroup::kCoolant);
