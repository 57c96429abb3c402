#pragma once

#include "cli/quillmark-param/ParamCheck.h"

#include <cstdio>
#include <string>

/// Prints for people what a file configures, which keys nothing reads, and the findings. The bytes
/// of the file that do not print are shown as "?".

void printSettings(std::FILE* out, const ParamCheck& check, bool isLathe);
void printKeyLines(std::FILE* out, const char* heading, const std::vector<ParamCheck::Line>& lines);
/// `counted` says what the line numbers count.
void printFindings(std::FILE* out, const Findings& findings, const char* counted);

/// "2 errors, 1 warning, 0 notes"
[[nodiscard]] std::string countsOf(const Findings& findings);
