#pragma once

#include "paramfile/Key.h"
#include "paramfile/ModelBuilder.h"
#include "softCommon/FileOwner.h"

#include <array>
#include <span>

class NCScan;
class Parameter;

/// Reads the parameter file of a dialect: its lines, the keys among them, and the value lines
/// behind these. What a key configures is the builder's business. Every operation returns 0 or a
/// code of driver/returnCodes.h, and may throw std::bad_alloc; the first failure ends the scan.
class ParamScan {
public:
    /// The scan configures `ncscan`, which must have its output factory and outlive the scan.
    explicit ParamScan(NCScan& ncscan) noexcept;
    ParamScan(const ParamScan&) = delete;
    ParamScan& operator=(const ParamScan&) = delete;
    virtual ~ParamScan();

    /// Configures the command model from the copy that SetParameterFile made. Returns 301 when it
    /// made none.
    virtual int run();
    /// Makes a plain temporary copy of the named file, in the current format.
    virtual int SetParameterFile(const char* name);
    /// The same for an open file that stands at its start; it stays open and the caller's.
    int SetParameterStream(std::FILE* in);
    /// Makes and registers the fourteen modal commands, with the defaults of each group.
    virtual int CreateModalCommands();
    /// The three searches take one trimmed line, and read its value lines from the copy when it is
    /// a key of theirs.
    virtual int CheckForLatheMachine(const char* line);
    virtual int SearchForCommand(const char* line);
    virtual int SearchForParameter(const char* line);
    /// Splits "G01" into "G" and 1, in place. Digits that do not end the text belong to the
    /// letters, and `number` is left alone; a text of digits only gives null letters. Returns 303
    /// for a null or empty text.
    virtual int SplitCommand(char* text, char*& letters, long& number);
    /// Reads the two lines behind an address value and takes the decimal places from the second.
    virtual int ScanForDecPlace(Parameter* parameter);
    /// Writes the lines of `in` to `out` in the current format, as plain text. `in` stays open.
    virtual int convert(std::FILE* in, std::FILE* out);
    /// Writes the lines of a current-format file to `out`, decoded when they are coded.
    virtual int decode(std::FILE* in, std::FILE* out);
    /// Whether a file with this first line is of the current format; else it is of the older one.
    [[nodiscard]] static bool IsCurrentFormat(const char* firstLine) noexcept;

    [[nodiscard]] bool IsLathe() const noexcept { return m_builder.IsLathe(); }

    /// The copy that SetParameterFile made; null before. Owned by the scan, which reads from its
    /// current position.
    [[nodiscard]] std::FILE* PlainCopy() const noexcept { return m_file.get(); }

protected:
    /// Lets a key of the file act on its value line: trimmed, in a writable buffer. An empty value
    /// leaves everything as it is.
    virtual int Act(const Key& key, char* value);
    /// Number in the copy, from 1, of the line that was read last; 0 before the first.
    [[nodiscard]] long LineNumber() const noexcept { return m_lineNumber; }
    [[nodiscard]] const ModelBuilder& Builder() const noexcept { return m_builder; }

private:
    static constexpr std::size_t kLineSize = 256;
    using Line = std::array<char, kLineSize>;

    bool fetchLine(Line& line) noexcept;
    int readLine(Line& line) noexcept;
    int searchForControl(const char* line);
    int passBy(const Key& key);
    int search(std::span<const Key> keys, const char* line);
    int update(std::FILE* in, std::FILE* out);

    FileOwner m_file; // the plain copy
    NCScan& m_ncscan;
    ModelBuilder m_builder;

    long m_lineNumber = 0;
    bool m_keyIsWhole = true;     // the key at hand is its whole line
    bool m_continuesLine = false; // the next piece belongs to the same line of the copy
};
