#pragma once

#include "path/PathMeasure.h"
#include "path/ToolPath.h"

#include <cstdio>

/// Prints the figures of a path for people. `rapid` is the speed that was assumed, 0 for none.
void printMeasure(std::FILE* stream, const char* name, const ToolPath& path,
                  const PathMeasure& measure, double rapid);
