#pragma once

#include <string_view>

/// The letter of an address among `letters` that stands twice in a block; NUL for none. The block
/// is plain words in upper case; words of several letters, numbered addresses as in "S2=500" and
/// what stands in quotation marks are passed over.
[[nodiscard]] char repeatedAddress(std::string_view block, std::string_view letters) noexcept;
