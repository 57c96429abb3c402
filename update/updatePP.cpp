#include "update/updatePP.h"

#include "update/liesPP.h"
#include "update/sections.h"

namespace {

bool writeSections(const Sections& sections, std::FILE* out) noexcept {
    for (const CharFeldOwner& section : sections) {
        for (char* const* line = section.get(); *line != nullptr; ++line) {
            if (std::fprintf(out, "%s\n", *line) < 0) {
                return false;
            }
        }
    }
    return std::fflush(out) == 0;
}

} // namespace

int updatePP(std::FILE* in, std::FILE* out) {
    const CharFeldOwner oldLines(liesPP(in));
    if (oldLines == nullptr) {
        (void)std::fclose(in);
        return kUpdateUnreadable;
    }
    if (*oldLines == nullptr) {
        std::fputs("updatePP: parameterfile is empty\n", stderr);
        return kUpdateUnreadable;
    }
    // Nothing is written before everything is converted.
    const std::unique_ptr<LineMark[]> marks = newLineMarks(oldLines.get());
    Sections sections;
    if (marks == nullptr || convertSections({oldLines.get(), marks.get()}, stderr, sections) != 0) {
        return kUpdateNoMemory;
    }
    if (!writeSections(sections, out)) {
        std::perror("updatePP");
        return kUpdateWriteFailed;
    }
    return kUpdated;
}
