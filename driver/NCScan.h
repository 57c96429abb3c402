#pragma once

#include "apt/APTFactory.h"
#include "commands/AvailableCommands.h"
#include "commands/AvailableParameters.h"
#include "commands/CommandIndex.h"
#include "commands/MachineStatus.h"
#include "commands/TextCopy.h"
#include "driver/BufferedFile.h"
#include "driver/LineReader.h"
#include "driver/ScanReport.h"
#include "include/quillmark.h"

#include <array>
#include <memory>
#include <optional>
#include <string_view>

/// Owns the command model of one conversion and its files, and runs the loop over the blocks of
/// the NC program. The order of use: SetOutputType, the configuration through the accessors,
/// SetNCFileName, run, CloseFiles.
class NCScan {
public:
    NCScan() noexcept = default;
    NCScan(const NCScan&) = delete;
    NCScan& operator=(const NCScan&) = delete;
    virtual ~NCScan();

    /// Converts every block of the NC file. Returns 0, 200 when the file cannot be read, or the
    /// first non-zero result of a recogniser.
    virtual int run();
    /// Opens the NC file. Returns 0, 200 (no name, not to be opened, a directory) or 400.
    virtual int SetNCFileName(const char* name);
    /// Opens output and log and makes the factory. Returns 0; 201 for a kind other than APT, which
    /// leaves no factory; 202 for an output that cannot be opened; 203 at once for a log that
    /// cannot be opened or is the output. `logfile` may be null.
    virtual int SetOutputType(const eOutputType& type, const char* outputfile, const char* logfile);

    /// Makes a factory without output and log, for a model that is configured but never runs.
    void SetNoOutput();

    [[nodiscard]] MachineStatus& Machinestatus() noexcept { return m_model->status; }
    [[nodiscard]] const MachineStatus& Machinestatus() const noexcept { return m_model->status; }
    [[nodiscard]] AvailableCommands& Availablecommands() noexcept { return m_model->commands; }
    [[nodiscard]] const AvailableCommands& Availablecommands() const noexcept {
        return m_model->commands;
    }
    [[nodiscard]] AvailableParameters& Availableparameters() noexcept {
        return m_model->parameters;
    }
    [[nodiscard]] const AvailableParameters& Availableparameters() const noexcept {
        return m_model->parameters;
    }
    /// Null unless the kind of output is APT and the output is open.
    [[nodiscard]] Factory* GetOutputFactory() noexcept { return m_factory.get(); }

    /// Flushes and closes output and log. Returns 0, or 202 or 203 when one of them could not be
    /// written completely; 202 wins.
    int CloseFiles() noexcept;
    /// Whether the open file is the output or the log of this conversion.
    [[nodiscard]] bool IsOwnOutput(std::FILE* file) const noexcept;

    /// Line number in the NC file, from 1, of the block that is converted or was converted last.
    [[nodiscard]] long BlockNumber() const noexcept { return m_blockNumber; }
    /// That block as it stood in the file, trimmed.
    [[nodiscard]] const char* BlockText() const noexcept { return m_blockText.data(); }

    /// What the conversion did not understand so far, and its figures.
    [[nodiscard]] ScanReport& Report() noexcept { return m_report; }
    /// For a hook of the process ends: reports what in the block under conversion is the likely
    /// cause when an arc of it ends the process.
    void ReportFatalArc() noexcept;

    /// Why a step failed, beyond its code: the system's error, or else a text of our own with
    /// static storage, or neither.
    struct Failure {
        int systemError = 0;
        const char* text = nullptr;
    };
    void KeepFailure(const Failure& failure) noexcept { m_failure = failure; }
    [[nodiscard]] const Failure& LastFailure() const noexcept { return m_failure; }

protected:
    /// Forgets the command model, position and failure of an earlier conversion.
    void BeginConversion();

private:
    using Block = std::array<char, LineReader::kMostBytes + 1>;

    struct Model {
        MachineStatus status;
        AvailableCommands commands;
        AvailableParameters parameters;
    };

    int openOutput(const char* name) noexcept;
    int openLog(const char* name) noexcept;
    int runBlocks();
    void beginBlock(std::string_view piece) noexcept;
    int convertBlock(CommandIndex& commands);
    int computeBlock(char* block);
    void warnIfArcWithoutCentre() noexcept;

    TextCopy m_ncFileName;
    FileOwner m_ncFile;
    std::optional<Model> m_model{std::in_place};
    std::unique_ptr<APTFactory> m_factory;
    BufferedFile m_outputFile;
    BufferedFile m_logFile;

    ScanReport m_report;
    long m_blockNumber = 0;
    bool m_continuesLine = false; // the next piece belongs to the same line of the file
    Block m_block = {};           // what is left of it to be recognised
    Block m_blockText = {};
    std::size_t m_blockLength = 0; // of that text
    Failure m_failure;
};
