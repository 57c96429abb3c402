#pragma once

#include "cli/shared/JsonWriter.h"
#include "path/PathDifference.h"
#include "path/ToolPath.h"

#include <array>
#include <cstdio>

/// Two paths and the names of their files.
struct ComparedPaths {
    std::array<const ToolPath*, 2> paths;
    std::array<const char*, 2> names;
};

/// Tells people, or programs as one object, where two paths differ.
void printDifference(std::FILE* stream, const ComparedPaths& compared,
                     const PathDifference& difference);
void writeJsonDifference(JsonWriter& json, const ComparedPaths& compared,
                         const PathDifference& difference);
