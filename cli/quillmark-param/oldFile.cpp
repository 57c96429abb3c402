#include "cli/quillmark-param/oldFile.h"

#include "softCommon/CStringUtil/string_mani.h"
#include "update/liesPP.h"

CharFeldOwner readOldFile(const ParamInput& in) {
    FileOwner stream = in.Open();
    if (stream == nullptr) {
        std::perror("quillmark-param");
        return nullptr;
    }
    CharFeldOwner lines(liesPP(stream.get()));
    if (lines != nullptr) {
        (void)stream.release(); // the reader closed it
        for (char* const* line = lines.get(); *line != nullptr; ++line) {
            string_mani(1, *line);
        }
    }
    return lines;
}
