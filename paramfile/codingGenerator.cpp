#include "paramfile/codingGenerator.h"

#include <cstddef>

namespace {

struct Congruence {
    std::uint64_t multiplier;
    std::uint64_t modulus; // a prime below 2^31, so that products fit 64 bits
};

// The four components of Wichmann and Hill, "Generating good pseudo-random numbers", 2006. Their
// states are summed as integers here: a sum of rounded quotients could differ between machines.
constexpr std::array<Congruence, 4> kComponents = {{
    {11600, 2147483579},
    {47003, 2147483543},
    {23000, 2147483423},
    {33000, 2147483123},
}};

constexpr std::uint64_t kRange = std::uint64_t{1} << 31U;

} // namespace

void vxinit(CodingGenerator& generator, const CodingKey& key) noexcept {
    for (std::size_t i = 0; i < key.size(); ++i) {
        generator.states[i] = key[i];
    }
}

double vxnext(CodingGenerator& generator) noexcept {
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < kComponents.size(); ++i) {
        std::uint64_t& state = generator.states[i];
        state = state * kComponents[i].multiplier % kComponents[i].modulus;
        sum += state;
    }
    // A quotient with a power of two of an integer below it is exact in a double.
    return static_cast<double>(sum % kRange) / static_cast<double>(kRange);
}
