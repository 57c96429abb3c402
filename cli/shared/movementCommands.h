#pragma once

#include "driver/NCScan.h"

/// What a user is told about a parameter file for which configuresMovement is false.
inline constexpr const char* kNoMovementCommand =
    "the parameter file configures no movement command (rapid, linear, circular)";

/// Whether a movement command of the configured `model` has a code.
[[nodiscard]] bool configuresMovement(NCScan& model) noexcept;
