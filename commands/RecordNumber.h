#pragma once

#include "commands/TextCopy.h"

/// Removes the block number ("N0010") from the start of a block.
class RecordNumber {
public:
    /// Stores a copy of the address of block numbers; null means that blocks carry none.
    void InitRecordNumber(const char* address) noexcept;
    [[nodiscard]] const char* GetRecordNumber() const noexcept { return m_address.get(); }

    /// Removes the address and the digits behind it when `line` begins with the address. A block
    /// number elsewhere stays. Returns 0.
    int DeleteRecordNumber(char* line) const noexcept {
        (void)Cut(line);
        return 0;
    }
    /// The same; tells whether something was removed.
    bool Cut(char* line) const noexcept;
    /// The same, but only in front of a digit: of names such as NORM the address is no number's.
    bool CutBeforeDigit(char* line) const noexcept;

private:
    TextCopy m_address;
};
