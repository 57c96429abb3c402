#include "paramfile/DialectSettings.h"

#include "commands/MachineStatus.h"

#include <algorithm>

namespace {

struct Family {
    ProgramLanguage language;
    bool anyCase;
    bool ignoresBlanks;
    bool hasBrackets; // comments in parentheses
    std::string_view name;
    const char* lineComment;
    const char* skipMark;
    const char* frame;
    const char* programName;
};

constexpr Family kFamilies[] = {
    {ProgramLanguage::kNone, false, false, false, "", "", "", "", ""},
    {ProgramLanguage::kOWord, true, true, true, "O_WORD", ";", "/", "%", ""},
    {ProgramLanguage::kHash, false, true, true, "HASH", "", "/", "%", "O"},
    {ProgramLanguage::kRParameter, true, false, false, "R_PARAMETER", ";", "/", "", "%_N_"},
};

const Family& familyOf(ProgramLanguage language) noexcept {
    return *std::ranges::find(kFamilies, language, &Family::language);
}

std::vector<std::string> givenOr(const std::vector<std::string>& given, const char* standard) {
    return !given.empty() || *standard == '\0' ? given : std::vector<std::string>{standard};
}

std::string textOrEmpty(const char* text) { return text == nullptr ? "" : text; }

} // namespace

std::optional<ProgramLanguage> languageOf(std::string_view name) noexcept {
    const auto* const family = std::ranges::find(kFamilies, name, &Family::name);
    return name.empty() || family == std::end(kFamilies)
               ? std::nullopt
               : std::optional<ProgramLanguage>(family->language);
}

TextRules DialectSettings::Resolve(MachineStatus& status) const {
    const Family& family = familyOf(language);
    TextRules rules;
    rules.language = language;
    rules.isInUse = isInUse;
    rules.anyCase = anyCase.value_or(family.anyCase);
    rules.ignoresBlanks = ignoresBlanks.value_or(family.ignoresBlanks);
    rules.endStops = endStops.value_or(language != ProgramLanguage::kNone);
    rules.skipsBlocks = skipsBlocks.value_or(false);
    rules.separator = *status.GetDecimalSeparator();
    rules.recordNumber = textOrEmpty(status.GetRecordNumber()->GetRecordNumber());
    rules.commentStart = textOrEmpty(status.GetComment()->GetCommentStart());
    rules.commentEnd = textOrEmpty(status.GetComment()->GetCommentEnd());
    if (rules.commentStart.empty() && family.hasBrackets) {
        rules.commentStart.assign(1, '(');
        rules.commentEnd.assign(1, ')');
    }
    rules.lineComments = givenOr(lineComments, family.lineComment);
    rules.skipMarks = givenOr(skipMarks, family.skipMark);
    rules.frames = givenOr(frames, family.frame);
    rules.programNames = givenOr(programNames, family.programName);
    rules.blockEnds = blockEnds;
    return rules;
}
