#include "cli/quillmark/writeJsonReport.h"

#include "cli/quillmark/reportKeys.h"
#include "cli/shared/JsonWriter.h"
#include "driver/returnCodes.h"

namespace {

void writeTextOrNull(JsonWriter& json, const char* key, const char* text) noexcept {
    json.Key(key);
    json.TextOrNull(text);
}

void writeNumberOrNull(JsonWriter& json, const char* key, std::optional<int> number) noexcept {
    json.Key(key);
    if (number) {
        json.Number(*number);
    } else {
        json.Null();
    }
}

// The file of a line, when it is not that of the main program.
void writeFile(JsonWriter& json, std::string_view file) noexcept {
    if (!file.empty()) {
        json.Entry("file", file);
    }
}

void writeBlock(JsonWriter& json, const Block& block) noexcept {
    const Block::Place& place = block.GetPlace();
    json.Entry("line", place.line);
    writeFile(json, place.file == nullptr ? "" : place.file);
    json.Entry("block", block.Text());
}

void writeFiles(JsonWriter& json, const ConversionFiles& files) noexcept {
    json.Key("files");
    json.BeginObject();
    writeTextOrNull(json, "parameter", files.parameter);
    writeTextOrNull(json, "nc", files.nc);
    writeTextOrNull(json, "output", files.output);
    writeTextOrNull(json, "log", files.log);
    json.EndObject();
}

void writeProcessEnd(JsonWriter& json, NCScan& scan, const ProcessEnd* end) noexcept {
    json.Key("process_end");
    if (end == nullptr) {
        json.Null();
        return;
    }
    json.BeginObject();
    writeTextOrNull(json, "assertion", end->expression);
    writeBlock(json, scan.CurrentBlock());
    json.EndObject();
}

// What ended a program that computes.
void writeFailure(JsonWriter& json, NCScan& scan, std::optional<int> code) noexcept {
    if (!code || *code < kBlockUnreadable || *code > kWordNotConverted) {
        return;
    }
    json.Key("failure");
    json.BeginObject();
    writeTextOrNull(json, "text", scan.LastFailure().text);
    writeBlock(json, scan.CurrentBlock());
    json.EndObject();
}

// Where a signal stopped the conversion.
void writeStop(JsonWriter& json, NCScan& scan, int signal) noexcept {
    if (signal == 0) {
        return;
    }
    json.Key("stopped");
    json.BeginObject();
    json.Entry("signal", signal);
    writeBlock(json, scan.CurrentBlock());
    json.EndObject();
}

void writeStatements(JsonWriter& json, const StatementCounts& counts) noexcept {
    json.Key("statements");
    json.BeginObject();
    for (const StatementRow& row : kStatementRows) {
        json.Entry(row.key, counts.Of(row.kind));
    }
    json.EndObject();
}

void writeWords(JsonWriter& json, WordTally& tally) noexcept {
    json.Key("words");
    json.BeginList();
    for (const auto* const entry : tally.MostFrequentFirst()) {
        json.BeginObject();
        json.Entry("word", entry->first);
        json.Entry("count", entry->second.count);
        json.Entry("first_line", entry->second.firstLine);
        writeFile(json, entry->second.firstFile);
        json.EndObject();
    }
    json.EndList();
}

void writeUnrecognised(JsonWriter& json, ScanReport& report) noexcept {
    json.Key("unrecognised");
    json.BeginObject();
    json.Entry("blocks", report.UnrecognisedBlocks());
    json.Entry("word_count", report.Words().Total());
    json.Entry("word_count_not_listed", report.Words().Others());
    writeWords(json, report.Words());
    json.Key("first_blocks");
    json.BeginList();
    for (const ReportedBlock& block : report.FirstRests()) {
        json.BeginObject();
        json.Entry("line", block.line);
        writeFile(json, block.file);
        json.Entry("rest", block.text);
        json.EndObject();
    }
    json.EndList();
    json.EndObject();
}

void writeOddities(JsonWriter& json, const ScanReport& report) noexcept {
    for (const OddityRow& row : kOddityRows) {
        const Tally& tally = report.Of(row.oddity);
        json.Key(row.key);
        json.BeginObject();
        json.Entry("count", tally.count);
        json.Key("first_line");
        if (tally.count > 0) {
            json.Number(tally.firstLine);
        } else {
            json.Null();
        }
        writeFile(json, tally.firstFile);
        json.EndObject();
    }
}

void writeIdle(JsonWriter& json, IdleCause cause) noexcept {
    writeTextOrNull(json, "no_movement", rowOf(cause).key);
}

void writeCause(JsonWriter& json, const WarningCause& cause) noexcept {
    const Warning& first = cause.first;
    json.BeginObject();
    json.Entry("kind", std::string_view(rowOf(first.kind).key));
    writeTextOrNull(json, "word", first.word.empty() ? nullptr : first.word.c_str());
    json.Entry("count", cause.count);
    json.Entry("first_line", first.block.line);
    writeFile(json, first.block.file);
    json.Entry("block", first.block.text);
    json.EndObject();
}

void writeCauses(JsonWriter& json, const ScanReport& report) noexcept {
    json.Key("warning_causes");
    json.BeginList();
    for (const auto& worst : kWorstFirst) {
        const auto* const kind = std::get_if<Warning::Kind>(&worst);
        for (const WarningCause& cause : report.Causes()) {
            if (kind != nullptr && cause.first.kind == *kind) {
                writeCause(json, cause);
            }
        }
    }
    json.EndList();
}

void writeWarnings(JsonWriter& json, const ScanReport& report) noexcept {
    json.Key("warnings");
    json.BeginList();
    for (const Warning& warning : report.FirstWarnings()) {
        json.BeginObject();
        json.Entry("kind", std::string_view(rowOf(warning.kind).key));
        json.Entry("line", warning.block.line);
        writeFile(json, warning.block.file);
        writeTextOrNull(json, "word", warning.word.empty() ? nullptr : warning.word.c_str());
        json.Entry("block", warning.block.text);
        json.EndObject();
    }
    json.EndList();
}

} // namespace

void writeJsonReport(std::FILE* stream, NCScan& scan, const RunResult& result) noexcept {
    ScanReport& report = scan.Report();
    const ReturnCode* const row = result.code ? findReturnCode(*result.code) : nullptr;
    JsonWriter json(stream);
    json.BeginObject();
    json.Entry("quillmark", std::string_view(QUILLMARK_VERSION));
    writeFiles(json, result.files);
    writeNumberOrNull(json, "return_code", result.code);
    writeTextOrNull(json, "meaning", row == nullptr ? nullptr : row->meaning);
    writeNumberOrNull(json, "exit_status", result.exitStatus);
    writeProcessEnd(json, scan, result.end);
    writeFailure(json, scan, result.code);
    writeStop(json, scan, result.signal);
    json.Key("seconds");
    json.Decimal(result.seconds);
    json.Entry("lines", scan.CurrentBlock().GetPlace().line);
    json.Entry("blocks", scan.CurrentBlock().GetPlace().number);
    writeStatements(json, report.Statements());
    writeUnrecognised(json, report);
    writeOddities(json, report);
    writeIdle(json, report.Idle());
    json.Entry("warning_count", report.WarningCount());
    writeCauses(json, report);
    writeWarnings(json, report);
    json.EndObject();
}
