#include "paramfile/fileLines.h"

#include "softCommon/CStringUtil/string_mani.h"

#include <cerrno>

int readFileLines(std::FILE* in, CharFeldOwner& lines) noexcept {
    errno = 0;
    lines.reset(fp2CharFeld(in));
    if (lines == nullptr || errno == ENOMEM) {
        return ENOMEM;
    }
    if (std::ferror(in) != 0) {
        return errno != 0 ? errno : EIO;
    }
    for (char** line = lines.get(); *line != nullptr; ++line) {
        string_mani(0, *line);
    }
    return 0;
}
