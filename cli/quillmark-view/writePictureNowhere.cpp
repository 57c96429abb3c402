// In place of writePicture.cpp where the library that draws was not at hand.

#include "cli/quillmark-view/writePicture.h"

namespace {

constexpr const char* kNoLibrary =
    "this quillmark-view was built without cairo and makes no pictures";

} // namespace

bool makesPictures() noexcept { return false; }

std::string writeSvg(const PictureContent& /*content*/, std::FILE* /*out*/) { return kNoLibrary; }

std::string writePng(const PictureContent& /*content*/, std::FILE* /*out*/) { return kNoLibrary; }
