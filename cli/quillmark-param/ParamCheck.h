#pragma once

#include "cli/quillmark-param/RecordingScan.h"
#include "cli/quillmark-param/findings.h"
#include "driver/NCScan.h"
#include "softCommon/CStringUtil/CharFeld.h"

#include <map>
#include <string>
#include <vector>

/// Examines a scan: what of its entries is in force, what the file holds beside them, and what
/// looks wrong. It judges by the keys of the scan and by the model that the scan configured.
class ParamCheck {
public:
    struct Line {
        long number; ///< from 1
        std::string text;
    };

    /// `lines` are those that `scan` has read, and `code` is the result of its run.
    ParamCheck(NCScan& model, const RecordingScan& scan, char* const* lines, int code);

    /// Sorted.
    [[nodiscard]] const Findings& Result() const noexcept { return m_findings; }
    /// The entries that no later one replaced, in the order of the file.
    [[nodiscard]] const std::vector<const RecordingScan::Entry*>& InForce() const noexcept {
        return m_inForce;
    }
    /// Keys that the scan does not read.
    [[nodiscard]] const std::vector<Line>& UnreadKeys() const noexcept { return m_unreadKeys; }
    /// The text by which a command or a word is found on a block: "G0", "X".
    [[nodiscard]] static std::string CodeOf(const Command& command);

    /// Whether the trimmed line is a key that a scan reads on some machine.
    [[nodiscard]] static bool IsScannedKey(const std::string& text) noexcept;

private:
    using Entry = RecordingScan::Entry;

    void collectLines(char* const* lines);
    void collectInForce();
    void collectUnreadKeys();
    /// Whether the line, which nothing reads, was meant as a key that something reads.
    bool checkSpelling(long line, const std::string& text);
    void checkMarks(char* const* lines);
    void checkEntry(const Entry& entry);
    void checkLengths();
    void checkVariants();
    void checkCentreMode();
    void checkCodes();
    void checkLetters();
    void checkAxes();
    void checkAbsentKeys();

    NCScan& m_model;
    const RecordingScan& m_scan;
    Findings m_findings;
    std::vector<std::string> m_lines;        // trimmed
    std::vector<const Entry*> m_entryOfLine; // null for a line that belongs to none
    std::vector<std::size_t> m_lengths;      // untrimmed
    std::vector<const Entry*> m_inForce;
    std::map<const void*, const Entry*> m_byTarget; // by command or key, the one in force
    std::vector<Line> m_unreadKeys;
};
