#pragma once

/// The return code of a conversion that ends by a failure of the macro interpreter.
[[nodiscard]] int returnCodeOf(int macroCode) noexcept;
