#pragma once

#include "path/StatementSource.h"
#include "path/ToolPath.h"
#include "path/readNumbers.h"

#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

/// Reads the APT that the writers of this system write back into the path that it tells. Statements
/// and forms of statements that no writer has are counted and passed over, as long as they are none
/// of those that move the tool.
class AptReader {
public:
    /// The path is filled anew; the stream is the caller's. False when the reading ended early: the
    /// path goes up to there, and Line and Reason tell where and why.
    [[nodiscard]] bool Read(std::FILE* file, ToolPath& path);

    /// The line of what cannot be read, from 1.
    [[nodiscard]] std::uint32_t Line() const noexcept { return m_line; }
    [[nodiscard]] const std::string& Reason() const noexcept { return m_reason; }

private:
    // What is read of one statement: its word, and what stands behind it.
    struct Statement {
        std::string_view word;
        std::string_view rest;
    };
    using Step = bool (AptReader::*)(const Statement& statement);
    struct Row {
        std::string_view word;
        Step read;
    };
    static const Row kRows[];

    bool readStatement(std::string_view text);
    bool end(const StatementSource& source);

    bool readGoto(const Statement& statement);
    bool readRapid(const Statement& statement);
    bool readDirection(const Statement& statement);
    bool readArc(const Statement& statement);
    bool readToolAxis(const Statement& statement);
    bool readMultiAxis(const Statement& statement);
    bool readFeed(const Statement& statement);
    bool readSpindle(const Statement& statement);
    bool readCoolant(const Statement& statement);
    bool readTool(const Statement& statement);
    bool readDelay(const Statement& statement);
    bool readCompensation(const Statement& statement);
    bool readUnits(const Statement& statement);
    template<EventKind Kind>
    bool readEvent(const Statement& statement);
    bool readHome(const Statement& statement);
    bool pass(const Statement& statement);

    void addMovement(MovementKind kind, const gmVector3& end);
    void keepState();
    bool addArc(ToolArc& arc, const gmVector3& end);
    [[nodiscard]] double angleOf(const ToolArc& arc, const gmVector3& start,
                                 const gmVector3& end) const;
    bool setAxis(const gmVector3& axis);
    [[nodiscard]] gmVector3 normalOf(const gmVector3& arm, const gmVector3& direction) const;
    bool addEvent(EventKind kind, double value);
    bool takeUnknown(const Statement& statement);
    bool takeBadNumber(const Statement& statement, NumberFault fault);
    [[nodiscard]] double grain() const noexcept;
    bool fail(std::string reason);

    ToolPath* m_path = nullptr;
    ToolState m_state;
    std::optional<gmVector3> m_direction; // of INDIRV, until the arc that it belongs to
    double m_unit = 1.0;                  // mm
    std::uint32_t m_statement = 0;        // the line of the statement at hand
    bool m_isRapid = false;
    bool m_isPlaceKnown = false;

    std::uint32_t m_line = 0;
    std::string m_reason;
};
