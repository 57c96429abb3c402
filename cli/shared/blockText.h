#pragma once

#include "driver/NCScan.h"

#include <cstdio>
#include <string_view>

/// Prints a text of the NC file or the name of a file, its control bytes as "\xNN": a terminal must
/// not act on them.
void printText(std::FILE* stream, std::string_view text) noexcept;

/// Prints where a conversion stopped and what became of its output, when a block was begun: the
/// number and the text of the block, and that the output up to it stays. Needs no memory.
void printStoppedBlock(std::FILE* stream, const NCScan& scan, const char* outputName) noexcept;
