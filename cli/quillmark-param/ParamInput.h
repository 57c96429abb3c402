#pragma once

#include "softCommon/CStringUtil/CharFeld.h"
#include "softCommon/FileOwner.h"

#include <span>
#include <string>
#include <string_view>

/// The input of one call of quillmark-param. It is read as a whole first: so a pipe can be used
/// more than once, and the output may go to the file that was the input.
class ParamInput {
public:
    /// Reads the named file or dialect, "-" for standard input. Returns kParamDone, or kParamFailed
    /// after a line on standard error when it cannot be read, is empty, is larger than 64 MiB, or
    /// holds a byte 0 and so is no text; then it is not read further.
    [[nodiscard]] int Read(const char* name);

    /// Further texts that the command works on; the pointers stay the caller's.
    void SetTexts(std::span<char* const> texts) noexcept { m_texts = texts; }
    [[nodiscard]] std::span<char* const> Texts() const noexcept { return m_texts; }

    /// For messages.
    [[nodiscard]] const char* Name() const noexcept { return m_name.c_str(); }
    /// A new file with the content, at its start; null, with errno, when there can be none. It has
    /// a descriptor, as readers want that make a stream of their own from one.
    [[nodiscard]] FileOwner Open() const noexcept;
    /// The lines, each cut at its line end. Throws std::bad_alloc when memory is exhausted.
    [[nodiscard]] CharFeldOwner Lines() const;
    /// The first bytes, from which the kind of the file is told.
    [[nodiscard]] std::string_view Head() const noexcept;
    [[nodiscard]] bool IsCurrentFormat() const;

private:
    std::string m_name;
    std::string m_content;
    std::span<char* const> m_texts;
};
