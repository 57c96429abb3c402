#pragma once

#include "cli/quillmark-param/ParamInput.h"

/// The decoded lines of an old file, without the blanks that fill them up. Null after the messages
/// of the reader when it cannot be read; perhaps without lines.
[[nodiscard]] CharFeldOwner readOldFile(const ParamInput& in);
