#include "program/ProgramRunner.h"

#include "driver/returnCodes.h"
#include "program/appendNumber.h"
#include "program/argumentPlaces.h"
#include "program/programCodes.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <ranges>

namespace {

constexpr long kMostPasses = 1'000'000'000;

// The number of a label that is a block number ("N100").
std::optional<long> blockNumberOf(std::string_view label) noexcept {
    long number = 0;
    if (label.size() < 2 || label[0] != 'N') {
        return std::nullopt;
    }
    const char* const end = label.data() + label.size();
    const auto [behind, error] = std::from_chars(label.data() + 1, end, number);
    return error == std::errc{} && behind == end ? std::optional(number) : std::nullopt;
}

} // namespace

ProgramRunner::ProgramRunner(const LanguageTraits& traits, ProgramLibrary& library,
                             const Vocabulary& vocabulary, const MachineView& machine,
                             Limits limits)
    : m_traits(traits), m_library(library), m_vocabulary(vocabulary), m_machine(machine),
      m_limits(limits), m_variables(traits, machine), m_file(&library.mainFile()) {
    const ProgramFile::Part& part = m_file->parts().front();
    Level level;
    level.file = m_file;
    level.first = level.line = part.first;
    level.end = part.end;
    m_levels.push_back(std::move(level));
}

bool ProgramRunner::next() {
    if (m_error.code != 0 || m_levels.empty()) {
        return false;
    }
    m_idleSteps = 0;
    if (std::exchange(m_mayCallModally, false) && m_machine.hasMoved() &&
        !call(*m_modalCall, true)) {
        return false;
    }
    if (!stepToBlock()) {
        return false;
    }
    if (++m_blocks > m_limits.mostBlocks) {
        return fail(kProgramEndless,
                    "more than " + std::to_string(m_limits.mostBlocks) + " blocks");
    }
    m_mayCallModally = m_modalCall.has_value() &&
                       std::ranges::none_of(m_levels, [](const Level& l) { return l.isModal; });
    return true;
}

// Idle steps are bounded block by block, but many blocks may have many each.
long ProgramRunner::mostSteps(long mostBlocks) noexcept {
    constexpr long kMost = std::numeric_limits<long>::max() - kMostIdleSteps;
    return kMostIdleSteps + std::min(mostBlocks, kMost / kStepsPerBlock) * kStepsPerBlock;
}

bool ProgramRunner::countStep() {
    if (++m_idleSteps > kMostIdleSteps) {
        return fail(kProgramEndless,
                    std::to_string(kMostIdleSteps) + " statements without a block");
    }
    const long most = mostSteps(m_limits.mostBlocks);
    return ++m_steps <= most ||
           fail(kProgramEndless, "more than " + std::to_string(most) + " statements");
}

bool ProgramRunner::stepToBlock() {
    while (!m_levels.empty()) {
        if (!countStep()) {
            return false;
        }
        if (top().line >= top().end) {
            endPass();
            continue;
        }
        switch (executeLine()) {
        case Step::kBlock:
            return true;
        case Step::kFailed:
            return false;
        case Step::kGoOn:
            break;
        }
    }
    return false;
}

const ProgramLine& ProgramRunner::lineAt(long line) { return top().file->line(line); }

void ProgramRunner::goTo(long line) noexcept {
    top().line = line;
    top().statement = 0;
}

// Executes one statement of a line, and goes on to the next one unless the statement leads away.
ProgramRunner::Step ProgramRunner::executeLine() {
    Level& level = top();
    m_file = level.file;
    m_line = level.line;
    const ProgramLine& line = m_file->line(m_line);
    m_text = &line.text;
    if (line.code != 0) {
        m_macroError = line.error;
        failByMacro();
        return Step::kFailed;
    }
    if (line.statements.empty()) {
        goTo(m_line + 1);
        if (line.isLeftOut) {
            return Step::kGoOn;
        }
        return give(line.isPlain ? std::string_view(line.text.words) : std::string_view(), false);
    }
    if (mustGiveComments(line)) {
        return give({}, false);
    }
    bool isWanted = true;
    if (level.statement == 0 && line.condition && !evaluateTruth(*line.condition, isWanted)) {
        return Step::kFailed;
    }
    const Statement& statement = line.statements[level.statement];
    if (!isWanted || ++level.statement == line.statements.size()) {
        goTo(m_line + 1);
    }
    return isWanted ? std::visit([this](const auto& s) { return execute(s); }, statement)
                    : Step::kGoOn;
}

// Once for each time that the line is executed, and not when it gives a block of its own.
bool ProgramRunner::mustGiveComments(const ProgramLine& line) noexcept {
    if (!m_limits.givesComments || line.text.comments.empty() || top().statement != 0 ||
        std::exchange(m_hasGivenComments, !m_hasGivenComments)) {
        return false;
    }
    const bool givesBlock = std::ranges::any_of(line.statements, [](const Statement& statement) {
        const auto* const words = std::get_if<WordsStatement>(&statement);
        return words != nullptr && !words->isSilent;
    });
    m_hasGivenComments = !givesBlock;
    return !givesBlock;
}

ProgramRunner::Step ProgramRunner::give(std::string_view words, bool isComputed) {
    if (!isComputed) {
        m_words = words;
    }
    m_isComputed = isComputed;
    m_restarts = false;
    return Step::kBlock;
}

// --- Words and assignments --------------------------------------------------------------------

ProgramRunner::Step ProgramRunner::execute(const WordsStatement& statement) {
    m_words.clear();
    m_later.clear();
    bool isComputed = false;
    for (const WordPiece& piece : statement.pieces) {
        if (piece.kind == WordPiece::Kind::kText) {
            m_words += piece.text;
            continue;
        }
        if (piece.kind != WordPiece::Kind::kAssignment) {
            isComputed = true;
            if (!appendValue(piece)) {
                return Step::kFailed;
            }
            continue;
        }
        Value value;
        if (!evaluate(piece.value, value) || !assign(piece.target, value)) {
            return Step::kFailed;
        }
    }
    for (const auto& [variable, value] : m_later) {
        if (!assign(variable, value)) {
            return Step::kFailed;
        }
    }
    if (const Value alarm = m_variables.takeAlarm(); !alarm.isVacant()) {
        const auto& comments = m_text->comments;
        fail(kProgramAborted,
             "alarm " + alarm.toText() + (comments.empty() ? "" : ": " + comments.front()));
        return Step::kFailed;
    }
    if (statement.isSilent) {
        return Step::kGoOn;
    }
    // Words that vanished may leave their blanks.
    m_words.erase(m_words.find_last_not_of(' ') + 1);
    m_words.erase(0, std::min(m_words.find_first_not_of(' '), m_words.size()));
    return give(m_words, isComputed || m_words != m_text->words);
}

// A vacant value takes its word along.
bool ProgramRunner::appendValue(const WordPiece& piece) {
    Value value;
    if (!evaluate(piece.value, value)) {
        return false;
    }
    if (value.isVacant()) {
        return true;
    }
    const std::optional<double> number = value.number();
    if (!number) {
        m_macroError.set(kWrongType, "ProgramRunner", {piece.address, " needs a number"});
        return failByMacro();
    }
    m_words += piece.text;
    if (piece.kind == WordPiece::Kind::kWhole) {
        if (!appendWhole(piece, *number)) {
            return false;
        }
    } else {
        const char separator = m_vocabulary.separator();
        const int decimals = separator == '\0' ? m_vocabulary.impliedDecimals(piece.address) : 0;
        appendNumber(m_words, *number, separator, decimals);
    }
    m_words += piece.behind;
    return true;
}

bool ProgramRunner::appendWhole(const WordPiece& piece, double number) {
    if (m_traits.roundsWholeWords) {
        appendNumber(m_words, std::round(number), '.', 0);
        return true;
    }
    const bool isCode = piece.address == "G"; // some have a tenth
    const auto tenths = wholeNumber(number * 10.0, m_traits.wholeTolerance * 10.0);
    const auto whole = wholeNumber(number, m_traits.wholeTolerance);
    if (!whole && !(isCode && tenths)) {
        m_macroError.set(kWrongType, "ProgramRunner", {piece.address, " needs a whole number"});
        return failByMacro();
    }
    if (whole) {
        m_words += std::to_string(*whole);
    } else {
        appendNumber(m_words, static_cast<double>(*tenths) / 10.0, '.', 0);
    }
    return true;
}

bool ProgramRunner::assign(const Expression& target, const Value& value) {
    VariableId variable;
    if (m_evaluator.locate(target, m_variables.pools(), variable, m_macroError) != 0) {
        return failByMacro();
    }
    if (m_traits.assignsBehindBlock) {
        m_later.emplace_back(variable, value);
        return true;
    }
    return assign(variable, value);
}

bool ProgramRunner::assign(const VariableId& variable, const Value& value) {
    return m_variables.pools().assign(variable, value, m_macroError) == 0 || failByMacro();
}

ProgramRunner::Step ProgramRunner::execute(const DeclareStatement& statement) {
    for (const DefineStatement::Parameter& variable : statement.variables) {
        if (!makeVariable(variable, {})) {
            return Step::kFailed;
        }
    }
    return Step::kGoOn;
}

bool ProgramRunner::makeVariable(const DefineStatement::Parameter& variable, const Value& given) {
    Value value = given;
    if (value.isVacant() && variable.initial && !evaluate(*variable.initial, value)) {
        return false;
    }
    if (m_variables.locals().declare(variable.name, variable.type, value) ==
        PoolAnswer::kWrongType) {
        m_macroError.set(kWrongType, "ProgramRunner", {variable.name, " has another type"});
        return failByMacro();
    }
    return true;
}

ProgramRunner::Step ProgramRunner::execute(const AlarmStatement& statement) {
    fail(kProgramAborted, statement.text);
    return Step::kFailed;
}

// --- Jumps ------------------------------------------------------------------------------------

ProgramRunner::Step ProgramRunner::execute(const JumpStatement& statement) {
    bool isWanted = true;
    if (statement.condition && !evaluateTruth(*statement.condition, isWanted)) {
        return Step::kFailed;
    }
    return isWanted ? jump(statement.target, statement.direction, statement.mayMiss) : Step::kGoOn;
}

ProgramRunner::Step ProgramRunner::execute(const ChoiceStatement& statement) {
    Value selector;
    if (!evaluate(statement.selector, selector)) {
        return Step::kFailed;
    }
    for (const ChoiceStatement::Alternative& alternative : statement.alternatives) {
        Value value;
        Value same;
        if (!evaluate(alternative.value, value)) {
            return Step::kFailed;
        }
        if (isEqual(selector, value, alternative.value.syntax().equality, same) == 0 &&
            same.number() == 1.0) {
            return execute(alternative.jump);
        }
    }
    return statement.otherwise ? execute(*statement.otherwise) : Step::kGoOn;
}

ProgramRunner::Step ProgramRunner::jump(const JumpTarget& target,
                                        JumpStatement::Direction direction, bool mayMiss) {
    std::optional<long> number = blockNumberOf(target.label);
    if (target.number) {
        long value = 0;
        if (!evaluateWhole(*target.number, value)) {
            return Step::kFailed;
        }
        number = value;
    }
    const ProgramIndex& index = top().file->index();
    const std::vector<long>& all = number ? index.blockNumber(*number) : index.label(target.label);
    // A part that is repeated is left when the target stands outside of it.
    const ProgramFile::Part& part = top().file->partOf(m_line);
    const auto first = std::ranges::lower_bound(all, part.first);
    const auto end = std::ranges::lower_bound(all, part.end);
    const auto behind = std::upper_bound(first, end, m_line);
    auto found = end;
    if (direction != JumpStatement::Direction::kBackward) {
        found = behind;
    }
    if (direction == JumpStatement::Direction::kForwardFirst && found == end && first != behind) {
        found = first;
    }
    if (direction == JumpStatement::Direction::kBackward && first != behind) {
        found = std::prev(behind);
    }
    if (found == end) {
        if (mayMiss) {
            return Step::kGoOn;
        }
        return missing(number ? "there is no block N" + std::to_string(*number)
                              : "there is no label " + target.label);
    }
    while (top().isPart && (*found < top().first || *found >= top().end)) {
        if (!leavePart()) {
            return Step::kFailed;
        }
    }
    goTo(*found);
    return Step::kGoOn;
}

bool ProgramRunner::leavePart() {
    if (top().isBound) {
        return fail(kWordNotConverted, "the program leaves the blocks that a code follows");
    }
    pop();
    return true;
}

ProgramRunner::Step ProgramRunner::missing(std::string text) {
    fail(kJumpTargetMissing, std::move(text));
    return Step::kFailed;
}

// --- Branches ---------------------------------------------------------------------------------

ProgramRunner::Step ProgramRunner::execute(const BranchStatement& statement) {
    switch (statement.part) {
    case BranchStatement::Part::kIf:
        return enterBranch();
    case BranchStatement::Part::kElseIf:
    case BranchStatement::Part::kElse:
        return leaveBranch(); // the part before it was executed
    case BranchStatement::Part::kEnd:
        break;
    }
    return Step::kGoOn;
}

// Looks for the first part whose condition holds.
ProgramRunner::Step ProgramRunner::enterBranch() {
    const ProgramIndex& index = top().file->index();
    for (long line = m_line;;) {
        const auto& part = std::get<BranchStatement>(lineAt(line).statements.front());
        bool holds = true;
        m_line = line;
        if (part.condition && !evaluateTruth(*part.condition, holds)) {
            return Step::kFailed;
        }
        if (holds) {
            goTo(line + 1);
            return Step::kGoOn;
        }
        const std::optional<long> next = index.partner(line);
        if (!next) {
            return missing("the branch has no end");
        }
        line = *next;
    }
}

ProgramRunner::Step ProgramRunner::leaveBranch() {
    const ProgramIndex& index = top().file->index();
    long line = m_line;
    while (const std::optional<long> next = index.partner(line)) {
        line = *next;
    }
    const auto& last = std::get<BranchStatement>(lineAt(line).statements.front());
    if (last.part != BranchStatement::Part::kEnd) {
        return missing("the branch has no end");
    }
    goTo(line + 1);
    return Step::kGoOn;
}

// --- Loops ------------------------------------------------------------------------------------

ProgramRunner::Step ProgramRunner::execute(const LoopStatement& statement) {
    switch (statement.part) {
    case LoopStatement::Part::kBegin:
        return beginLoop(statement);
    case LoopStatement::Part::kEnd:
        return endLoop(statement);
    case LoopStatement::Part::kWhile:
        return top().file->index().endsLoop(m_line) ? endLoop(statement) : beginLoop(statement);
    case LoopStatement::Part::kBreak:
    case LoopStatement::Part::kContinue:
        break;
    }
    return leap(statement);
}

ProgramRunner::LoopState* ProgramRunner::stateOf(long beginLine) {
    const auto found = std::ranges::find(top().loops, beginLine, &LoopState::line);
    return found == top().loops.end() ? nullptr : &*found;
}

void ProgramRunner::setState(long beginLine, double limit) {
    LoopState* const state = stateOf(beginLine);
    (state != nullptr ? *state : top().loops.emplace_back()) = {beginLine, limit};
}

void ProgramRunner::dropState(long beginLine) {
    std::erase_if(top().loops, [&](const LoopState& state) { return state.line == beginLine; });
}

ProgramRunner::Step ProgramRunner::beginLoop(const LoopStatement& statement) {
    const std::optional<long> end = top().file->index().partner(m_line);
    if (!end) {
        return missing("the loop has no end");
    }
    bool isEntered = true;
    long passes = 0;
    Value start;
    Value last;
    switch (statement.kind) {
    case LoopStatement::Kind::kWhile:
        if (!evaluateTruth(*statement.condition, isEntered)) {
            return Step::kFailed;
        }
        break;
    case LoopStatement::Kind::kTimes:
        if (!evaluate(*statement.condition, start)) {
            return Step::kFailed;
        }
        passes = std::lrint( // halves to the even number

            std::clamp(start.number().value_or(0.0), -1.0, static_cast<double>(kMostPasses)));
        setState(m_line, static_cast<double>(passes));
        isEntered = passes > 0;
        break;
    case LoopStatement::Kind::kCounted: {
        VariableId variable;
        if (!evaluate(*statement.condition, start) || !evaluate(*statement.last, last)) {
            return Step::kFailed;
        }
        if (m_evaluator.locate(*statement.variable, m_variables.pools(), variable, m_macroError) !=
            0) {
            failByMacro();
            return Step::kFailed;
        }
        if (!assign(variable, start)) {
            return Step::kFailed;
        }
        setState(m_line, last.number().value_or(0.0));
        isEntered = start.number().value_or(0.0) <= last.number().value_or(0.0);
        break;
    }
    case LoopStatement::Kind::kDo:
    case LoopStatement::Kind::kUntil:
    case LoopStatement::Kind::kForever:
        break;
    }
    goTo(isEntered ? m_line + 1 : *end + 1);
    return Step::kGoOn;
}

ProgramRunner::Step ProgramRunner::endLoop(const LoopStatement& statement) {
    const std::optional<long> beginLine = top().file->index().partner(m_line);
    if (!beginLine) {
        return missing("the loop has no begin");
    }
    const auto& begin = std::get<LoopStatement>(lineAt(*beginLine).statements.front());
    bool truth = true;
    switch (begin.kind) {
    case LoopStatement::Kind::kDo:
        if (!evaluateTruth(*statement.condition, truth)) {
            return Step::kFailed;
        }
        goTo(truth ? *beginLine + 1 : m_line + 1);
        return Step::kGoOn;
    case LoopStatement::Kind::kUntil:
        if (!evaluateTruth(*statement.condition, truth)) {
            return Step::kFailed;
        }
        goTo(truth ? m_line + 1 : *beginLine + 1);
        return Step::kGoOn;
    case LoopStatement::Kind::kTimes:
    case LoopStatement::Kind::kCounted:
        return goOnCounting(begin, *beginLine);
    case LoopStatement::Kind::kWhile:
    case LoopStatement::Kind::kForever:
        break;
    }
    goTo(*beginLine);
    return Step::kGoOn;
}

ProgramRunner::Step ProgramRunner::goOnCounting(const LoopStatement& begin, long beginLine) {
    LoopState* const state = stateOf(beginLine);
    if (state == nullptr) {
        return missing("the loop was entered behind its begin");
    }
    if (begin.kind == LoopStatement::Kind::kTimes) {
        if (--state->limit > 0.0) {
            goTo(beginLine + 1);
        } else {
            dropState(beginLine);
        }
        return Step::kGoOn;
    }
    VariableId variable;
    Value value;
    if (m_evaluator.locate(*begin.variable, m_variables.pools(), variable, m_macroError) != 0 ||
        m_variables.pools().load(variable, value, m_macroError) != 0) {
        failByMacro();
        return Step::kFailed;
    }
    const double next = value.number().value_or(0.0) + 1.0;
    // The variable goes beyond the last value, as by a condition at the begin.
    if (!assign(variable, Value::Real(next))) {
        return Step::kFailed;
    }
    if (next <= state->limit) {
        goTo(beginLine + 1);
    } else {
        dropState(beginLine);
    }
    return Step::kGoOn;
}

// Out of a loop, or to its next pass.
ProgramRunner::Step ProgramRunner::leap(const LoopStatement& statement) {
    const ProgramIndex& index = top().file->index();
    const std::optional<long> begin = index.partner(m_line);
    const std::optional<long> end = begin ? index.partner(*begin) : std::nullopt;
    if (!end) {
        return missing("there is no loop of this number");
    }
    if (statement.part == LoopStatement::Part::kBreak) {
        dropState(*begin);
        goTo(*end + 1);
    } else {
        goTo(*end);
    }
    return Step::kGoOn;
}

ProgramRunner::Step ProgramRunner::execute(const RepeatStatement& statement) {
    if (statement.firstNumber) {
        Level level;
        return locateByNumbers(statement, level) && push(std::move(level)) ? Step::kGoOn
                                                                           : Step::kFailed;
    }
    long passes = 1;
    if (statement.times && !evaluateWhole(*statement.times, passes)) {
        return Step::kFailed;
    }
    const ProgramIndex& index = top().file->index();
    const auto& firstLines = index.label(statement.first);
    const auto& lastLines = index.label(statement.last);
    if (firstLines.empty() || (!statement.last.empty() && lastLines.empty())) {
        return missing("there is no label " +
                       (firstLines.empty() ? statement.first : statement.last));
    }
    Level level;
    level.file = top().file;
    level.first = level.line = firstLines.front();
    level.end = statement.isBlockAlone   ? level.first + 1
                : statement.last.empty() ? m_line
                                         : lastLines.front() + 1;
    level.passes = std::clamp(passes, 0L, kMostPasses);
    level.isPart = true;
    if (level.passes == 0 || level.end <= level.first) {
        return Step::kGoOn;
    }
    return push(std::move(level)) ? Step::kGoOn : Step::kFailed;
}

// --- Subprograms ------------------------------------------------------------------------------

ProgramRunner::Step ProgramRunner::execute(const CallStatement& statement) {
    return call(statement, false) ? Step::kGoOn : Step::kFailed;
}

ProgramRunner::Step ProgramRunner::execute(const ModalCallStatement& statement) {
    m_modalCall = statement.call;
    if (!m_modalCall) {
        return Step::kGoOn;
    }
    // Its values are those of now, whatever becomes of the variables until the calls.
    for (std::optional<Expression>* const value : {&m_modalCall->number, &m_modalCall->times}) {
        if (!fix(*value)) {
            return Step::kFailed;
        }
    }
    for (CallStatement::Argument& argument : m_modalCall->arguments) {
        if (!fix(argument.value)) {
            return Step::kFailed;
        }
    }
    return Step::kGoOn;
}

// Puts the value of an expression in its place.
bool ProgramRunner::fix(std::optional<Expression>& expression) {
    Value value;
    if (!expression) {
        return true;
    }
    if (!evaluate(*expression, value)) {
        return false;
    }
    Expression constant(expression->syntax(), expression->reading());
    constant.addConstant(std::move(value));
    expression = std::move(constant);
    return true;
}

bool ProgramRunner::call(const CallStatement& statement, bool isModal) {
    ProgramLibrary::Place place;
    long passes = 1;
    if (!locate(statement, place, passes)) {
        return false;
    }
    std::vector<Value> values;
    for (const CallStatement::Argument& argument : statement.arguments) {
        Value& value = values.emplace_back();
        if (argument.value && !evaluate(*argument.value, value)) {
            return false;
        }
    }
    if (passes <= 0) {
        return true;
    }
    Level level;
    level.file = place.file;
    level.first = level.line = place.first;
    level.end = place.end;
    level.passes = passes;
    level.isModal = isModal;
    level.hasLocals = statement.locals != CallStatement::Locals::kShared;
    if (statement.locals == CallStatement::Locals::kPlaces) {
        level.arguments = values;
    }
    if (!push(std::move(level))) {
        return false;
    }
    if (statement.locals == CallStatement::Locals::kLetters) {
        return passLetters(statement, values);
    }
    if (!m_traits.localNumbers.empty()) {
        const NumberRange& range = m_traits.localNumbers.front();
        for (std::size_t i = 0; i < top().arguments.size(); ++i) {
            const auto number = range.first + static_cast<std::int64_t>(i);
            if (!assign(VariableId::Numbered(number), values[i])) {
                return false;
            }
        }
    }
    return true;
}

bool ProgramRunner::passLetters(const CallStatement& statement, const std::vector<Value>& values) {
    std::string letters;
    for (const CallStatement::Argument& argument : statement.arguments) {
        letters += argument.letter;
    }
    const std::vector<int> places = argumentPlaces(letters);
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (places[i] == 0) {
            m_macroError.set(kExpressionUnreadable, "ProgramRunner",
                             {"there is no argument ", std::string_view(letters).substr(i, 1)});
            return failByMacro();
        }
        if (!assign(VariableId::Numbered(places[i]), values[i])) {
            return false;
        }
    }
    return true;
}

bool ProgramRunner::locate(const CallStatement& statement, ProgramLibrary::Place& place,
                           long& passes) {
    if (statement.times && !evaluateWhole(*statement.times, passes)) {
        return false;
    }
    passes = std::min(passes, kMostPasses);
    ProgramLibrary::Query query;
    query.name = statement.name;
    query.isDefinition = statement.locals == CallStatement::Locals::kPlaces;
    if (statement.number) {
        long number = 0;
        if (!evaluateWhole(*statement.number, number)) {
            return false;
        }
        query.number = number;
        query.name = std::to_string(number);
    }
    ProgramFile& file = *top().file;
    if (statement.isBlockNumber) {
        if (const std::optional<long> line = blockOfPart(*query.number)) {
            place = {&file, *line, file.partOf(m_line).end};
            return true;
        }
        return fail(kJumpTargetMissing, "there is no block N" + query.name);
    }
    std::optional<ProgramLibrary::Place> found = m_library.find(query, file, m_line);
    constexpr long kPack = 10'000;
    if (!found && statement.mayBePacked && !statement.times && *query.number >= kPack) {
        passes = *query.number / kPack;
        query.number = *query.number % kPack;
        query.name = std::to_string(*query.number);
        found = m_library.find(query, file, m_line);
    }
    if (!found) {
        return fail(kSubprogramMissing, "there is no subprogram " + query.name);
    }
    place = *found;
    return true;
}

// The line of a block in the part of the file that is executed.
std::optional<long> ProgramRunner::blockOfPart(long number) {
    ProgramFile& file = *top().file;
    const ProgramFile::Part& part = file.partOf(m_line);
    for (const long line : file.index().blockNumber(number)) {
        if (line >= part.first && line < part.end) {
            return line;
        }
    }
    return std::nullopt;
}

bool ProgramRunner::locateByNumbers(const RepeatStatement& statement, Level& level) {
    long numbers[] = {0, 0};
    if (!evaluateWhole(*statement.firstNumber, numbers[0]) ||
        !evaluateWhole(*statement.lastNumber, numbers[1])) {
        return false;
    }
    std::optional<long> lines[2];
    for (const int i : {0, 1}) {
        lines[i] = blockOfPart(numbers[i]);
        if (!lines[i]) {
            return fail(kJumpTargetMissing, "there is no block N" + std::to_string(numbers[i]));
        }
    }
    if (*lines[1] < *lines[0]) {
        return fail(kJumpTargetMissing, "block N" + std::to_string(numbers[1]) +
                                            " does not stand behind N" +
                                            std::to_string(numbers[0]));
    }
    level.file = top().file;
    level.first = level.line = *lines[0];
    level.end = *lines[1] + 1;
    level.isPart = level.isBound = true;
    return true;
}

long ProgramRunner::callCount() const noexcept { return static_cast<long>(m_levels.size()) - 1; }

bool ProgramRunner::push(Level level) {
    if (callCount() >= static_cast<long>(kMostCalls)) {
        return fail(kProgramEndless, "more than " + std::to_string(kMostCalls) + " calls are open");
    }
    if (level.hasLocals) {
        m_variables.beginCall();
    }
    m_levels.push_back(std::move(level));
    return true;
}

void ProgramRunner::pop() {
    if (top().hasLocals) {
        m_variables.endCall();
    }
    m_levels.pop_back();
}

void ProgramRunner::endPass() {
    if (--top().passes > 0) {
        top().loops.clear();
        goTo(top().first);
    } else {
        pop();
    }
}

ProgramRunner::Step ProgramRunner::execute(const ReturnStatement& statement) {
    Value value;
    if (statement.value && !evaluate(*statement.value, value)) {
        return Step::kFailed;
    }
    while (top().isPart) {
        if (!leavePart()) {
            return Step::kFailed;
        }
    }
    if (m_levels.size() == 1 && statement.needsCall) {
        return missing("there is no subprogram to return from");
    }
    if (m_levels.size() == 1) {
        return returnFromMain(statement);
    }
    const bool isLast = top().passes <= 1;
    endPass();
    m_variables.setResult(value);
    if (statement.resumes && isLast) {
        m_line = std::max(top().line - 1, 0L);
        m_file = top().file;
        return jump(*statement.resumes, JumpStatement::Direction::kForwardFirst, false);
    }
    return Step::kGoOn;
}

// Going on in front of the return would be the loop that a return without a target is.
ProgramRunner::Step ProgramRunner::returnFromMain(const ReturnStatement& statement) {
    if (statement.resumes) {
        const Step step = jump(*statement.resumes, JumpStatement::Direction::kForwardFirst, false);
        if (step == Step::kFailed || top().line > m_line) {
            return step;
        }
    }
    // The block says so to the report, and nothing follows it.
    top().line = top().end;
    if (!statement.restarts) {
        return Step::kGoOn;
    }
    (void)give({}, false);
    m_restarts = true;
    return Step::kBlock;
}

// Among the blocks of a program the flow passes over it.
ProgramRunner::Step ProgramRunner::execute(const DefineStatement& statement) {
    if (statement.isAmongBlocks) {
        const std::optional<long> end = top().file->index().partner(m_line);
        if (!end) {
            return missing("the subprogram has no end");
        }
        goTo(*end + 1);
        return Step::kGoOn;
    }
    if (top().arguments.size() > statement.parameters.size() && !statement.parameters.empty()) {
        m_macroError.set(kArgumentCount, "ProgramRunner",
                         {statement.name, " has fewer parameters"});
        failByMacro();
        return Step::kFailed;
    }
    for (std::size_t i = 0; i < statement.parameters.size(); ++i) {
        const bool isGiven = i < top().arguments.size();
        if (!makeVariable(statement.parameters[i], isGiven ? top().arguments[i] : Value())) {
            return Step::kFailed;
        }
    }
    return Step::kGoOn;
}

// --- Values -----------------------------------------------------------------------------------

bool ProgramRunner::evaluate(const Expression& expression, Value& value) {
    return m_evaluator.evaluate(expression, m_variables.pools(), value, m_macroError) == 0 ||
           failByMacro();
}

bool ProgramRunner::evaluateTruth(const Expression& expression, bool& truth) {
    return m_evaluator.isTrue(expression, m_variables.pools(), truth, m_macroError) == 0 ||
           failByMacro();
}

bool ProgramRunner::evaluateWhole(const Expression& expression, long& number) {
    Value value;
    if (!evaluate(expression, value)) {
        return false;
    }
    const std::optional<double> real = value.number();
    std::optional<std::int64_t> whole;
    if (real) {
        whole = m_traits.roundsWholeWords ? wholeNumber(std::round(*real), 0.0)
                                          : wholeNumber(*real, m_traits.wholeTolerance);
    }
    if (!whole) {
        m_macroError.set(kWrongType, "ProgramRunner", {"a whole number is needed"});
        return failByMacro();
    }
    number = static_cast<long>(*whole);
    return true;
}

bool ProgramRunner::executeAlone(const ProgramLine& line) {
    m_text = &line.text;
    bool isWanted = true;
    if (line.code != 0) {
        m_macroError = line.error;
        return failByMacro();
    }
    if (line.condition && !evaluateTruth(*line.condition, isWanted)) {
        return false;
    }
    for (const Statement& statement : line.statements) {
        if (isWanted &&
            std::visit([this](const auto& s) { return execute(s); }, statement) == Step::kFailed) {
            return false;
        }
    }
    return true;
}

bool ProgramRunner::fail(int code, std::string text) {
    m_error = {.code = code, .macro = {}, .text = std::move(text)};
    return false;
}

bool ProgramRunner::failByMacro() {
    m_error = {.code = returnCodeOf(m_macroError.code()),
               .macro = m_macroError,
               .text = m_macroError.what()};
    if (m_macroError.column() != 0) {
        m_error.text += ", column " + std::to_string(m_macroError.column());
    }
    return false;
}
