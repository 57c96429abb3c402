#pragma once

/// Removes every blank (the space character, not tabs) from `string` in place. Null is ignored.
void NoBlanks(char* string) noexcept;
