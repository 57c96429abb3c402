#pragma once

#include "program/LineParser.h"
#include "program/ProgramIndex.h"
#include "program/ProgramLine.h"

#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The text of one file with a program, its subprograms, or both. Lines are read when they are
/// needed; those that are more than plain words are kept. What stands outside of the frame is not
/// part of it.
class ProgramFile {
public:
    /// Lines that belong together: up to the next block that names a program.
    struct Part {
        std::string name; ///< as written; empty for what stands before the first name
        long first = 0;
        long end = 0; ///< behind the last line
    };

    /// Takes the text over. `name` is empty for the main program. `parser` must outlive the file.
    /// Throws std::bad_alloc.
    ProgramFile(std::string text, std::string name, LineParser& parser);

    /// Null for the main program; valid as long as the file.
    [[nodiscard]] const char* name() const noexcept {
        return m_name.empty() ? nullptr : m_name.c_str();
    }
    /// Lines count from 0 here.
    [[nodiscard]] long lineCount() const noexcept { return static_cast<long>(m_lines.size()); }
    /// As it stands, trimmed, up to a NUL byte.
    [[nodiscard]] std::string_view textOf(long line) const noexcept {
        return m_lines[static_cast<std::size_t>(line)];
    }
    [[nodiscard]] bool isCutAtNul(long line) const noexcept;
    /// What the line says. One that is plain words is valid until the next call.
    [[nodiscard]] const ProgramLine& line(long line);
    /// Never empty.
    [[nodiscard]] const std::vector<Part>& parts() const noexcept { return m_parts; }
    /// The part in which a line stands.
    [[nodiscard]] const Part& partOf(long line) const noexcept;
    /// Where labels, numbers and ends stand; made when it is asked for first.
    [[nodiscard]] const ProgramIndex& index();

private:
    void splitLines();
    void findFrame();
    void findParts();
    [[nodiscard]] bool mayBegin(std::string_view line,
                                const std::vector<std::string>& texts) const noexcept;

    std::string m_text;
    std::string m_name;
    LineParser& m_parser;
    std::vector<std::string_view> m_lines;
    long m_begin = 0; // behind the line that opens the frame
    std::vector<Part> m_parts;
    std::vector<std::unique_ptr<ProgramLine>> m_read; // null for a line not read yet, or plain
    ProgramLine m_plain;
    std::optional<ProgramIndex> m_index;
};

/// Reads a stream to its end. 0, or the system's error.
[[nodiscard]] int readStream(std::FILE* file, std::string& text);
