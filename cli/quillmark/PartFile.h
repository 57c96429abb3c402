#pragma once

#include <span>
#include <string>

/// A result that is written under another name, "NAME.part", until it is whole, so that a run that
/// fails or is killed leaves the last result.
class PartFile {
public:
    /// Takes the name of the result, which may be null. A link stays: its target is what is
    /// replaced. What cannot be replaced ("-", a pipe, a terminal, a folder) and what must not be
    /// (one of `inputs`, which may be null) is left as it is, and to be written itself.
    void Choose(const char* name, std::span<const char* const> inputs);
    /// The name to be written to; null when no result was chosen.
    [[nodiscard]] char* Name() noexcept { return m_isChosen ? m_part.data() : nullptr; }
    [[nodiscard]] const char* Name() const noexcept {
        return m_isChosen ? m_part.c_str() : nullptr;
    }
    /// Gives the whole result its name. Returns null, or the system's reason; then the last result
    /// is still there.
    [[nodiscard]] const char* GiveName() const noexcept;

private:
    bool m_isChosen = false;
    std::string m_name;
    std::string m_part; // m_name when it is written itself
};
