// Chains of rotary axes, and curves of the tool as short lines, with any numbers: the input is the
// bytes of doubles, with the axes of the chain in the first byte.

#include "kinematics/CurveSplitter.h"
#include "kinematics/MachineChain.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <span>

namespace {

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

class Numbers {
public:
    explicit Numbers(std::span<const std::uint8_t> bytes) noexcept : m_bytes(bytes) {}

    // 0 behind the last one.
    double Take() noexcept {
        double number = 0.0;
        if (m_bytes.size() >= sizeof number) {
            std::memcpy(&number, m_bytes.data(), sizeof number);
            m_bytes = m_bytes.subspan(sizeof number);
        }
        return number;
    }
    gmVector3 TakePoint() noexcept {
        const double x = Take();
        const double y = Take();
        return {x, y, Take()};
    }
    // A direction of length 1, as the caller of a chain owes it.
    gmVector3 TakeDirection() noexcept {
        const gmVector3 direction = TakePoint();
        const double length = direction.length();
        return std::isfinite(length) && length > 1e-100 ? direction * (1.0 / length)
                                                        : gmVector3(0.0, 0.0, 1.0);
    }

private:
    std::span<const std::uint8_t> m_bytes;
};

MachineChain chainOf(unsigned flags, Numbers& numbers) {
    MachineChain chain;
    for (std::size_t i = 0; i < MachineChain::kMostAxes && (flags >> i & 1U) != 0; ++i) {
        chain.Add({.direction = numbers.TakeDirection(),
                   .centre = numbers.TakePoint(),
                   .isOnHead = (flags >> (2 + i) & 1U) != 0,
                   .isReversed = (flags >> (4 + i) & 1U) != 0});
    }
    chain.SetCarrier(flags >> 6 & 1U);
    chain.GivePivot((flags >> 7 & 1U) != 0);
    chain.SetToolAxis(numbers.TakeDirection());
    chain.SetToolLength(numbers.Take());
    return chain;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kMostPoints = 100;
    constexpr std::size_t kMostCalls = 10'000'000; // of the curve
    constexpr double kManyTurns = 4e3;             // take their time and show nothing else
    if (size == 0) {
        return 0;
    }
    Numbers numbers(std::span(data + 1, size - 1));
    const MachineChain chain = chainOf(data[0], numbers);
    const MachineChain::Angles from{numbers.Take(), numbers.Take()};
    const MachineChain::Angles to{numbers.Take(), numbers.Take()};
    const gmVector3 start = numbers.TakePoint();
    const gmVector3 end = numbers.TakePoint();
    const double turning = numbers.Take();
    const double tolerance = std::abs(numbers.Take());
    const double axisTolerance = std::abs(numbers.Take());
    if (!(tolerance > 0.0 && axisTolerance > 0.0) || (turning > kManyTurns && turning < 1e8)) {
        return 0;
    }
    std::size_t calls = 0;
    const ToolCurve curve = [&](double fraction) {
        require(fraction >= 0.0 && fraction <= 1.0);
        require(++calls < kMostCalls);
        MachineChain::Angles angles;
        for (std::size_t i = 0; i < angles.size(); ++i) {
            angles.at(i) = from.at(i) + (to.at(i) - from.at(i)) * fraction;
        }
        const MachinePose pose = chain.PoseAt(angles, {});
        return ToolPlace{.tip = pose.TipOf(start + (end - start) * fraction),
                         .axis = pose.ToolAxis()};
    };
    double last = 0.0;
    const std::vector<double> fractions =
        CurveSplitter(curve, tolerance, axisTolerance, turning).Split(kMostPoints);
    for (const double fraction : fractions) {
        require(fraction > last && fraction <= 1.0);
        last = fraction;
    }
    require(fractions.size() <= kMostPoints && (fractions.empty() || last == 1.0));
    return 0;
}
