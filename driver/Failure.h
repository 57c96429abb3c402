#pragma once

/// Why a step failed, beyond its code: the system's error, or else a text of our own, or neither.
/// The text has static storage or belongs to who ran the step, until the next conversion.
struct Failure {
    int systemError = 0;
    const char* text = nullptr;
};
