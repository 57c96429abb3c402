#include "commands/AxisWords.h"

#include <algorithm>

bool isGivenTwice(const std::array<AxisWords, 3>& axes) noexcept {
    return std::ranges::any_of(axes, [](const AxisWords& words) {
        return words.incremental != nullptr && words.absolute != nullptr &&
               words.incremental->GetNCLineStatus() == TRUE &&
               words.absolute->GetNCLineStatus() == TRUE;
    });
}

AxisValues takeFound(const std::array<AxisWords, 3>& axes) noexcept {
    AxisValues values;
    for (std::size_t axis = 0; axis < axes.size(); ++axis) {
        for (Parameter* const word : {axes[axis].incremental, axes[axis].absolute}) {
            if (word != nullptr && word->GetNCLineStatus() == TRUE) {
                word->SetNCLineStatus(FALSE);
                values[axis] = valueOf(*word);
            }
        }
    }
    return values;
}
