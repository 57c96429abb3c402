#pragma once

#include "driver/BlockSource.h"
#include "driver/LineReader.h"

/// The blocks of a plain program: a line of the file each. A line longer than LineReader's pieces
/// gives a block for every piece. What follows a NUL byte is not read.
class LineSource final : public BlockSource {
public:
    /// The stream is the caller's. Throws std::bad_alloc.
    explicit LineSource(std::FILE* file) : m_lines(file) {}

    [[nodiscard]] bool Next(Block& block) override;
    /// 200 when the file could not be read to its end.
    [[nodiscard]] int Code() const noexcept override;
    [[nodiscard]] Failure LastFailure() const noexcept override;

private:
    LineReader m_lines;
    long m_line = 0;             // of the block given last
    long m_number = 0;           // of that block
    bool m_isLineBroken = false; // the next piece belongs to the same line
};
