#pragma once

#include <stdexcept>

/// An output that is not what it must be, or a contestant that does not run. Ends the benchmark.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};
