#include "commands/HeldWords.h"

void HeldWords::Hold(std::span<const AxisWords> axes) {
    m_words.clear();
    for (const auto& [incremental, absolute] : axes) {
        for (Parameter* const word : {incremental, absolute}) {
            if (word != nullptr && word->GetNCLineStatus() == TRUE) {
                m_words.push_back({word, word->GetValue(), word->GetIncStatus()});
            }
        }
    }
}

void HeldWords::Restore() const noexcept {
    for (const auto& [word, value, isIncremental] : m_words) {
        word->GetValue() = value;
        word->SetIncStatus(isIncremental);
        word->SetNCLineStatus(TRUE);
    }
}
