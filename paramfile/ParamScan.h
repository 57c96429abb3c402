#pragma once

#include "softCommon/Boolean.h"
#include "softCommon/FileOwner.h"

#include <array>
#include <span>

class CircularMovement;
class Command;
class CommandGroup;
class Coolant;
class FeedRate;
class LinearMovement;
class MachineStatus;
class MovTypeCom;
class MovementCommand;
class NCScan;
class Parameter;
class RegularCommand;
class Spindle;

/// Reads the parameter file of a dialect and configures the command model of an NCScan from it: the
/// commands, the address words, the line cleaners and the lathe setting. Every operation returns 0
/// or a code of driver/returnCodes.h; the first failure ends the scan.
class ParamScan {
public:
    /// A key line of the parameter file and what its value line does.
    struct Key {
        const char* text;
        /// An exact key tells the milling variant, the lathe variant ("_LATHE") and further ones
        /// ("_2ND") apart; any other key matches every key that begins with it.
        bool exact;
        /// Acts on the value: trimmed, not empty, in a writable buffer.
        int (*act)(ParamScan& scan, char* value);
    };

    /// The scan configures `ncscan`, which must have its output factory and outlive the scan.
    explicit ParamScan(NCScan& ncscan) noexcept;
    ParamScan(const ParamScan&) = delete;
    ParamScan& operator=(const ParamScan&) = delete;
    virtual ~ParamScan();

    /// Configures the command model from the copy that SetParameterFile made.
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

    /// The keys in the order in which they are tried.
    [[nodiscard]] static std::span<const Key> ClassKeys() noexcept;
    [[nodiscard]] static std::span<const Key> CommandKeys() noexcept;
    [[nodiscard]] static std::span<const Key> ParameterKeys() noexcept;
    /// Whether the trimmed line is this key on this kind of machine.
    [[nodiscard]] static bool Matches(const Key& key, const char* line, bool isLathe) noexcept;
    [[nodiscard]] bool IsLathe() const noexcept { return m_isLathe == 1; }

    /// The copy that SetParameterFile made; null before. Owned by the scan, which reads from its
    /// current position.
    [[nodiscard]] std::FILE* PlainCopy() const noexcept { return m_file.get(); }

protected:
    /// Lets a key of the file act on its value line: trimmed, in a writable buffer. An empty value
    /// leaves everything as it is.
    virtual int Act(const Key& key, char* value);
    /// Number in the copy, from 1, of the line that was read last; 0 before the first.
    [[nodiscard]] long LineNumber() const noexcept { return m_lineNumber; }
    /// The command that the key which acted last gave a code, and the address word that it added;
    /// null when it did not.
    [[nodiscard]] const Command* ConfiguredCommand() const noexcept { return m_configured; }
    [[nodiscard]] const Parameter* AddedWord() const noexcept { return m_addedWord; }

private:
    static constexpr std::size_t kLineSize = 256;
    using Line = std::array<char, kLineSize>;

    bool fetchLine(Line& line) noexcept;
    int readLine(Line& line) noexcept;
    int search(std::span<const Key> keys, const char* line);
    int update(std::FILE* in, std::FILE* out);
    int refuseConversational();

    template<class Kind, class... Arguments>
    int create(Kind*& slot, CommandGroup* group, Arguments... arguments);
    template<class Kind, class... Arguments>
    int configure(Kind* command, char* value, Arguments... arguments);
    template<class Movement>
    int configureMovement(Movement* command, char* value, Boolean flag);
    int configureFeed(FeedRate* command, char* value, Boolean perMinute);
    int configureSpindle(Spindle* command, char* value, int mode);
    int addEndCommand(char* value);
    int addParameter(char* value, Parameter*& parameter);
    template<class Attach>
    int addAddress(char* value, Attach attach);
    int addCoordinate(char* value, void (MovementCommand::*attach)(Parameter*) noexcept,
                      Boolean incremental);
    int addCentre(char* value, std::size_t axis,
                  void (CircularMovement::*attach)(Parameter*) noexcept);
    int setDivisors(const char* value, void (MovementCommand::*set)(const char*) noexcept);
    [[nodiscard]] MachineStatus& status() const noexcept;
    [[nodiscard]] std::array<MovementCommand*, 4> movements() const noexcept;
    [[nodiscard]] std::array<CircularMovement*, 2> circles() const noexcept;

    FileOwner m_file; // the plain copy
    NCScan& m_ncscan;

    // Owned by the command registry.
    LinearMovement* m_rapid = nullptr;
    LinearMovement* m_linear = nullptr;
    CircularMovement* m_clockwise = nullptr;
    CircularMovement* m_counterClockwise = nullptr;
    FeedRate* m_feedPerMinute = nullptr;
    FeedRate* m_feedPerRevolution = nullptr;
    MovTypeCom* m_absolute = nullptr;
    MovTypeCom* m_incremental = nullptr;
    Spindle* m_spindleStop = nullptr;
    Spindle* m_spindleClockwise = nullptr;
    Spindle* m_spindleCounterClockwise = nullptr;
    Coolant* m_coolantOn = nullptr;
    Coolant* m_coolantOff = nullptr;
    RegularCommand* m_toolChange = nullptr;

    std::array<Parameter*, 3> m_centreWords = {}; // owned by the parameter registry
    int m_isLathe = 0;

    long m_lineNumber = 0;
    bool m_continuesLine = false; // the next piece belongs to the same line of the copy
    const Command* m_configured = nullptr;
    const Parameter* m_addedWord = nullptr;
};
