#include "commands/ActionQueue.h"

#include "commands/Command.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

using enum ActionKind;
using Kinds = std::array<ActionKind, kActionKindCount>;

constexpr Kinds kOffFirstKinds = {
    kFeed,         kSpeed,      kTool,       kSpindleOff, kSpindle,      kCoolantOff,
    kCoolant,      kDwell,      kPlane,      kUnits,      kCompensation, kZeroSystem,
    kDistanceMode, kCentreMode, kReturnMode, kShift,      kMovement,     kEnd,
};

constexpr Kinds kOffLastKinds = {
    kPlane,      kUnits, kFeed,         kSpeed,      kTool,         kSpindle,
    kCoolant,    kDwell, kCompensation, kZeroSystem, kDistanceMode, kCentreMode,
    kReturnMode, kShift, kMovement,     kSpindleOff, kCoolantOff,   kEnd,
};

// A block with two commands of one of these contradicts itself.
constexpr ActionKind kExclusiveKinds[] = {kFeed,       kPlane,        kUnits,      kCompensation,
                                          kZeroSystem, kDistanceMode, kCentreMode, kReturnMode};

// Where spindle and coolant stop in their turn, "M3 M5" contradicts itself; else it is a movement
// with the spindle on.
ActionKind groupOf(ActionKind kind) noexcept {
    switch (kind) {
    case kSpindleOff:
        return kSpindle;
    case kCoolantOff:
        return kCoolant;
    default:
        return kind;
    }
}

} // namespace

std::size_t ActionQueue::placeOf(const Command& command) const noexcept {
    const Kinds& kinds = m_order == ExecutionOrder::kOffLast ? kOffLastKinds : kOffFirstKinds;
    return static_cast<std::size_t>(std::ranges::find(kinds, command.GetActionKind()) -
                                    kinds.begin());
}

bool ActionQueue::HasRivalOf(const Command& command) const noexcept {
    const ActionKind kind = groupOf(command.GetActionKind());
    const bool isExclusive =
        std::ranges::find(kExclusiveKinds, kind) != std::end(kExclusiveKinds) ||
        (m_order == ExecutionOrder::kOffFirst && (kind == kSpindle || kind == kCoolant));
    return isExclusive && std::ranges::any_of(m_commands, [&](const Command* other) {
               return other != &command && groupOf(other->GetActionKind()) == kind;
           });
}

bool ActionQueue::Has(ActionKind kind) const noexcept {
    return std::ranges::any_of(
        m_commands, [kind](const Command* command) { return command->GetActionKind() == kind; });
}

void ActionQueue::Add(Command& command) {
    const auto isLater = [this, place = placeOf(command)](const Command* other) {
        return placeOf(*other) > place;
    };
    m_commands.insert(std::ranges::find_if(m_commands, isLater), &command);
}

int ActionQueue::Run() {
    int code = 0;
    for (std::size_t i = 0; code == 0 && i < m_commands.size(); ++i) {
        code = m_commands[i]->Act();
    }
    m_commands.clear();
    return code;
}
