#pragma once

#include "cli/quillmark-view/PictureContent.h"

#include <cstdio>
#include <string>
#include <string_view>

/// A kind of file that -o makes, by the end of its name.
struct OutputKind {
    std::string_view suffix;
    bool isPicture; ///< it shows two paths as well, and can be told its view
    /// Writes the file. Returns an empty text, or why it cannot.
    std::string (*write)(const PictureContent& content, std::FILE* out);
};

/// Null when files of that name are not made.
[[nodiscard]] const OutputKind* findOutputKind(std::string_view name) noexcept;
