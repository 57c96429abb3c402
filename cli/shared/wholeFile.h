#pragma once

#include <cstdio>

/// Writes all that `content` holds to the file `name`, "-" for standard output. A file on a disk
/// gets it whole or stays as it was: the content goes to a temporary file beside it, which then
/// takes its name. It keeps the permissions of the file that it replaces, links are followed, and a
/// device or a pipe is written directly. False after a line of `program` on standard error.
[[nodiscard]] bool writeWholeFile(std::FILE* content, const char* name, const char* program);
