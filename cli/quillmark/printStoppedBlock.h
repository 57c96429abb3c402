#pragma once

#include "driver/NCScan.h"

#include <cstdio>

/// Prints where a conversion stopped and what became of its output, when a block was begun: the
/// line, the text and, when it is not the main program's, the file of the block, and that the
/// output up to it stays. Needs no memory.
void printStoppedBlock(std::FILE* stream, const NCScan& scan, const char* outputName) noexcept;

/// Prints the one line about a conversion that a signal stopped between two blocks.
void printStopSignal(std::FILE* stream, const NCScan& scan, int signal,
                     const char* outputName) noexcept;

/// Why the arc of the block under conversion ends the process, and what is likely to be the cause.
void printFatalArc(std::FILE* stream, const NCScan& scan) noexcept;
