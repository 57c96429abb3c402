#include "cli/quillmark/printReport.h"

#include "cli/quillmark/printLine.h"
#include "cli/quillmark/reportKeys.h"
#include "cli/shared/printText.h"

#include <algorithm>
#include <variant>

namespace {

constexpr std::size_t kMostLines = 20; // of each list

void printMore(std::FILE* stream, long count, const char* what) noexcept {
    if (count > 0) {
        std::fprintf(stream, "quillmark: and %ld more %s; --report FILE has more of them\n", count,
                     what);
    }
}

// Words of warnings are told there.
void printWords(std::FILE* stream, ScanReport& report) noexcept {
    std::size_t words = 0;
    for (const auto* const entry : report.Words().MostFrequentFirst()) {
        if (report.IsWarnedOf(entry->first) || ++words > kMostLines) {
            continue;
        }
        if (words == 1) {
            std::fputs("     count  first line  word\n", stream);
        }
        std::fprintf(stream, "%10ld  %10ld  ", entry->second.count, entry->second.firstLine);
        printBeginning(stream, entry->first);
        if (const std::string& file = entry->second.firstFile; !file.empty()) {
            std::fputs(" in '", stream);
            printText(stream, file);
            std::fputc('\'', stream);
        }
        std::fputc('\n', stream);
    }
    printMore(stream, static_cast<long>(words) - static_cast<long>(kMostLines), "different words");
    if (report.Words().Others() > 0) {
        std::fprintf(stream, "quillmark: words not told apart any more: %ld\n",
                     report.Words().Others());
    }
}

void printCause(std::FILE* stream, const WarningCause& cause) noexcept {
    const Warning& first = cause.first;
    std::fputs("quillmark: warning: line ", stream);
    printLine(stream, first.block.line, first.block.file);
    if (cause.count > 1) {
        std::fprintf(stream, ", the first of %ld", cause.count);
    }
    std::fputs(": ", stream);
    if (!first.word.empty()) {
        printText(stream, first.word);
        std::fputc(' ', stream);
    }
    std::fprintf(stream, "%s: ", rowOf(first.kind).text);
    printBeginning(stream, first.block.text);
    std::fputc('\n', stream);
}

void printOddity(std::FILE* stream, const ScanReport& report, const OddityRow& row) noexcept {
    const Tally& tally = report.Of(row.oddity);
    if (tally.count > 0) {
        std::fprintf(stream, "quillmark: %s%s: %ld, the first in line ",
                     row.level == Level::kWarning ? "warning: " : "", row.text, tally.count);
        printLine(stream, tally.firstLine, tally.firstFile);
        std::fprintf(stream, "; %s\n", row.consequence);
    }
}

// Most dropped arcs lack their centre word, which is told of each.
bool isToldOtherwise(const ScanReport& report, Oddity oddity) noexcept {
    return oddity == Oddity::kDroppedArc &&
           report.CountOf(Warning::Kind::kArcWithoutCentre) >= report.Of(oddity).count;
}

/// Prints causes of warnings up to a number of lines.
class CausePrinter {
public:
    CausePrinter(std::FILE* stream, const ScanReport& report) noexcept
        : m_stream(stream), m_report(report), m_untold(report.WarningCount()) {}

    void operator()(Oddity oddity) const noexcept {
        if (!isToldOtherwise(m_report, oddity)) {
            printOddity(m_stream, m_report, rowOf(oddity));
        }
    }

    void operator()(Warning::Kind kind) noexcept {
        for (const WarningCause& cause : m_report.Causes()) {
            if (cause.first.kind == kind && m_lines < kMostLines) {
                printCause(m_stream, cause);
                ++m_lines;
                m_untold -= cause.count;
            }
        }
    }

    [[nodiscard]] long Untold() const noexcept { return m_untold; }

private:
    std::FILE* m_stream;
    const ScanReport& m_report;
    std::size_t m_lines = 0;
    long m_untold;
};

void printCauses(std::FILE* stream, const ScanReport& report) noexcept {
    CausePrinter printer(stream, report);
    for (const auto& cause : kWorstFirst) {
        if (const auto* const oddity = std::get_if<Oddity>(&cause)) {
            printer(*oddity);
        } else if (const auto* const kind = std::get_if<Warning::Kind>(&cause)) {
            printer(*kind);
        }
    }
    printMore(stream, printer.Untold(), "warnings");
}

void printIdle(std::FILE* stream, const ScanReport& report, Level level) noexcept {
    const IdleRow& row = rowOf(report.Idle());
    if (row.key != nullptr && row.level == level) {
        std::fprintf(stream, "quillmark: %sthe program does not move: %s\n",
                     level == Level::kWarning ? "warning: " : "", row.text);
    }
}

} // namespace

void printSummary(std::FILE* stream, NCScan& scan, const RunResult& result) noexcept {
    const ScanReport& report = scan.Report();
    std::fprintf(stream, "quillmark: blocks read: %ld\n", scan.CurrentBlock().GetPlace().number);
    const char* separator = "quillmark: statements: ";
    for (const StatementRow& row : kStatementRows) {
        const long count = report.Statements().Of(row.kind);
        if (row.isAlwaysTold || count > 0) {
            std::fprintf(stream, "%s%s %ld", separator, row.text, count);
            separator = ", ";
        }
    }
    const auto milliseconds = static_cast<long>(result.seconds * 1000.0);
    std::fprintf(stream, "\nquillmark: seconds: %ld.%03ld\n", milliseconds / 1000,
                 milliseconds % 1000);
    printIdle(stream, report, Level::kNote);
    for (const OddityRow& row : kOddityRows) {
        if (row.level == Level::kNote) {
            printOddity(stream, report, row);
        }
    }
}

void printUnrecognisedCount(std::FILE* stream, NCScan& scan) noexcept {
    const ScanReport& report = scan.Report();
    if (report.UnrecognisedBlocks() > 0) {
        std::fprintf(stream, "quillmark: unrecognised text in %ld of %ld blocks\n",
                     report.UnrecognisedBlocks(), scan.CurrentBlock().GetPlace().number);
    }
}

void printWarningCount(std::FILE* stream, const ScanReport& report) noexcept {
    const IdleRow& idle = rowOf(report.Idle());
    const bool isIdle = idle.key != nullptr && idle.level == Level::kWarning;
    long count = report.WarningCount() + (isIdle ? 1 : 0);
    for (const OddityRow& row : kOddityRows) {
        count += row.level == Level::kWarning ? report.Of(row.oddity).count : 0;
    }
    if (count > 0) {
        std::fprintf(stream, "quillmark: warnings: %ld\n", count);
    }
}

void printReport(std::FILE* stream, NCScan& scan) noexcept {
    ScanReport& report = scan.Report();
    printIdle(stream, report, Level::kWarning);
    printCauses(stream, report);
    printUnrecognisedCount(stream, scan);
    printWords(stream, report);
}
