#pragma once

#include "commands/CoordinateMark.h"

#include <optional>
#include <utility>
#include <vector>

class CycleCall;

/// The cycles that a program calls with arguments by place: the one of the block at hand, and the
/// one that every block which moves calls again.
class CycleCalls {
public:
    /// By place; none where one is left out.
    using Arguments = std::vector<std::optional<double>>;

    /// The block calls a cycle. Throws std::bad_alloc.
    void Call(CycleCall& command, Arguments arguments) {
        m_called = Request{&command, std::move(arguments), {}};
    }
    /// The call of the block counts for the blocks that follow; without one there is none for them
    /// any more.
    void MakeModal() noexcept { m_isModalBlock = true; }
    void BeginBlock() noexcept;

    /// When the block has been read: the command that is to act behind its movement, with its
    /// arguments; null when there is none. Not owned.
    [[nodiscard]] CycleCall* Due(bool moves, const Control& control);

private:
    struct Request {
        CycleCall* command; // not owned
        Arguments arguments;
        std::optional<CoordinateMark> mark = {}; ///< of a call that counts for later blocks
    };

    std::optional<Request> m_called; // by the block at hand
    std::optional<Request> m_modal;
    bool m_isModalBlock = false;
};
