#pragma once

#include "cli/quillmark-param/CheckedFile.h"

#include <cstdio>

/// Writes what check knows of a file as one JSON object; docs/parameter-tool.md describes its keys.
void writeJsonCheck(std::FILE* out, const CheckedFile& file);
