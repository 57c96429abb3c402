#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

class ProgramFile;

/// Where in one file the flow finds what it looks for. Lines count from 0.
class ProgramIndex {
public:
    /// A definition among the blocks: its first and its last line.
    struct Definition {
        long first = 0;
        long last = 0;
    };

    /// Reads the whole file once. Throws std::bad_alloc.
    explicit ProgramIndex(ProgramFile& file);

    /// The line of the next part of a branch, from a loop's begin to its end and back, from a
    /// leap out of a loop to its begin, from a definition to its end; none when it is missing.
    [[nodiscard]] std::optional<long> partner(long line) const noexcept;
    /// Whether a line that could begin a loop ends one.
    [[nodiscard]] bool endsLoop(long line) const noexcept;
    /// The lines of a label or of a block number, in their order.
    [[nodiscard]] const std::vector<long>& label(std::string_view label) const;
    [[nodiscard]] const std::vector<long>& blockNumber(long number) const;
    /// The definitions of this name among the blocks, in their order.
    [[nodiscard]] const std::vector<Definition>& definitions(std::string_view name) const;
    /// The lines that begin a subprogram which goes on to its return.
    [[nodiscard]] const std::vector<long>& beginnings(std::string_view name) const;

private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };
    template<class Value>
    using ByName = std::unordered_map<std::string, Value, Hash, std::equal_to<>>;

    class Builder;

    std::unordered_map<long, long> m_partners;
    ByName<std::vector<long>> m_labels;
    std::unordered_map<long, std::vector<long>> m_blockNumbers;
    ByName<std::vector<Definition>> m_definitions;
    ByName<std::vector<long>> m_beginnings;
};
