#pragma once

#include <string>
#include <vector>

/// One program, the dialect that reads it, and what must come of it. A file of rows reads
///
///     ## o-word
///     REV_DWELL G4
///     REV_DWELL_SECONDS P
///     == what the row shows
///     + REV_EXECUTION_ORDER OFF_FIRST
///     the lines of the program
///     =>
///     DELAY/1.5000
///     !509 a dwell has no time
///
/// "##" names the machine of the rows below it: mill, lathe, or a mill of a family of languages,
/// o-word, hash or r-parameter, or a file of dialects/, which reads all
/// text of its programs. The lines behind it are keys with their values, and stand behind
/// the machine's own; number formats are added. A line that begins with "+ " is one for its row
/// alone. Behind "=>" stands the whole APT, up to an empty line; in lines that begin with "? ", all
/// warnings as "name times"; and the return code with a part of the message where the program must
/// fail. Lines that begin with "#" and a blank are for the reader.
struct ControlRow {
    std::string title;
    std::string dialect;
    std::string program;
    std::vector<std::string> apt;
    std::vector<std::string> told;
    int code = 0;
    std::string message;
    bool isWhollyRead = false; ///< no text may be left that nobody understands
};

/// The rows of a file, which must be well formed.
[[nodiscard]] std::vector<ControlRow> controlRows(const std::string& path);
