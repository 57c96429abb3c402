#include "driver/ModelVocabulary.h"

#include "softCommon/CStringUtil/asciiBytes.h"

#include <algorithm>

ModelVocabulary::ModelVocabulary(NCScan& scan)
    : m_separator(*scan.Machinestatus().GetDecimalSeparator()),
      m_areNamesWhole(scan.Rules().passed.rule == WordRule::kStrictNames) {
    const AvailableCommands& commands = scan.Availablecommands();
    for (int i = 0; i < commands.GetCommandCount(); ++i) {
        const CommandWord& word = commands.GetCommand(i)->Word();
        if (word.Text().empty()) {
            continue;
        }
        const std::string letters = word.Text().get();
        m_codes.insert(word.Number() == -1
                           ? letters
                           : WordCode(letters + std::to_string(word.Number())).Spelling());
        if (word.Number() == -1) {
            m_prefixes.insert(letters);
        }
    }
    const AvailableParameters& words = scan.Availableparameters();
    for (int i = 0; i < words.GetParameterCount(); ++i) {
        const Parameter& word = *words.GetParameter(i);
        if (word.GetSyntaxString() != nullptr) {
            const bool isImplied = m_separator == '\0';
            m_addresses[word.GetSyntaxString()] =
                isImplied ? static_cast<int>(word.GetDecimalPlace()) : 0;
        }
    }
    m_following = scan.Rules().followingCodes;
    const PassedWords& passed = scan.Rules().passed;
    addPassed(passed.noEffect);
    addPassed(passed.own);
    addPassed(passed.notConverted);
}

void ModelVocabulary::addPassed(const PassedWords::List& list) {
    for (const WordCode& code : list.codes) {
        m_codes.insert(code.Spelling());
    }
    for (const WordAddress& address : list.addresses) {
        m_addresses.try_emplace(std::string(address.Letters()), 0);
    }
}

bool ModelVocabulary::isKnown(std::string_view word) const {
    const auto digit = std::ranges::find_if(word, isDigitByte);
    const std::string letters(word.begin(), digit);
    if (digit == word.end()) {
        return m_codes.contains(letters) || m_addresses.contains(letters);
    }
    const bool takesDigits = !m_areNamesWhole || letters.size() == 1;
    return m_codes.contains(WordCode(word).Spelling()) ||
           (takesDigits && m_prefixes.contains(letters));
}

bool ModelVocabulary::followsBlocks(long number) const noexcept {
    return std::ranges::find(m_following, number) != m_following.end();
}

int ModelVocabulary::impliedDecimals(std::string_view address) const {
    const auto row = m_addresses.find(std::string(address));
    return row == m_addresses.end() ? 0 : row->second;
}
