#pragma once

#include "paramfile/ParamScan.h"

#include <string>
#include <vector>

/// A scan that remembers every key line it found, and what became of it.
class RecordingScan : public ParamScan {
public:
    struct Entry {
        const Key* key;
        long line;        ///< of the key, from 1
        long lastLine;    ///< the last one that belongs to the entry
        std::string text; ///< the key line, trimmed
        std::string value;
        /// What the value configured, owned by the model: at most one of them is not null.
        const Command* command = nullptr;
        const Parameter* word = nullptr;
    };

    using ParamScan::ParamScan;

    int CheckForLatheMachine(const char* line) override;

    /// In the order of the file. The key at which the scan failed for want of a value is missing.
    [[nodiscard]] const std::vector<Entry>& Entries() const noexcept { return m_entries; }
    /// The line of the last key or other line that the scan looked at, from 1.
    [[nodiscard]] long LastLine() const noexcept { return m_line; }

protected:
    int Act(const Key& key, char* value) override;

private:
    std::vector<Entry> m_entries;
    std::string m_text;
    long m_line = 0;
};
