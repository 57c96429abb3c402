#pragma once

#include "cli/quillmark-view/PictureContent.h"

#include <cstdio>
#include <string>

/// Whether pictures can be made: that depends on the libraries at hand when this was built.
[[nodiscard]] bool makesPictures() noexcept;

/// Writes the picture as vectors or as points. Both return an empty text, or why they cannot.
[[nodiscard]] std::string writeSvg(const PictureContent& content, std::FILE* out);
[[nodiscard]] std::string writePng(const PictureContent& content, std::FILE* out);
