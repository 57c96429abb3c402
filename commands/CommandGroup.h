#pragma once

#include <vector>

class Command;

/// The members of one modal group and the one that is active. Does not own its members.
class CommandGroup {
public:
    CommandGroup() noexcept = default;
    CommandGroup(const CommandGroup&) = delete;
    CommandGroup& operator=(const CommandGroup&) = delete;
    virtual ~CommandGroup();

    /// Adds a member at the head. Throws std::bad_alloc when memory is exhausted.
    void NewCommand(Command* command) { m_members.push_back(command); }
    void SetActiveCommand(Command* command) noexcept { m_active = command; }
    /// The active command; null until one was set.
    [[nodiscard]] Command* GetActiveCommand() const noexcept { return m_active; }
    /// The i-th member from the head, the one added last being 0. The caller keeps `i` within
    /// [0, GetCommandCount()).
    [[nodiscard]] Command* GetCommand(int i) const noexcept {
        return m_members[m_members.size() - 1 - static_cast<std::size_t>(i)];
    }
    [[nodiscard]] int GetCommandCount() const noexcept {
        return static_cast<int>(m_members.size());
    }

private:
    Command* m_active = nullptr;
    std::vector<Command*> m_members; // the head is the last entry
};
