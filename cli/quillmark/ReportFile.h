#pragma once

#include "softCommon/FileOwner.h"

#include <span>

/// The file of --report. It is opened before the conversion, so that a name that cannot be used is
/// told before anything is written.
class ReportFile {
public:
    /// Another file of the run, and what to say when the report would overwrite it. The name may
    /// be null.
    struct Other {
        const char* name;
        const char* objection;
    };

    /// Opens `name`, "-" for standard output, and empties the file, unless it is one of `others`,
    /// compared by device and inode. Returns null, or why not: an objection or the system's reason.
    /// Then nothing is changed, and a file that did not exist before is removed.
    [[nodiscard]] const char* Open(const char* name, std::span<const Other> others) noexcept;
    /// The open stream; null when there is none.
    [[nodiscard]] std::FILE* get() const noexcept { return m_file.get(); }
    /// Closes the stream. Returns null, or the system's reason when something did not reach the
    /// file.
    [[nodiscard]] const char* Close() noexcept;

private:
    FileOwner m_file;
};
