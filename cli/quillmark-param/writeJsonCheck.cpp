#include "cli/quillmark-param/writeJsonCheck.h"

#include "cli/quillmark-param/checkReport.h"
#include "cli/shared/JsonWriter.h"
#include "driver/returnCodes.h"

namespace {

// As CheckedKind and SettingKind have them.
constexpr const char* kKindNames[] = {"plain", "coded", "old", "program"};
constexpr const char* kSettingNames[] = {"command", "word", "other"};

void writeFailure(JsonWriter& json, const CheckedFile& file) {
    json.Key("failure");
    if (file.code == 0) {
        json.Null();
        return;
    }
    const ReturnCode* const row = findReturnCode(file.code);
    json.BeginObject();
    json.Entry("return_code", file.code);
    json.Key("meaning");
    json.TextOrNull(row == nullptr ? nullptr : row->meaning);
    json.Key("text");
    json.TextOrNull(file.reason);
    json.EndObject();
}

void writeSettings(JsonWriter& json, const ParamCheck* check) {
    json.Key("settings");
    json.BeginList();
    for (std::size_t i = 0; check != nullptr && i < check->InForce().size(); ++i) {
        const RecordingScan::Entry& entry = *check->InForce()[i];
        json.BeginObject();
        json.Entry("kind", kSettingNames[static_cast<std::size_t>(settingKindOf(entry))]);
        json.Entry("line", entry.line);
        json.Entry("key", entry.text);
        json.Entry("value", settingOf(entry));
        json.EndObject();
    }
    json.EndList();
}

void writeLines(JsonWriter& json, const char* key, const std::vector<ParamCheck::Line>& lines) {
    json.Key(key);
    json.BeginList();
    for (const ParamCheck::Line& line : lines) {
        json.BeginObject();
        json.Entry("line", line.number);
        json.Entry("text", line.text);
        json.EndObject();
    }
    json.EndList();
}

void writeFindings(JsonWriter& json, const Findings& findings) {
    json.Entry("errors", findings.Count(Severity::kError));
    json.Entry("warnings", findings.Count(Severity::kWarning));
    json.Entry("notes", findings.Count(Severity::kNote));
    json.Key("findings");
    json.BeginList();
    for (const Finding& finding : findings.All()) {
        json.BeginObject();
        json.Entry("severity", nameOf(severityOf(finding.kind)));
        json.Entry("kind", nameOf(finding.kind));
        json.Key("line");
        if (finding.line == 0) {
            json.Null();
        } else {
            json.Number(finding.line);
        }
        json.Entry("text", finding.text);
        json.EndObject();
    }
    json.EndList();
}

} // namespace

void writeJsonCheck(std::FILE* out, const CheckedFile& file) {
    static const std::vector<ParamCheck::Line> kNone;
    JsonWriter json(out);
    json.BeginObject();
    json.Entry("quillmark", QUILLMARK_VERSION);
    json.Entry("file", file.name);
    json.Entry("format", kKindNames[static_cast<std::size_t>(file.kind)]);
    writeFailure(json, file);
    json.Key("machine");
    json.TextOrNull(file.check == nullptr ? nullptr : file.isLathe ? "lathe" : "mill");
    json.Entry("lines_of", file.LinesOf());
    writeSettings(json, file.check);
    writeLines(json, "unread_keys", file.check == nullptr ? kNone : file.check->UnreadKeys());
    writeLines(json, "old_keys", file.oldKeys);
    writeFindings(json, file.findings);
    json.EndObject();
}
