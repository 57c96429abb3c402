#pragma once

#include "apt/APTFactory.h"
#include "apt/Outputs.h"
#include "apt/ResText.h"
#include "commands/AvailableCommands.h"
#include "commands/AvailableParameters.h"
#include "commands/Block.h"
#include "commands/CommandIndex.h"
#include "commands/MachineStatus.h"
#include "commands/TextCopy.h"
#include "driver/BlockSource.h"
#include "driver/BlockWatch.h"
#include "driver/BufferedFile.h"
#include "driver/DialectRules.h"
#include "driver/Failure.h"
#include "driver/IdleScan.h"
#include "driver/ScanReport.h"
#include "include/quillmark.h"
#include "program/Vocabulary.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Owns the command model of one conversion and its files, and runs the loop over the blocks of
/// the NC program. The order of use: SetOutputType, the configuration through the accessors,
/// SetNCFileName, run, CloseFiles. The writers of the model outlive the open files: once these are
/// closed, or others are opened, they write nowhere. SetOutputType, the configuration and run may
/// throw std::bad_alloc.
class NCScan {
public:
    NCScan() noexcept;
    NCScan(const NCScan&) = delete;
    NCScan& operator=(const NCScan&) = delete;
    virtual ~NCScan();

    /// Converts every block of the NC file. Returns 0, 200 when the file cannot be read, the first
    /// non-zero result of a recogniser, or 39999 when a statement did not fit its buffer.
    virtual int run();
    /// Opens the NC file. Returns 0, 200 (no name, not to be opened, a directory) or 400.
    virtual int SetNCFileName(const char* name);
    /// Opens output and log and makes the factory. Returns 0; 201 for a kind other than APT, which
    /// leaves no factory; 202 for an output that cannot be opened; 203 at once for a log that
    /// cannot be opened or is the output. `logfile` may be null.
    virtual int SetOutputType(const eOutputType& type, const char* outputfile, const char* logfile);

    /// The folders in which a program that computes looks for its subprograms, behind its own file
    /// and the files beside it. They stay for every later conversion.
    void SetSubprogramFolders(std::vector<std::string> folders) noexcept {
        m_subprogramFolders = std::move(folders);
    }

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
    /// What the parameter file says of programs as a whole.
    [[nodiscard]] DialectRules& Rules() noexcept { return m_model->rules; }
    /// Null unless the kind of output is APT and the output could be opened. Its writers write
    /// nowhere once the files are closed.
    [[nodiscard]] Factory* GetOutputFactory() noexcept { return m_factory.get(); }

    /// Flushes and closes output and log. Returns 0, or 202 or 203 when one of them could not be
    /// written completely; 202 wins.
    int CloseFiles() noexcept;
    /// Whether the open file is the output or the log of this conversion.
    [[nodiscard]] bool IsOwnOutput(std::FILE* file) const noexcept;

    /// The operator's switch: from the next conversion on, blocks with a mark to skip them are left
    /// out in every dialect that has such a mark.
    void SkipMarkedBlocks() noexcept { m_skipsBlocks = true; }

    /// From now on "-" is standard input as NC file, and standard output as output and log. For a
    /// host it is the name of a file; command lines want it.
    void UseStandardStreams() noexcept { m_usesStandardStreams = true; }
    [[nodiscard]] bool IsStandardStream(const char* name) const noexcept;

    /// Has `watch` asked between the blocks of every later conversion; null for none. Not owned.
    void SetWatch(BlockWatch* watch) noexcept { m_watch = watch; }
    /// Whether the watch ended the last conversion, which then returned 0: what is written are
    /// whole blocks up to the current one.
    [[nodiscard]] bool WasStopped() const noexcept { return m_wasStopped; }
    /// How much of the NC file is read, from 0 to 100; -1 when that tells nothing: it is no regular
    /// file, or its program computes.
    [[nodiscard]] int PercentRead() const noexcept;

    /// The block that is converted or was converted last.
    [[nodiscard]] const Block& CurrentBlock() const noexcept { return m_model->status.GetBlock(); }

    /// What the conversion did not understand so far, and its figures.
    [[nodiscard]] ScanReport& Report() noexcept { return m_report; }
    [[nodiscard]] const ScanReport& Report() const noexcept { return m_report; }
    /// For a hook of the process ends: reports what in the block under conversion is the likely
    /// cause when an arc of it ends the process.
    void ReportFatalArc() noexcept;

    /// A failure of which no more is known than this text.
    void KeepFailureText(std::string text) {
        m_failureText = std::move(text);
        KeepFailure({.text = m_failureText.c_str()});
    }
    void KeepFailure(const Failure& failure) noexcept { m_failure = failure; }
    [[nodiscard]] const Failure& LastFailure() const noexcept { return m_failure; }

protected:
    /// Forgets the command model, position and failure of an earlier conversion, if there was one.
    void BeginConversion() noexcept;

private:
    struct Model {
        MachineStatus status;
        AvailableCommands commands;
        AvailableParameters parameters;
        DialectRules rules;
    };

    void detachOutputs() noexcept;
    bool open(BufferedFile& file, const char* name) const noexcept;
    int openOutput(const char* name) noexcept;
    int openLog(const char* name) noexcept;
    [[nodiscard]] std::unique_ptr<BlockSource> makeSource();
    int runBlocks(BlockSource& source);
    void findIdleCause(int code);
    int endBlocks(const BlockSource& source) noexcept;
    [[nodiscard]] bool goesOn() const noexcept { return m_watch == nullptr || m_watch->GoesOn(); }
    int passStartCodes();
    int passStartCode(char* line);
    int findStartCodes(char* line);
    int refuseStart(int code, const std::string& start);
    void beginBlock() noexcept;
    int convertBlock(CommandIndex& commands, const BlockText* text);
    void noteText(const BlockText& text) noexcept;
    void writeTexts(const BlockText& text) const;
    int passWords();
    int computeBlock();
    void noteComputing(int code) noexcept;
    void keepRefusal();
    [[nodiscard]] bool hasEnded() const noexcept;
    [[nodiscard]] Block& block() noexcept { return m_model->status.GetBlock(); }
    [[nodiscard]] RestContext restContext() const noexcept;
    void warnOfRest(const RestContext& context) noexcept;
    void passNotes();
    void noteHeld() noexcept;
    void warnOfTwoMovements();
    void warnIfArcWithoutCentre() noexcept;
    void warnOfArcShape() noexcept;

    TextCopy m_ncFileName;
    FileOwner m_ncFile;
    std::vector<std::string> m_subprogramFolders;
    std::optional<Model> m_model{std::in_place};
    bool m_isFresh = true;
    std::unique_ptr<APTFactory> m_factory;
    std::shared_ptr<OutputState> m_outputState; // null while nothing is open
    BufferedFile m_outputFile;
    BufferedFile m_logFile;

    std::unique_ptr<ResText> m_texts; // null when they are not written
    std::unique_ptr<Vocabulary> m_vocabulary;
    std::unique_ptr<BlockSource> m_source; // until the next conversion: places name its files
    bool m_skipsBlocks = false;
    bool m_usesStandardStreams = false;
    bool m_wasStopped = false;
    BlockWatch* m_watch = nullptr;

    ScanReport m_report;
    IdleScan::Seen m_seen;
    Failure m_failure;
    std::string m_failureText; // what that may point to
};
