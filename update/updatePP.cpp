#include "update/updatePP.h"

#include "softCommon/CStringUtil/CharFeld.h"
#include "update/liesPP.h"
#include "update/sectionConverters.h"

#include <array>
#include <iterator>

namespace {

// In the order of the sections in the file. The tool-machine converter renames keys that later ones
// look for, so it runs before them.
constexpr SectionConverter kConverters[] = {
    setzeHeader, setzeTdbUm, setzeAdrUm, setzeStrUm, setzeIntUm,
    setzeR8Um,   setzeCycUm, setzeBlkUm, setzeMacUm,
};

using Sections = std::array<CharFeldOwner, std::size(kConverters)>;

bool convertSections(char** oldLines, Sections& sections) {
    for (std::size_t i = 0; i < sections.size(); ++i) {
        sections[i].reset(kConverters[i](oldLines, stderr));
        if (sections[i] == nullptr) {
            return false;
        }
    }
    return true;
}

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
    Sections sections;
    if (!convertSections(oldLines.get(), sections)) {
        return kUpdateNoMemory;
    }
    if (!writeSections(sections, out)) {
        std::perror("updatePP");
        return kUpdateWriteFailed;
    }
    return kUpdated;
}
