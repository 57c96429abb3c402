#pragma once

#include "paramfile/codingOption.h"

/// Codes (kCodeOption) or decodes (kDecodeOption) the coded part of a current-format parameter file
/// in place: every line behind the one that begins with "##### Toolmachine Section"; a file without
/// that line has no coded part. `lines` is a `CharFeld`, one entry per line without its line end;
/// each line worked on is replaced by a new heap string. Null is an array without lines.
///
/// A "#FILE:" line with "UNCODED" or "uncoded" makes kDecodeOption leave everything alone;
/// kCodeOption empties that line. An empty coded line decodes to an empty one.
///
/// Returns 0, or the CoderResult of the first line that fails, which is named on standard error:
/// the lines before it are converted, it and those behind it are not. An unknown option is 39999.
[[nodiscard]] int ppcrypt(int option, char** lines) noexcept;
