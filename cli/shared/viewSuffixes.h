#pragma once

#include <algorithm>
#include <string_view>

/// The ends of the names of files that quillmark-view makes.
inline constexpr std::string_view kPageSuffix = ".html";
inline constexpr std::string_view kSvgSuffix = ".svg";
inline constexpr std::string_view kPngSuffix = ".png";

/// Whether quillmark-view makes files of that name.
[[nodiscard]] constexpr bool isViewName(std::string_view name) noexcept {
    constexpr std::string_view kSuffixes[] = {kPageSuffix, kSvgSuffix, kPngSuffix};
    return std::ranges::any_of(kSuffixes,
                               [name](std::string_view suffix) { return name.ends_with(suffix); });
}
