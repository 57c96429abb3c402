#pragma once

#include "driver/BlockSource.h"
#include "program/LineParser.h"
#include "program/ProgramLibrary.h"
#include "program/ProgramRunner.h"

#include <memory>
#include <string>
#include <vector>

/// The blocks of a program that computes, in the order in which a control would execute them: the
/// values of its expressions stand in place of them.
class ProgramSource final : public BlockSource {
public:
    struct Settings {
        const TextRules& rules;
        std::string name;                 ///< of the program's file
        std::vector<std::string> folders; ///< in which subprograms are looked for beside its own
        ProgramRunner::Limits limits;
    };

    /// Reads the program from the stream; `settings.rules` and `vocabulary` must outlive the
    /// source. Throws std::bad_alloc.
    ProgramSource(std::FILE* file, const Settings& settings, const Vocabulary& vocabulary,
                  std::unique_ptr<const MachineView> machine);

    [[nodiscard]] bool Next(Block& block) override;
    [[nodiscard]] int Code() const noexcept override { return m_code; }
    [[nodiscard]] Failure LastFailure() const noexcept override;
    [[nodiscard]] const BlockText* Text() const noexcept override;

private:
    static void report(const ProgramError& error) noexcept;
    void begin(Block& block, std::string_view words);

    std::unique_ptr<const MachineView> m_machine;
    LineParser m_parser;
    std::unique_ptr<ProgramLibrary> m_library;
    std::unique_ptr<ProgramRunner> m_runner;
    int m_code = 0;
    int m_systemError = 0;
    long m_number = 0;
};
