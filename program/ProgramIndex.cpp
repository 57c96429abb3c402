#include "program/ProgramIndex.h"

#include "program/ProgramFile.h"

#include <algorithm>

namespace {

const std::vector<long> kNoLines;
const std::vector<ProgramIndex::Definition> kNoDefinitions;

} // namespace

// Walks over the lines with a list of what is open. A line that cannot be read opens nothing: it is
// told when it is executed.
class ProgramIndex::Builder {
public:
    explicit Builder(ProgramIndex& index) noexcept : m_index(index) {}

    void add(long line, const Statement& statement) {
        m_line = line;
        std::visit([this](const auto& s) { addOne(s); }, statement);
    }
    void beginPart() noexcept { m_open.clear(); }

private:
    enum class What { kBranch, kLoop, kDefinition };
    struct Open {
        What what;
        std::string label;
        LoopStatement::Kind kind;
        long line;
    };
    using OpenList = std::vector<Open>;

    void addOne(const BranchStatement& branch) {
        if (branch.part == BranchStatement::Part::kIf) {
            open(What::kBranch, branch.label);
            return;
        }
        const auto found = find(What::kBranch, branch.label);
        if (found == m_open.end()) {
            return;
        }
        m_index.m_partners[found->line] = m_line;
        found->line = m_line;
        if (branch.part == BranchStatement::Part::kEnd) {
            m_open.erase(found, m_open.end());
        }
    }

    void addOne(const LoopStatement& loop) {
        using Part = LoopStatement::Part;
        const auto found = find(What::kLoop, loop.label, loop.kind, loop.part);
        const bool isOpen = found != m_open.end();
        switch (loop.part) {
        case Part::kWhile:
            if (isOpen && found->kind == LoopStatement::Kind::kDo) {
                close(found);
                return;
            }
            [[fallthrough]];
        case Part::kBegin:
            open(What::kLoop, loop.label, loop.kind);
            return;
        case Part::kEnd:
            if (isOpen) {
                close(found);
            }
            return;
        case Part::kBreak:
        case Part::kContinue:
            if (isOpen) {
                m_index.m_partners[m_line] = found->line;
            }
            return;
        }
    }

    void addOne(const DefineStatement& define) {
        if (define.isAmongBlocks) {
            open(What::kDefinition, define.name);
        } else {
            m_index.m_beginnings[define.name].push_back(m_line);
        }
    }

    void addOne(const ReturnStatement& back) {
        if (back.kind != ReturnStatement::Kind::kDefinition) {
            return;
        }
        const auto found = std::find_if(m_open.rbegin(), m_open.rend(), [](const Open& entry) {
            return entry.what == What::kDefinition;
        });
        if (found != m_open.rend()) {
            m_index.m_definitions[found->label].push_back({found->line, m_line});
            close(std::prev(found.base()));
        }
    }

    template<class Other>
    void addOne(const Other& /*statement*/) noexcept {}

    void open(What what, std::string label,
              LoopStatement::Kind kind = LoopStatement::Kind::kWhile) {
        m_open.push_back({what, std::move(label), kind, m_line});
    }

    void close(OpenList::iterator entry) {
        m_index.m_partners[entry->line] = m_line;
        m_index.m_partners[m_line] = entry->line;
        m_open.erase(entry, m_open.end());
    }

    // The innermost one within the present definition. Where loops have no labels, their words say
    // what belongs together.
    OpenList::iterator find(What what, const std::string& label,
                            LoopStatement::Kind kind = LoopStatement::Kind::kWhile,
                            LoopStatement::Part part = LoopStatement::Part::kBegin) {
        for (auto entry = m_open.end(); entry != m_open.begin();) {
            --entry;
            if (entry->what == What::kDefinition) {
                break;
            }
            const bool isSameKind = what == What::kBranch || !label.empty() ||
                                    part != LoopStatement::Part::kEnd || entry->kind == kind;
            if (entry->what == what && entry->label == label && isSameKind) {
                return entry;
            }
        }
        return m_open.end();
    }

    ProgramIndex& m_index;
    OpenList m_open;
    long m_line = 0;
};

ProgramIndex::ProgramIndex(ProgramFile& file) {
    Builder builder(*this);
    for (const ProgramFile::Part& part : file.parts()) {
        builder.beginPart();
        for (long i = part.first; i < part.end; ++i) {
            if (file.textOf(i).empty()) {
                continue;
            }
            const ProgramLine& line = file.line(i);
            if (line.blockNumber) {
                m_blockNumbers[*line.blockNumber].push_back(i);
            }
            if (!line.label.empty()) {
                m_labels[line.label].push_back(i);
            }
            for (const Statement& statement : line.statements) {
                builder.add(i, statement);
            }
        }
    }
}

std::optional<long> ProgramIndex::partner(long line) const noexcept {
    const auto found = m_partners.find(line);
    return found == m_partners.end() ? std::nullopt : std::optional(found->second);
}

bool ProgramIndex::endsLoop(long line) const noexcept {
    const auto found = m_partners.find(line);
    return found != m_partners.end() && found->second < line;
}

const std::vector<long>& ProgramIndex::label(std::string_view label) const {
    const auto found = m_labels.find(label);
    return found == m_labels.end() ? kNoLines : found->second;
}

const std::vector<long>& ProgramIndex::blockNumber(long number) const {
    const auto found = m_blockNumbers.find(number);
    return found == m_blockNumbers.end() ? kNoLines : found->second;
}

const std::vector<ProgramIndex::Definition>&
ProgramIndex::definitions(std::string_view name) const {
    const auto found = m_definitions.find(name);
    return found == m_definitions.end() ? kNoDefinitions : found->second;
}

const std::vector<long>& ProgramIndex::beginnings(std::string_view name) const {
    const auto found = m_beginnings.find(name);
    return found == m_beginnings.end() ? kNoLines : found->second;
}
