#include "update/sections.h"

#include "update/sectionConverters.h"

namespace {

// The tool-machine converter renames keys that later ones look for, so it runs before them, and the
// block converter asks what those before it took.
constexpr std::array<SectionConverter, std::tuple_size_v<Sections>> kConverters = {
    setzeHeader, setzeTdbUm, setzeAdrUm, setzeStrUm, setzeIntUm,
    setzeR8Um,   setzeCycUm, setzeBlkUm, setzeMacUm,
};

} // namespace

int convertSections(OldLines lines, std::FILE* msg, Sections& sections) {
    for (std::size_t i = 0; i < sections.size(); ++i) {
        sections[i].reset(kConverters[i](lines, msg));
        if (sections[i] == nullptr) {
            return 1;
        }
    }
    return 0;
}
