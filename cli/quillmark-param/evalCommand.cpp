#include "cli/quillmark-param/paramCommands.h"
#include "cli/quillmark-param/paramMessages.h"
#include "cli/shared/errorLine.h"
#include "driver/ModelView.h"
#include "driver/ModelVocabulary.h"
#include "paramfile/ParamScan.h"
#include "program/LanguageTraits.h"
#include "program/ProgramRunner.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace {

std::string textOf(const ProgramError& error) {
    const char* const meaning = macroMeaning(error.macro.code());
    return meaning == nullptr ? error.text : meaning + (": " + error.text);
}

std::string textOf(const MacroError& error) {
    return macroMeaning(error.code()) + (": " + std::string(error.what())) +
           (error.column() == 0 ? "" : ", column " + std::to_string(error.column()));
}

// What takes effect by itself: assignments, declarations, alarms.
bool standsAlone(const Statement& statement) noexcept {
    const auto* const words = std::get_if<WordsStatement>(&statement);
    return words != nullptr ? words->isSilent
                            : std::holds_alternative<DeclareStatement>(statement) ||
                                  std::holds_alternative<AlarmStatement>(statement);
}

bool isFlow(const Statement& statement) noexcept {
    return !std::holds_alternative<WordsStatement>(statement) && !standsAlone(statement);
}

bool isCall(const Statement& statement) noexcept {
    return std::holds_alternative<CallStatement>(statement);
}

bool speaksOfName(const MacroError& error) noexcept {
    return error.code() == kFunctionUnknown || error.code() == kVariableUnknown ||
           error.code() == kArgumentCount;
}

constexpr const char* kNeedsProgram =
    "a jump, branch, loop, call or return means nothing without its program";

// Whether a line that has no value because of `error` is one of the flow. A name is rather
// meant as a variable or function, although it can be a call.
bool isMeantAsFlow(const ProgramLine& line, const MacroError& error) noexcept {
    return std::ranges::any_of(line.statements, isFlow) &&
           !(speaksOfName(error) && std::ranges::any_of(line.statements, isCall));
}

/// The language of a dialect without a program: its variables last from text to text.
class Evaluation {
public:
    /// `model` is configured, has a language, and outlives the evaluation.
    explicit Evaluation(NCScan& model)
        : m_vocabulary(model), m_machine(model),
          m_parser(model.Rules().text, Grammar::make(model.Rules().text.language, m_vocabulary)),
          m_library(m_parser, "", "", {}),
          m_runner(traitsOf(model.Rules().text.language), m_library, m_vocabulary, m_machine, {}) {}

    /// Executes a statement, or prints the value of an expression. Empty, or what went wrong.
    [[nodiscard]] std::string Run(std::string_view text, std::FILE* out) {
        ProgramLine line;
        m_parser.read(text, line);
        const bool isRead = line.code == 0 && !line.statements.empty();
        if (isRead && std::ranges::all_of(line.statements, standsAlone)) {
            return m_runner.executeAlone(line) ? "" : textOf(m_runner.error());
        }
        if (line.text.words.empty() && line.code == 0) {
            return "there is nothing to evaluate";
        }
        Expression expression;
        MacroError error;
        if (ExpressionParser(m_parser.grammar().syntax())
                .parse(line.text.words, Reading::kExpression, expression, error) != 0) {
            if (isMeantAsFlow(line, error)) {
                return kNeedsProgram;
            }
            // The reading that came further is the one that was meant.
            return textOf(line.code != 0 && line.error.column() > error.column() ? line.error
                                                                                 : error);
        }
        Value value;
        if (!m_runner.evaluateAlone(expression, value)) {
            const ProgramError& failure = m_runner.error();
            return speaksOfName(failure.macro) && isMeantAsFlow(line, failure.macro)
                       ? kNeedsProgram
                       : textOf(failure);
        }
        std::fprintf(out, "%s\n", value.toText().c_str());
        return "";
    }

private:
    ModelVocabulary m_vocabulary;
    ModelView m_machine;
    LineParser m_parser;
    ProgramLibrary m_library;
    ProgramRunner m_runner;
};

} // namespace

int evalCommand(const ParamInput& in, std::FILE* out) {
    NCScan model;
    model.SetNoOutput();
    ParamScan scan(model);
    const FileOwner file = in.Open();
    if (file == nullptr) {
        return failWith(in.Name(), std::strerror(errno));
    }
    int code = scan.SetParameterStream(file.get());
    code = code != 0 ? code : scan.run();
    if (code != 0) {
        printErrorLine(stderr, "quillmark-param", code, {.parameter = in.Name()},
                       model.LastFailure());
        return kParamFailed;
    }
    if (model.Rules().text.language == ProgramLanguage::kNone) {
        return failWith(in.Name(), "the dialect names no language in which programs compute "
                                   "(REV_PROGRAM_LANGUAGE)");
    }
    Evaluation evaluation(model);
    for (const char* const text : in.Texts()) {
        if (const std::string failure = evaluation.Run(text, out); !failure.empty()) {
            return failWith(text, failure);
        }
    }
    return kParamDone;
}
