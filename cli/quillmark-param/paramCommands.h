#pragma once

#include "cli/quillmark-param/ParamInput.h"

#include <cstdio>

/// The commands of quillmark-param. Each reads `in` and writes what it makes of it to `out`, an
/// empty temporary file; what a failed command wrote is not used. Returns kParamDone, or
/// kParamFailed after a line on standard error, which follows the messages of reader and coder.

/// Codes a plain file of the current format.
int encodeCommand(const ParamInput& in, std::FILE* out);
/// Codes plain lines of the older generation.
int encodeOldCommand(const ParamInput& in, std::FILE* out);
/// Decodes a file of either generation.
int decodeCommand(const ParamInput& in, std::FILE* out);
/// Converts a file of the older generation to the current format. The process ends with status 99
/// when the machine type cannot be told.
int updateCommand(const ParamInput& in, std::FILE* out);
/// Explains a file of any generation, for people. Fails when it finds an error. Ends the process as
/// updateCommand does; what it wrote until then is to be shown.
int checkCommand(const ParamInput& in, std::FILE* out);
/// The same for programs, as one JSON object; nothing when the process ends.
int checkAsJsonCommand(const ParamInput& in, std::FILE* out);
/// Evaluates the texts of the call in the language of a dialect, one after the other: a statement
/// changes variables for those behind it, the value of an expression is written. Ends at the first
/// failure; what it wrote until then is to be shown.
int evalCommand(const ParamInput& in, std::FILE* out);
