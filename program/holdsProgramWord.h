#pragma once

#include "program/ProgramLine.h"
#include "program/Vocabulary.h"

/// Whether a line holds a word that the dialect knows, or a statement.
[[nodiscard]] bool holdsProgramWord(const ProgramLine& line, const Vocabulary& vocabulary);
