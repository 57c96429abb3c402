#pragma once

#include "cli/quillmark-param/ParamCheck.h"

#include <vector>

/// What kind of file check was given.
enum class CheckedKind { kPlain, kCoded, kOld, kProgram };

/// What check knows of a file, for those who tell it. The pointers are the caller's.
struct CheckedFile {
    const char* name;
    CheckedKind kind;
    int code = 0;                 ///< why the file cannot be read, 0 when it can
    const char* reason = nullptr; ///< more about it, or null
    bool isLathe = false;
    const ParamCheck* check = nullptr;       ///< null when the file cannot be read
    std::vector<ParamCheck::Line> oldKeys{}; ///< those of an old file that nothing takes over
    Findings findings{};

    /// What the numbers of settings and findings count lines of.
    [[nodiscard]] const char* LinesOf() const noexcept {
        static constexpr const char* kTexts[] = {"file", "decoded", "updated", "file"};
        return check == nullptr ? "file" : kTexts[static_cast<std::size_t>(kind)];
    }
};
