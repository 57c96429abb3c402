// In place of writePage.cpp where the library that draws in the browser was not at hand.

#include "cli/quillmark-view/writePage.h"

bool makesPages() noexcept { return false; }

std::string writePage(const PictureContent& /*content*/, std::FILE* /*out*/) {
    return "this quillmark-view was built without three.js and makes no pages";
}
