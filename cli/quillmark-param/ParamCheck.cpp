#include "cli/quillmark-param/ParamCheck.h"

#include "cli/shared/movementCommands.h"
#include "cli/shared/nearestName.h"
#include "commands/EndCommand.h"
#include "commands/RegularCommand.h"
#include "commands/WordCode.h"
#include "driver/returnCodes.h"
#include "paramfile/MachineSection.h"
#include "paramfile/codingMarks.h"
#include "paramfile/keys.h"
#include "softCommon/CStringUtil/asciiBytes.h"
#include "softCommon/CStringUtil/string_mani.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <iterator>

namespace {

using enum FindingKind;

constexpr const char* kLatheSuffix = "_LATHE";
constexpr const char* kClassKey = "MFG_CLASS_NAME";
constexpr const char* kToolWordKey = "REV_TLCHG_TLADR";
constexpr const char* kCentreModeKey = "CIRCLE_CENTER_ABS";
constexpr std::size_t kLongestLine = 254; // with its line end it fills the buffer of the scan

bool isHeading(const std::string& text) noexcept { return text.starts_with("##### "); }

bool isCentreKey(const Key& key) noexcept {
    return std::strstr(key.text, "CIRCLE_CENTER_COORDINATE") != nullptr;
}

bool isDivisorKey(const Key& key) noexcept {
    return std::strstr(key.text, "_ASSIGNMENT") != nullptr;
}

// Upper-case words, digits and underscores, with enough letters to be no code or address.
bool looksLikeKey(const std::string& text) noexcept {
    constexpr auto kFewestLetters = 4;
    const auto isKeyByte = [](char c) { return isUpperByte(c) || isDigitByte(c) || c == '_'; };
    return std::ranges::all_of(text, isKeyByte) &&
           std::ranges::count_if(text, isUpperByte) >= kFewestLetters;
}

// The same in letters of any case, also with blanks or dashes, as people may write a key.
bool mayBeMeantAsKey(std::string text) {
    for (char& c : text) {
        c = c == ' ' || c == '-' ? '_'
                                 : static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
    return looksLikeKey(text);
}

std::string digitsOf(std::string_view text) {
    std::string digits;
    std::ranges::copy_if(text, std::back_inserter(digits), isDigitByte);
    return digits;
}

// Every key as it is written for either kind of machine.
const std::vector<std::string>& spelledKeys() {
    static const std::vector<std::string> keys = [] {
        std::vector<std::string> all;
        for (const auto& table : keyTables()) {
            for (const Key& key : table) {
                all.emplace_back(key.text);
                if (key.IsVariant()) {
                    all.push_back(key.text + std::string(kLatheSuffix));
                }
            }
        }
        return all;
    }();
    return keys;
}

// The key that `text` was meant to be, or nothing. A name with other digits is a sibling, such as
// that of a fourth axis.
std::string nearestKey(const std::string& text, std::size_t mostChanges) {
    const std::vector<std::string>& keys = spelledKeys();
    std::vector<std::string_view> candidates;
    std::ranges::copy_if(keys, std::back_inserter(candidates),
                         [&](const std::string& key) { return digitsOf(key) == digitsOf(text); });
    return std::string(nearestName(text, candidates, mostChanges));
}

// Whether something stands behind the value that was meant as a comment or belongs to no code.
bool hasTextBehind(const RecordingScan::Entry& entry) {
    const std::size_t blank = entry.value.find_first_of(" \t");
    const std::size_t rest = entry.value.find_first_not_of(" \t", blank);
    if (rest == std::string::npos) {
        return false;
    }
    if (entry.key->form == Key::Form::kText) {
        return std::strchr("#(", entry.value[rest]) != nullptr;
    }
    return std::strchr("#(;/{*", entry.value[rest]) != nullptr ||
           isDigitByte(entry.value[blank - 1]);
}

// The exact key of which `text` is the variant for lathes or for mills, or null.
const Key* exactKeyOf(const std::string& text, bool forLathe) noexcept {
    const char* const suffix = forLathe ? kLatheSuffix : "";
    for (const auto& keys : keyTables()) {
        for (const Key& key : keys) {
            if (key.IsVariant() && text.starts_with(key.text) &&
                text.compare(std::strlen(key.text), text.npos, suffix) == 0) {
                return &key;
            }
        }
    }
    return nullptr;
}

// The key as it is written for a kind of machine.
std::string spelled(const Key& key, bool isLathe) {
    return std::string(key.text) + (key.IsVariant() && isLathe ? kLatheSuffix : "");
}

// Without an incremental word, and on a lathe without a second axis, a dialect is complete.
bool isOptional(const Key& key, bool isLathe) noexcept {
    const std::string_view text = key.text;
    return text.ends_with("_INCR") || (isLathe && text == "2ND_COORDINATE");
}

// What a later entry has to have in common with an earlier one to replace it: the command, or else
// the key.
const void* targetOf(const RecordingScan::Entry& entry) noexcept {
    if (entry.command != nullptr) {
        return entry.command;
    }
    return entry.key->addsUp ? static_cast<const void*>(&entry) : entry.key;
}

/// What a code is used for.
struct Use {
    const Command* command;
    std::string name;
};

bool isEnd(const Use& use) noexcept {
    return dynamic_cast<const EndCommand*>(use.command) != nullptr;
}

bool isStop(const Use& use) noexcept {
    return use.name == "REV_STOP" || use.name == "REV_OPTIONAL_STOP";
}

// A limit of the speed leaves some blocks to others, and a stop holds where an older key has it.
bool mayShareCode(const Use& a, const Use& b) noexcept {
    return a.command->Rank() == CommandRank::kClaimsBlocks ||
           b.command->Rank() == CommandRank::kClaimsBlocks || (isStop(a) && isEnd(b)) ||
           (isEnd(a) && isStop(b));
}

// Of codes that no command has.
bool isPassedCodeKey(const Key& key) noexcept {
    constexpr std::string_view kKeys[] = {"REV_NO_EFFECT", "REV_OWN_WORDS", "REV_NOT_CONVERTED"};
    return std::ranges::find(kKeys, std::string_view(key.text)) != std::end(kKeys);
}

struct AbsentKey {
    const char* key;
    const char* alternative; // a key that does the same; null for none
    bool latheOnly;
    const char* consequence;
};

// Keys of which there is more to say than that they are absent.
constexpr AbsentKey kAbsentKeys[] = {
    {kClassKey, nullptr, false, ": the machine counts as a mill"},
    {"SPINDLE_STOP", "SPINDLE_OFF_LATHE", false, ""},
    {"SPINDLE_OFF_LATHE", "SPINDLE_STOP", true, ""},
    {"REV_TLCHG_COM", nullptr, false, ": the tool change is M6"},
    {kToolWordKey, nullptr, false, ": the tool number stands behind T"},
    {"DECIMAL_POINT_REPRESENTATION", nullptr, false, ": numbers have no decimal point"},
    {"MFG_INIT_SPINDLE", nullptr, false, ": the tool axis is (0, 0, 1)"},
    {"ZX_LATHE_X_ASSIGNMENT", nullptr, true, ""},
    {"ZX_LATHE_Y_ASSIGNMENT", nullptr, true, ""},
    {"ZX_LATHE_Z_ASSIGNMENT", nullptr, true, ""},
};

const AbsentKey& absentKey(const Key& key) noexcept {
    static constexpr AbsentKey kPlain = {nullptr, nullptr, false, ""};
    const auto* const row = std::ranges::find_if(kAbsentKeys, [&key](const AbsentKey& candidate) {
        return std::strcmp(candidate.key, key.text) == 0;
    });
    return row == std::end(kAbsentKeys) ? kPlain : *row;
}

} // namespace

ParamCheck::ParamCheck(NCScan& model, const RecordingScan& scan, char* const* lines, int code)
    : m_model(model), m_scan(scan) {
    collectLines(lines);
    collectInForce();
    collectUnreadKeys();
    if (code != 0) {
        const ReturnCode* const row = findReturnCode(code);
        const char* const reason = model.LastFailure().text;
        m_findings.Add(kScanFails, scan.LastLine(),
                       (row == nullptr ? std::to_string(code) : row->meaning) +
                           (reason == nullptr ? "" : std::string(": ") + reason));
    }
    checkMarks(lines);
    for (const Entry& entry : scan.Entries()) {
        checkEntry(entry);
    }
    checkLengths();
    checkVariants();
    checkCentreMode();
    checkCodes();
    checkLetters();
    if (code == 0) { // behind a failure everything is absent
        checkAxes();
        checkAbsentKeys();
        if (!configuresMovement(model)) {
            m_findings.Add(kNoMovement, 0, kNoMovementCommand);
        }
    }
    m_findings.Sort();
}

void ParamCheck::collectLines(char* const* lines) {
    for (; *lines != nullptr; ++lines) {
        std::string text(*lines);
        m_lengths.push_back(text.size());
        string_mani(3, text.data());
        text.resize(std::strlen(text.c_str()));
        m_lines.push_back(std::move(text));
    }
    m_entryOfLine.resize(m_lines.size(), nullptr);
    for (const Entry& entry : m_scan.Entries()) {
        for (long line = entry.line; line <= entry.lastLine; ++line) {
            m_entryOfLine[static_cast<std::size_t>(line - 1)] = &entry;
        }
    }
}

void ParamCheck::collectInForce() {
    const std::vector<Entry>& entries = m_scan.Entries();
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        if (!entry->value.empty() && m_byTarget.try_emplace(targetOf(*entry), &*entry).second) {
            m_inForce.push_back(&*entry);
        }
    }
    std::ranges::reverse(m_inForce);
}

// The line below an unread key is its value, whatever it looks like. The values of cycles are texts
// of several lines, so in their section only the headings of the cycles count, and keys that were
// added behind them.
void ParamCheck::collectUnreadKeys() {
    bool isInCycles = false;
    bool isValue = false;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        const std::string& text = m_lines[i];
        if (isHeading(text)) {
            isInCycles = text.starts_with("##### Cycle Section");
            isValue = false;
        } else if (isValue || m_entryOfLine[i] != nullptr) {
            isValue = false;
        } else {
            const bool isKey = isInCycles ? text.starts_with("CYCLE_") : looksLikeKey(text);
            isValue = checkSpelling(static_cast<long>(i) + 1, text) || isKey;
            if (isValue) {
                m_unreadKeys.push_back({static_cast<long>(i) + 1, text});
            }
        }
    }
}

// Most files hold keys for other programs: only what is hardly anything but a slip is told.
bool ParamCheck::checkSpelling(long line, const std::string& text) {
    constexpr std::size_t kMostSlips = 2;
    constexpr std::size_t kMostChanges = 3;
    if (!mayBeMeantAsKey(text) || std::ranges::find(spelledKeys(), text) != spelledKeys().end()) {
        return false;
    }
    const bool isOwn = text.starts_with("REV_");
    const std::string nearest = nearestKey(text, isOwn ? kMostChanges : kMostSlips);
    if (isOwn && looksLikeKey(text) && nearest.empty()) {
        m_findings.Add(kUnknownKey, line, text);
    } else if (!nearest.empty()) {
        m_findings.Add(kMisspelledKey, line, text, nearest);
    } else {
        return false;
    }
    return true;
}

void ParamCheck::checkMarks(char* const* lines) {
    const auto head = plainHead(lines);
    if (hasSectionLine(head)) {
        return; // the file was decoded or marked as plain, or it would not have been read
    }
    m_findings.Add(kSectionMissing, 0);
    if (!saysPlain(head)) {
        m_findings.Add(kMarkMissing, 0);
    }
}

void ParamCheck::checkEntry(const Entry& entry) {
    const std::string variant = entry.key->text + std::string(kLatheSuffix);
    if (entry.text != entry.key->text && entry.text != variant) {
        m_findings.Add(kReadAsOther, entry.line, entry.text, entry.key->text);
    }
    if (entry.value.empty()) {
        m_findings.Add(kEmptyValue, entry.line, entry.text);
        return;
    }
    if (IsScannedKey(entry.value) || isHeading(entry.value)) {
        m_findings.Add(kValueIsKey, entry.line, entry.text, entry.value);
    } else if ((entry.command != nullptr || entry.word != nullptr) && looksLikeKey(entry.value) &&
               entry.value.find('_') != std::string::npos) {
        m_findings.Add(kValueLikeKey, entry.line, entry.text, entry.value);
    }
    // Behind the value: a line that is passed over, then the number format. Either may be any text.
    for (long line = entry.line + 2; line <= entry.lastLine; ++line) {
        const std::string& text = m_lines[static_cast<std::size_t>(line - 1)];
        if (IsScannedKey(text) || isHeading(text)) {
            m_findings.Add(kFormatMissing, entry.line, entry.text, text);
            break;
        }
    }
    if (entry.command != nullptr && isDigitByte(entry.value[0]) &&
        entry.value.find_first_not_of("0123456789") == std::string::npos) {
        m_findings.Add(kNoLetters, entry.line, entry.text, entry.value);
    }
    if (hasTextBehind(entry)) {
        m_findings.Add(kTextBehindCode, entry.line, entry.text, entry.value);
    }
    if (isDivisorKey(*entry.key) && entry.value.size() == 1) {
        m_findings.Add(kShortDivisor, entry.line, entry.text, entry.value);
    }
    const Entry& last = *m_byTarget.at(targetOf(entry));
    if (&last != &entry && last.value != entry.value) {
        m_findings.Add(kReplaced, last.line, last.text, std::to_string(entry.line));
    }
}

void ParamCheck::checkLengths() {
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        if (m_lengths[i] > kLongestLine) {
            const Entry* const entry = m_entryOfLine[i];
            m_findings.Add(entry != nullptr ? kEntryTooLong : kLineTooLong,
                           static_cast<long>(i) + 1, entry != nullptr ? entry->text : "");
        }
    }
}

// The class must be known before the keys that have variants are read. A key without a value, or
// one that is set properly behind the class, does no harm.
void ParamCheck::checkVariants() {
    const bool isLathe = m_scan.IsLathe();
    const auto classEntry = std::ranges::find_if(m_scan.Entries(), [](const Entry& entry) {
        return entry.key == classKeys().data() && !entry.value.empty();
    });
    const long classLine = classEntry == m_scan.Entries().end() ? 0 : classEntry->line;
    for (std::size_t i = 0; i + 1 < m_lines.size(); ++i) {
        const auto line = static_cast<long>(i) + 1;
        const std::string& text = m_lines[i];
        const Entry* const entry = m_entryOfLine[i];
        const Key* const own = exactKeyOf(text, isLathe);
        const Key* const key = own != nullptr ? own : exactKeyOf(text, !isLathe);
        const bool isValue = entry != nullptr && entry->line != line;
        const bool isEarly = line < classLine;
        if (key == nullptr || isValue || m_lines[i + 1].empty() || (own != nullptr && !isEarly)) {
            continue;
        }
        const auto inForce = std::ranges::find(m_inForce, key, &Entry::key);
        if (inForce != m_inForce.end() && (*inForce)->line > classLine) {
            continue;
        }
        if (isEarly && isLathe) {
            m_findings.Add(kBeforeLatheClass, line, text);
        } else if (own != nullptr) {
            m_findings.Add(kBeforeClass, line, text);
        } else if (inForce == m_inForce.end()) {
            m_findings.Add(isOptional(*key, isLathe) ? kWrongOptionalVariant : kWrongVariant, line,
                           text, spelled(*key, isLathe));
        }
    }
}

void ParamCheck::checkCentreMode() {
    const auto mode = std::ranges::find_if(m_inForce, [](const Entry* entry) {
        return std::strcmp(entry->key->text, kCentreModeKey) == 0;
    });
    if (mode == m_inForce.end()) {
        return;
    }
    for (auto centre = mode + 1; centre != m_inForce.end(); ++centre) {
        if (isCentreKey(*(*centre)->key)) {
            m_findings.Add((*mode)->value[0] == '1' ? kCentreModeEarly : kCentreModeLost,
                           (*mode)->line, (*centre)->text);
        }
    }
}

void ParamCheck::checkCodes() {
    std::map<std::string, Use> uses;
    const Command* const toolChange = m_model.Machinestatus().GetToolCom()->GetActiveCommand();
    if (toolChange != nullptr && !m_byTarget.contains(toolChange)) {
        uses[CodeOf(*toolChange)] = {toolChange, "the default tool change"};
    }
    for (const Entry* const entry : m_inForce) {
        if (entry->command == nullptr || entry->command->GetSyntaxString() == nullptr) {
            continue;
        }
        const Use own = {entry->command, entry->text};
        const auto [use, isNew] = uses.try_emplace(CodeOf(*entry->command), own);
        if (!isNew && !mayShareCode(own, use->second)) {
            const bool bothEnd = isEnd(own) && isEnd(use->second);
            m_findings.Add(bothEnd ? kSameEndCode : kSameCode, entry->line, entry->text,
                           use->second.name);
        }
    }
    for (const Entry& entry : m_scan.Entries()) {
        if (!isPassedCodeKey(*entry.key) || entry.value.empty()) {
            continue;
        }
        if (const auto use = uses.find(WordCode(entry.value).Spelling()); use != uses.end()) {
            m_findings.Add(kPassedCode, entry.line, entry.text, use->second.name);
        }
    }
}

// The word of the tool number is no entry of its own: a key only renames it.
void ParamCheck::checkLetters() {
    std::map<std::string, std::string> uses;
    const auto* const toolChange = dynamic_cast<const RegularCommand*>(
        m_model.Machinestatus().GetToolCom()->GetActiveCommand());
    const Parameter* const toolWord = toolChange == nullptr ? nullptr : toolChange->GetToolParm();
    const auto isToolKey = [](const Entry* entry) {
        return std::strcmp(entry->key->text, kToolWordKey) == 0;
    };
    if (toolWord != nullptr && std::ranges::none_of(m_inForce, isToolKey)) {
        uses[toolWord->GetSyntaxString()] = "the default tool word";
    }
    for (const Entry* const entry : m_inForce) {
        if (entry->key->kind == KeyKind::kWhole) {
            continue; // the word of a code that takes it before others do
        }
        const Parameter* const word = isToolKey(entry) ? toolWord : entry->word;
        if (word != nullptr) {
            const auto [use, isNew] = uses.try_emplace(word->GetSyntaxString(), entry->text);
            if (!isNew) {
                m_findings.Add(kSameLetters, entry->line, entry->text, use->second);
            }
        }
    }
}

// The words for rotary axes against those that the machine has. More than two belong to more than
// one class, and only that of the machine counts.
void ParamCheck::checkAxes() {
    constexpr const char* kWords[] = {"REV_ROTARY_1ST", "REV_ROTARY_2ND"};
    std::vector<const Entry*> axes;
    for (const auto& keys : MachineSection::kKeys) {
        const auto axis = std::ranges::find_if(m_inForce, [&](const Entry* entry) {
            return std::strcmp(entry->key->text, keys[MachineSection::kLetter]) == 0;
        });
        if (axis != m_inForce.end()) {
            axes.push_back(*axis);
        }
    }
    for (std::size_t i = 0; i < std::size(kWords); ++i) {
        bool isRead = false;
        for (const Entry* const entry : m_inForce) {
            if (!std::string_view(entry->key->text).starts_with(kWords[i])) {
                continue;
            }
            isRead = true;
            if (i >= axes.size()) {
                m_findings.Add(kNoSuchAxis, entry->line, entry->text);
            } else if (axes.size() == std::size(kWords) && entry->value != axes[i]->value &&
                       entry->value == axes[1 - i]->value) {
                m_findings.Add(kCrossedAxes, entry->line, entry->text, axes[1 - i]->text);
            }
        }
        if (!isRead && i < axes.size() && axes.size() <= std::size(kWords)) {
            m_findings.Add(kAbsent, 0, kWords[i],
                           ": words of the machine's axis " + axes[i]->value + " (" +
                               axes[i]->text + ") are not read");
        }
    }
}

void ParamCheck::checkAbsentKeys() {
    const auto isInForce = [this](const char* name) {
        return std::ranges::any_of(m_inForce, [name](const Entry* entry) {
            return std::strcmp(entry->key->text, name) == 0;
        });
    };
    for (const auto& keys : keyTables()) {
        for (const Key& key : keys) {
            if (key.kind == KeyKind::kWhole || key.kind == KeyKind::kPassing) {
                continue; // most dialects do without
            }
            const AbsentKey& row = absentKey(key);
            const bool isReplaced = row.alternative != nullptr && isInForce(row.alternative);
            if (!isReplaced && (!row.latheOnly || m_scan.IsLathe()) && !isInForce(key.text)) {
                m_findings.Add(kAbsent, 0, spelled(key, m_scan.IsLathe()), row.consequence);
            }
        }
    }
}

std::string ParamCheck::CodeOf(const Command& command) {
    const char* const letters = command.GetSyntaxString();
    const int number = command.GetSyntaxNumber();
    const std::string& fraction = command.Word().Fraction();
    return std::string(letters != nullptr ? letters : "") +
           (number == -1 ? "" : std::to_string(number)) + (fraction.empty() ? "" : "." + fraction);
}

bool ParamCheck::IsScannedKey(const std::string& text) noexcept {
    for (const auto& keys : keyTables()) {
        for (const Key& key : keys) {
            if (text.starts_with(key.text)) {
                const std::string_view rest = std::string_view(text).substr(std::strlen(key.text));
                if (rest.empty() || rest[0] == '_') {
                    return true;
                }
            }
        }
    }
    return false;
}
