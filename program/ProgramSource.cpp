#include "program/ProgramSource.h"

#include "driver/returnCodes.h"
#include "program/LanguageTraits.h"

ProgramSource::ProgramSource(std::FILE* file, const Settings& settings,
                             const Vocabulary& vocabulary,
                             std::unique_ptr<const MachineView> machine)
    : m_machine(std::move(machine)),
      m_parser(settings.rules, Grammar::make(settings.rules.language, vocabulary)) {
    std::string text;
    m_systemError = readStream(file, text);
    if (m_systemError != 0) {
        m_code = kNCFileUnreadable;
        return;
    }
    m_library = std::make_unique<ProgramLibrary>(m_parser, std::move(text), settings.name,
                                                 settings.folders);
    m_runner = std::make_unique<ProgramRunner>(traitsOf(settings.rules.language), *m_library,
                                               vocabulary, *m_machine, settings.limits);
}

bool ProgramSource::Next(Block& block) {
    if (m_code != 0) {
        return false;
    }
    if (m_runner->next()) {
        begin(block, m_runner->words());
        return true;
    }
    if (const ProgramError& error = m_runner->error(); error.code != 0) {
        m_code = error.code;
        report(error);
        begin(block, {}); // the block that failed
    }
    return false;
}

// What no expression is to blame for goes to the error stack under its return code.
void ProgramSource::report(const ProgramError& error) noexcept {
    MacroError record = error.macro;
    if (record.code() == 0) {
        record.set(static_cast<MacroCode>(error.code), "ProgramRunner", {error.text});
    }
    (void)record.report();
}

void ProgramSource::begin(Block& block, std::string_view words) {
    const ProgramFile& file = m_runner->file();
    Block::Place place;
    place.file = file.name();
    place.line = m_runner->line() + 1;
    place.number = ++m_number;
    place.isCutAtNul = file.isCutAtNul(m_runner->line());
    place.isComputed = m_runner->isComputed();
    place.restartsProgram = m_runner->restarts();
    block.Begin(file.textOf(m_runner->line()), words, place);
}

Failure ProgramSource::LastFailure() const noexcept {
    return {.systemError = m_systemError,
            .text = m_code != 0 && m_systemError == 0 ? m_runner->error().text.c_str() : nullptr};
}

const BlockText* ProgramSource::Text() const noexcept { return &m_runner->text(); }
