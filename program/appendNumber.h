#pragma once

#include <string>

/// Appends a number as a word of a block carries it: no exponent, no superfluous digits, and as
/// many as are needed to read the same number again. Without a separator (0) it counts units of the
/// last of `decimals` implied places, rounded.
void appendNumber(std::string& text, double number, char separator, int decimals);
