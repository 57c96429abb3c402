#include "cli/quillmark-view/outputKinds.h"

#include "cli/quillmark-view/writePage.h"
#include "cli/quillmark-view/writePicture.h"
#include "cli/shared/viewSuffixes.h"

#include <algorithm>
#include <iterator>

namespace {

// Another kind of file is another row.
constexpr OutputKind kKinds[] = {
    {kSvgSuffix, true, writeSvg},
    {kPngSuffix, true, writePng},
    {kPageSuffix, false, writePage},
};

} // namespace

const OutputKind* findOutputKind(std::string_view name) noexcept {
    const auto* const row = std::ranges::find_if(
        kKinds, [name](const OutputKind& kind) { return name.ends_with(kind.suffix); });
    return row == std::end(kKinds) ? nullptr : row;
}
