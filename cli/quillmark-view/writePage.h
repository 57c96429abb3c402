#pragma once

#include "cli/quillmark-view/PictureContent.h"

#include <cstdio>
#include <string>

/// Whether pages can be made: that depends on the library at hand when this was built.
[[nodiscard]] bool makesPages() noexcept;

/// Writes the page for a browser, of one path. Returns an empty text, or why it cannot.
[[nodiscard]] std::string writePage(const PictureContent& content, std::FILE* out);
