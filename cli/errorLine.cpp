#include "cli/errorLine.h"

#include "driver/returnCodes.h"

namespace {

const char* nameOf(ConversionFile file, const ConversionFiles& files) noexcept {
    switch (file) {
    case ConversionFile::kParameter:
        return files.parameter;
    case ConversionFile::kNC:
        return files.nc;
    case ConversionFile::kOutput:
        return files.output;
    case ConversionFile::kLog:
        return files.log;
    case ConversionFile::kNone:
        break;
    }
    return nullptr;
}

} // namespace

std::string errorLine(int code, const ConversionFiles& files, const char* reason) {
    std::string line = "quillmark: error " + std::to_string(code);
    const ReturnCode* const row = findReturnCode(code);
    if (row == nullptr) {
        return line;
    }
    line.append(": ").append(row->meaning);
    if (const char* const name = nameOf(row->file, files)) {
        line.append(" '").append(name).append("'");
    }
    return line.append(": ").append(reason != nullptr ? reason : row->remedy);
}
