#pragma once

#include "commands/ActionKind.h"

#include <cstddef>
#include <vector>

class Command;

/// When the commands of a block act: as they are recognised, or in one of two orders of controls,
/// whatever the order of their words.
enum class ExecutionOrder {
    kAsRecognised,
    kOffFirst, ///< spindle and coolant stop before the movement
    kOffLast   ///< they stop behind it; plane and units change before the feed
};

/// The commands of the block at hand that are to act, until all are known. Does not own them.
class ActionQueue {
public:
    void SetOrder(ExecutionOrder order) noexcept { m_order = order; }
    /// Whether commands have to wait here.
    [[nodiscard]] bool IsInUse() const noexcept { return m_order != ExecutionOrder::kAsRecognised; }
    [[nodiscard]] ExecutionOrder Order() const noexcept { return m_order; }

    /// Whether another command waits that says something else of the same.
    [[nodiscard]] bool HasRivalOf(const Command& command) const noexcept;
    [[nodiscard]] bool HasKind(ActionKind kind) const noexcept;
    /// Those of one kind act in the order in which they come. Throws std::bad_alloc.
    void Add(Command& command);
    /// Has all act and forgets them. Returns 0, or the first code that is not: no further command
    /// acts then.
    int Run();
    [[nodiscard]] bool Has(ActionKind kind) const noexcept;
    void Clear() noexcept { m_commands.clear(); }

private:
    [[nodiscard]] std::size_t placeOf(const Command& command) const noexcept;

    ExecutionOrder m_order = ExecutionOrder::kAsRecognised;
    std::vector<Command*> m_commands; // in the order of acting
};
