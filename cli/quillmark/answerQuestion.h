#pragma once

/// Answers a question about the program itself on standard output, when `argument` is one. Returns
/// the exit status, or -1 when it is none.
[[nodiscard]] int answerQuestion(const char* argument);
