#pragma once

#include "apt/Result.h"

/// Writes texts of the program in the output language.
class ResText : public Result {
public:
    using Result::Result;
    ResText(const ResText&) = delete;
    ResText& operator=(const ResText&) = delete;

    /// Writes a comment.
    virtual void WriteComment(std::string_view comment) = 0;
    /// Writes the name of the program.
    virtual void WriteProgramName(std::string_view name) = 0;
    virtual ~ResText() = default;
};
