#include "cli/quillmark/writeBatchReport.h"

#include "cli/shared/JsonWriter.h"

#include <algorithm>

namespace {

struct OutcomeRow {
    BatchOutcome outcome;
    const char* key;
};

constexpr OutcomeRow kOutcomeRows[] = {
    {BatchOutcome::kConverted, "converted"},  {BatchOutcome::kFailed, "failed"},
    {BatchOutcome::kLeftAlone, "left_alone"}, {BatchOutcome::kStopped, "stopped"},
    {BatchOutcome::kNotBegun, "not_begun"},
};

void writeCounts(JsonWriter& json, std::span<const BatchResult> results) noexcept {
    for (const OutcomeRow& row : kOutcomeRows) {
        json.Entry(row.key, static_cast<long>(
                                std::ranges::count(results, row.outcome, &BatchResult::outcome)));
    }
}

void writeProgram(JsonWriter& json, const BatchProgram& program,
                  const BatchResult& result) noexcept {
    const bool hasStatus =
        (result.outcome == BatchOutcome::kConverted || result.outcome == BatchOutcome::kFailed ||
         result.outcome == BatchOutcome::kStopped) &&
        result.signal == 0 && result.startError == 0;
    json.BeginObject();
    json.Entry("nc", program.nc);
    json.Entry("output", program.output);
    json.Entry("log", program.log);
    json.Entry("report", program.report);
    const auto* const row = std::ranges::find(kOutcomeRows, result.outcome, &OutcomeRow::outcome);
    json.Entry("outcome", std::string_view(row->key));
    json.Key("exit_status");
    if (hasStatus) {
        json.Number(result.exitStatus);
    } else {
        json.Null();
    }
    json.Key("signal");
    if (result.signal != 0) {
        json.Number(result.signal);
    } else {
        json.Null();
    }
    json.EndObject();
}

} // namespace

void writeBatchReport(std::FILE* stream, const BatchOptions& options,
                      std::span<const BatchResult> results, int exitStatus) noexcept {
    JsonWriter json(stream);
    json.BeginObject();
    json.Entry("quillmark", std::string_view(QUILLMARK_VERSION));
    json.Entry("parameter", std::string_view(options.parameter));
    json.Entry("folder", options.folder);
    json.Entry("exit_status", long{exitStatus});
    writeCounts(json, results);
    json.Key("programs");
    json.BeginList();
    for (std::size_t i = 0; i < results.size(); ++i) {
        writeProgram(json, options.programs[i], results[i]);
    }
    json.EndList();
    json.EndObject();
}
