#include "update/convertValues.h"
#include "update/keyTables.h"
#include "update/sectionConverters.h"

char** setzeStrUm(OldLines lines, std::FILE* /*msg*/) noexcept {
    return valueSection("##### String Section", lines, stringKeys(), valueField);
}
