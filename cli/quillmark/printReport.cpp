#include "cli/quillmark/printReport.h"

#include "cli/quillmark/printLine.h"
#include "cli/quillmark/reportKeys.h"
#include "cli/shared/printText.h"

#include <algorithm>
#include <span>

namespace {

constexpr std::size_t kMostLines = 20; // of each list

void printMore(std::FILE* stream, long count, const char* what) noexcept {
    if (count > 0) {
        std::fprintf(stream, "quillmark: and %ld more %s; --report FILE has more of them\n", count,
                     what);
    }
}

void printWords(std::FILE* stream, WordTally& tally) noexcept {
    const auto words = tally.MostFrequentFirst();
    if (words.empty()) {
        return;
    }
    std::fputs("     count  first line  word\n", stream);
    for (const auto* const entry : words.first(std::min(words.size(), kMostLines))) {
        std::fprintf(stream, "%10ld  %10ld  ", entry->second.count, entry->second.firstLine);
        printBeginning(stream, entry->first);
        if (const std::string& file = entry->second.firstFile; !file.empty()) {
            std::fputs(" in '", stream);
            printText(stream, file);
            std::fputc('\'', stream);
        }
        std::fputc('\n', stream);
    }
    if (words.size() > kMostLines) {
        printMore(stream, static_cast<long>(words.size() - kMostLines), "different words");
    }
    if (tally.Others() > 0) {
        std::fprintf(stream, "quillmark: words not told apart any more: %ld\n", tally.Others());
    }
}

void printWarning(std::FILE* stream, const Warning& warning) noexcept {
    std::fputs("quillmark: warning: line ", stream);
    printLine(stream, warning.block.line, warning.block.file);
    std::fputs(": ", stream);
    if (!warning.word.empty()) {
        printText(stream, warning.word);
        std::fputc(' ', stream);
    }
    std::fprintf(stream, "%s: ", rowOf(warning.kind).text);
    printBeginning(stream, warning.block.text);
    std::fputc('\n', stream);
}

void printOddities(std::FILE* stream, const ScanReport& report, Level level) noexcept {
    for (const OddityRow& row : kOddityRows) {
        const Tally& tally = report.Of(row.oddity);
        if (tally.count > 0 && row.level == level) {
            std::fprintf(stream, "quillmark: %s%s: %ld, the first in line ",
                         level == Level::kWarning ? "warning: " : "", row.text, tally.count);
            printLine(stream, tally.firstLine, tally.firstFile);
            std::fprintf(stream, "; %s\n", row.consequence);
        }
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
    printOddities(stream, report, Level::kNote);
}

void printUnrecognisedCount(std::FILE* stream, NCScan& scan) noexcept {
    const ScanReport& report = scan.Report();
    if (report.UnrecognisedBlocks() > 0) {
        std::fprintf(stream, "quillmark: unrecognised text in %ld of %ld blocks\n",
                     report.UnrecognisedBlocks(), scan.CurrentBlock().GetPlace().number);
    }
}

void printWarningCount(std::FILE* stream, const ScanReport& report) noexcept {
    long count = report.WarningCount();
    for (const OddityRow& row : kOddityRows) {
        count += row.level == Level::kWarning ? report.Of(row.oddity).count : 0;
    }
    if (count > 0) {
        std::fprintf(stream, "quillmark: warnings: %ld\n", count);
    }
}

void printReport(std::FILE* stream, NCScan& scan) noexcept {
    ScanReport& report = scan.Report();
    printUnrecognisedCount(stream, scan);
    printWords(stream, report.Words());
    printOddities(stream, report, Level::kWarning);
    const auto warnings = report.FirstWarnings();
    const auto shown = std::min(warnings.size(), kMostLines);
    for (const Warning& warning : warnings.first(shown)) {
        printWarning(stream, warning);
    }
    printMore(stream, report.WarningCount() - static_cast<long>(shown), "warnings");
}
