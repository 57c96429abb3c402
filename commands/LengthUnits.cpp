#include "commands/LengthUnits.h"

#include <utility>

namespace {

// What a length in one unit has to be multiplied by to become one in the other.
double factor(bool fromInch, bool toInch) noexcept {
    if (fromInch == toInch) {
        return 1.0;
    }
    return fromInch ? LengthUnits::kMillimetresPerInch : 1.0 / LengthUnits::kMillimetresPerInch;
}

} // namespace

double LengthUnits::Switch(bool isInch) noexcept {
    return factor(std::exchange(m_isInch, isInch), isInch);
}

bool LengthUnits::SettleOutput() noexcept {
    if (m_outputIsInch) {
        return false;
    }
    m_outputIsInch = m_isInch;
    return true;
}

double LengthUnits::ToOutput() const noexcept { return factor(m_isInch, IsOutputInch()); }

double LengthUnits::CuttingSpeedFactor(bool fromInch, bool toInch) noexcept {
    constexpr double kMetresPerFoot = 0.3048;
    if (fromInch == toInch) {
        return 1.0;
    }
    return fromInch ? kMetresPerFoot : 1.0 / kMetresPerFoot;
}
