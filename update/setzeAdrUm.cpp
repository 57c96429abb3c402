#include "update/convertValues.h"
#include "update/keyTables.h"
#include "update/oldLine.h"
#include "update/sectionConverters.h"

namespace {

// Unlike the other values an address text has no fixed width.
HeapText addressText(const KeyMapping& /*mapping*/, const char* line) noexcept {
    return trimmedColumns(line, kValueColumn);
}

} // namespace

char** setzeAdrUm(OldLines lines, std::FILE* /*msg*/) noexcept {
    return valueSection("##### Address Section", lines, addressKeys(), addressText);
}
