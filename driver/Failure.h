#pragma once

/// Why a step failed, beyond its code: the system's error, or else a text of our own with static
/// storage, or neither.
struct Failure {
    int systemError = 0;
    const char* text = nullptr;
};
