#pragma once

#include "cli/shared/JsonWriter.h"
#include "path/PathMeasure.h"
#include "path/ToolPath.h"

/// Writes the figures of a path as one object, of which the caller may open the list.
void writeJsonMeasure(JsonWriter& json, const char* name, const ToolPath& path,
                      const PathMeasure& measure, double rapid);
