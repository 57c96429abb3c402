#pragma once

/// Replaces the placeholders of one text line by the current message parameters: "&C01" to "&C05",
/// then "&I01" to "&I12", "&R01" to "&R12" and "&F01" to "&F12", as far as parameters are set. Each
/// is searched once, so only its first occurrence goes. "&R" (as "%lf") and "&F" (as "%15.5lf")
/// show the same reals; "(8.3)" behind one of them sets width and precision.
/// `line` is a string in a buffer of at least `length` bytes. A line with a replacement is cut so
/// that it ends, with its NUL, within `length` bytes; one without is left alone.
void ersetzeFehlerVariablen(char* line, int length) noexcept;
