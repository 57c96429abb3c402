#pragma once

#include "driver/NCScan.h"
#include "driver/StandardDescriptors.h"

/// The driver behind the library's entry and behind the command line.
class Controller : public NCScan {
public:
    /// Starts the debug trace; the destructor ends it.
    Controller() noexcept;
    ~Controller() override;

    using NCScan::run;
    /// Runs a command line. Returns 100, after the usage text on standard error, when a required
    /// file is missing, else the result of execute. `envp` is not used.
    virtual int run(int argc, char** argv, char** envp);
    /// Runs one conversion: outputs, parameter file, NC file; stops at the first step that fails
    /// and returns its code. No exception leaves: exhausted memory gives 400. When an input would
    /// be overwritten, nothing is opened and the result is 202 (by the output) or 203 (by the log).
    virtual int execute(const char* paramfile, const char* ncfile, const char* outputfile,
                        const char* logfile, const eOutputType& type);
    virtual int scanParamFile(const char* paramfile);
    virtual int scanNCFile(const char* ncfile);
    /// Reads the options into the five results; the pointers point into `argv`. An unknown
    /// argument is skipped, a repeated option overrides. Returns 0, or 100 when the parameter file,
    /// the NC file or the output file is missing.
    virtual int ScanParameters(int argc, char** argv, char*& paramfile, char*& ncfile,
                               char*& logfile, char*& outputfile, eOutputType& type) const;
    [[nodiscard]] virtual const char* CmdLineParamsDesc() const;
    /// Whether ScanParameters takes the argument behind this one as its value.
    [[nodiscard]] static bool TakesValue(const char* argument) noexcept;

private:
    int runSteps(const char* paramfile, const char* ncfile, const char* outputfile,
                 const char* logfile, const eOutputType& type);
    int protectInputs(const char* paramfile, const char* ncfile, const char* outputfile,
                      const char* logfile) noexcept;

    StandardDescriptors m_standardDescriptors; // before the trace opens a file
};
