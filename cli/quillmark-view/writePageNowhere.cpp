// In place of writePage.cpp where the libraries for it were not at hand.

#include "cli/quillmark-view/writePage.h"

bool makesPages() noexcept { return false; }

std::string writePage(const PictureContent& /*content*/, std::FILE* /*out*/) {
    return "this quillmark-view was built without three.js or zlib and makes no pages";
}
