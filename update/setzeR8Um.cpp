#include "update/convertValues.h"
#include "update/keyTables.h"
#include "update/sectionConverters.h"

char** setzeR8Um(OldLines lines, std::FILE* /*msg*/) noexcept {
    return valueSection("##### Real Section", lines, realKeys(), valueField);
}
