#pragma once

#include "cli/quillmark-param/CheckedFile.h"

#include <cstdio>
#include <string>

enum class SettingKind { kCommand, kWord, kOther };

[[nodiscard]] SettingKind settingKindOf(const RecordingScan::Entry& entry) noexcept;
/// What the model holds, not what the file says.
[[nodiscard]] std::string settingOf(const RecordingScan::Entry& entry);

/// Prints for people which file it is; nothing of what is no parameter file.
void printCheckHead(std::FILE* out, const CheckedFile& file);
/// Prints for people what the file configures, which keys nothing reads, and the findings. The
/// bytes of the file that do not print are shown as "?".
void printCheck(std::FILE* out, const CheckedFile& file);

/// "2 errors, 1 warning, 0 notes"
[[nodiscard]] std::string countsOf(const Findings& findings);
