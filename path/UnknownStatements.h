#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Statements that the reader passes over: each name once, with its count and first line. Of a file
/// that is no APT at all, only the first names are kept.
class UnknownStatements {
public:
    struct Row {
        std::string name;
        std::uint32_t line = 0;
        std::size_t count = 0;
    };

    /// Names are cut to a length that fits a line of a terminal.
    void Add(std::string_view name, std::uint32_t line);

    [[nodiscard]] const std::vector<Row>& Rows() const noexcept { return m_rows; }
    /// Those whose names were not kept.
    [[nodiscard]] std::size_t Others() const noexcept { return m_others; }

private:
    std::vector<Row> m_rows;
    std::size_t m_others = 0;
};
