#include "paramfile/ParamScan.h"

#include "commands/Parameter.h"
#include "driver/NCScan.h"
#include "driver/fileIdentity.h"
#include "driver/openAnotherStream.h"
#include "driver/returnCodes.h"
#include "paramfile/fileLines.h"
#include "paramfile/keys.h"
#include "paramfile/lineCoder.h"
#include "paramfile/ppcrypt.h"
#include "softCommon/CStringUtil/CharFeld.h"
#include "softCommon/CStringUtil/asciiBytes.h"
#include "softCommon/CStringUtil/numberText.h"
#include "softCommon/CStringUtil/string_mani.h"
#include "update/updatePP.h"

#include <cerrno>
#include <cstring>

ParamScan::ParamScan(NCScan& ncscan) noexcept : m_ncscan(ncscan), m_builder(ncscan) {}

ParamScan::~ParamScan() = default;

int ParamScan::SetParameterFile(const char* name) {
    if (name == nullptr) {
        return kNoParameterFileName;
    }
    const FileOwner input(std::fopen(name, "rt"));
    if (input == nullptr) {
        m_ncscan.KeepFailure({.systemError = errno});
        return kParameterFileUnreadable;
    }
    if (isDirectory(input.get())) {
        m_ncscan.KeepFailure({.systemError = EISDIR});
        return kParameterFileUnreadable;
    }
    if (m_ncscan.IsOwnOutput(input.get())) {
        m_ncscan.KeepFailure({.text = "it did not exist before this run made it as output or log"});
        return kParameterFileUnreadable;
    }
    return SetParameterStream(input.get());
}

int ParamScan::SetParameterStream(std::FILE* in) {
    m_lineNumber = 0;
    m_continuesLine = false;
    m_file.reset(std::tmpfile());
    if (m_file == nullptr) {
        m_ncscan.KeepFailure({.systemError = errno});
        return kNoTemporaryFile;
    }
    if (const int code = convert(in, m_file.get()); code != 0) {
        return code;
    }
    if (std::fflush(m_file.get()) != 0 || std::ferror(m_file.get()) != 0) {
        m_ncscan.KeepFailure({.systemError = errno});
        return kNoTemporaryFile;
    }
    if (std::fseek(m_file.get(), 0, SEEK_SET) != 0) {
        m_ncscan.KeepFailure({.systemError = errno});
        return kRewindFailed;
    }
    return 0;
}

int ParamScan::convert(std::FILE* in, std::FILE* out) {
    Line line;
    if (std::fgets(line.data(), static_cast<int>(line.size()), in) == nullptr) {
        if (std::ferror(in) == 0) {
            return kParameterFileEndsEarly;
        }
        m_ncscan.KeepFailure({.systemError = errno});
        return kParameterFileUnreadable;
    }
    if (std::fseek(in, 0, SEEK_SET) != 0) {
        m_ncscan.KeepFailure({.systemError = errno});
        return kRewindFailed;
    }
    return IsCurrentFormat(line.data()) ? decode(in, out) : update(in, out);
}

bool ParamScan::IsCurrentFormat(const char* firstLine) noexcept {
    return std::strstr(firstLine, "Header") != nullptr;
}

int ParamScan::decode(std::FILE* in, std::FILE* out) {
    CharFeldOwner lines;
    if (const int error = readFileLines(in, lines); error != 0) {
        m_ncscan.KeepFailure({.systemError = error});
        return error == ENOMEM ? kMemoryExhausted : kParameterFileEndsEarly;
    }
    const int code = ppcrypt(1, lines.get());
    for (char** line = lines.get(); *line != nullptr; ++line) {
        std::fprintf(out, "%s\n", *line);
    }
    if (code == kCoderNoMemory) {
        return kMemoryExhausted;
    }
    return code == 0 ? 0 : kDecodeFailed;
}

// The updater takes over and closes the stream that it reads, so it gets one of its own.
int ParamScan::update(std::FILE* in, std::FILE* out) {
    std::FILE* const own = openAnotherStream(fileno(in), "rt");
    if (own == nullptr) {
        m_ncscan.KeepFailure({.systemError = errno});
        return kUpdateFailed;
    }
    // Both streams share one position, and `in` may have kept its rewinding to its own buffer.
    if (std::fseek(own, 0, SEEK_SET) != 0) {
        m_ncscan.KeepFailure({.systemError = errno});
        (void)std::fclose(own);
        return kRewindFailed;
    }
    errno = 0;
    if (updatePP(own, out) == 0) {
        return 0;
    }
    return errno == ENOMEM ? kMemoryExhausted : kUpdateFailed;
}

int ParamScan::run() {
    if (m_file == nullptr) {
        return kParameterFileUnreadable;
    }
    if (const int code = CreateModalCommands(); code != 0) {
        return code;
    }
    Line line;
    while (std::feof(m_file.get()) == 0) {
        if (!fetchLine(line)) {
            if (std::ferror(m_file.get()) != 0) {
                m_ncscan.KeepFailure({.systemError = errno});
                return kParameterFileEndsEarly;
            }
            continue;
        }
        string_mani(3, line.data());
        for (const auto searchFor :
             {&ParamScan::CheckForLatheMachine, &ParamScan::SearchForCommand,
              &ParamScan::SearchForParameter, &ParamScan::searchForControl}) {
            if (const int code = (this->*searchFor)(line.data()); code != 0) {
                return code;
            }
        }
    }
    if (const int code = m_builder.Finish(); code != 0) {
        return code;
    }
    m_ncscan.Availablecommands().SortCommands();
    return 0;
}

// A line that does not fit is read in pieces, all with the number of that line.
bool ParamScan::fetchLine(Line& line) noexcept {
    if (m_file == nullptr ||
        std::fgets(line.data(), static_cast<int>(line.size()), m_file.get()) == nullptr) {
        return false;
    }
    m_lineNumber += m_continuesLine ? 0 : 1;
    m_continuesLine = std::strchr(line.data(), '\n') == nullptr;
    return true;
}

int ParamScan::readLine(Line& line) noexcept {
    if (!fetchLine(line)) {
        return kParameterFileEndsEarly;
    }
    string_mani(3, line.data());
    return 0;
}

int ParamScan::search(std::span<const Key> keys, const char* line) {
    for (const Key& key : keys) {
        if (!key.Matches(line, IsLathe())) {
            continue;
        }
        if (key.kind == KeyKind::kPassing) {
            m_keyIsWhole = true;
            return passBy(key);
        }
        m_keyIsWhole = std::strcmp(line, key.text) == 0;
        Line value;
        if (const int code = readLine(value); code != 0) {
            return code;
        }
        return Act(key, value.data());
    }
    return 0;
}

// Looks at the value line and leaves it where it is.
int ParamScan::passBy(const Key& key) {
    std::fpos_t place;
    if (std::fgetpos(m_file.get(), &place) != 0) {
        return kRewindFailed;
    }
    Line value;
    const bool hasValue =
        std::fgets(value.data(), static_cast<int>(value.size()), m_file.get()) != nullptr;
    if (!hasValue && std::ferror(m_file.get()) != 0) {
        m_ncscan.KeepFailure({.systemError = errno});
        return kParameterFileEndsEarly;
    }
    if (std::fsetpos(m_file.get(), &place) != 0) {
        return kRewindFailed;
    }
    if (!hasValue) {
        return 0;
    }
    string_mani(3, value.data());
    return Act(key, value.data());
}

int ParamScan::searchForControl(const char* line) {
    for (const auto keys :
         {pathKeys(), technologyKeys(), coordinateKeys(), cycleKeys(), axisKeys()}) {
        if (const int code = search(keys, line); code != 0) {
            return code;
        }
    }
    return 0;
}

int ParamScan::Act(const Key& key, char* text) {
    m_builder.BeginKey();
    if (text[0] == '\0') {
        return 0;
    }
    KeyValue value = {.text = text, .isWhole = m_keyIsWhole};
    if (key.form == Key::Form::kCode) {
        long number = value.number;
        if (const int code = SplitCommand(text, value.letters, number); code != 0) {
            return code;
        }
        value.number = static_cast<int>(number);
    }
    m_builder.Settings().isInUse |= key.kind == KeyKind::kWhole;
    const int code = key.act(m_builder, value, key.argument);
    if (code == kKeyValueUnknown) {
        m_builder.KeepBadValue(key.text, text);
    }
    return code == 0 && m_builder.AddedWord() != nullptr ? ScanForDecPlace(m_builder.AddedWord())
                                                         : code;
}

int ParamScan::CheckForLatheMachine(const char* line) { return search(classKeys(), line); }

int ParamScan::SearchForCommand(const char* line) { return search(commandKeys(), line); }

int ParamScan::SearchForParameter(const char* line) { return search(parameterKeys(), line); }

int ParamScan::CreateModalCommands() { return m_builder.CreateModalCommands(); }

int ParamScan::SplitCommand(char* text, char*& letters, long& number) {
    if (text == nullptr || *text == '\0') {
        return kCommandValueEmpty;
    }
    char* const end = text + std::strlen(text);
    char* digits = end;
    while (digits != text && isDigitByte(digits[-1])) {
        --digits;
    }
    letters = digits == text ? nullptr : text;
    if (digits != end) {
        number = readInteger(digits);
        *digits = '\0';
    }
    return 0;
}

int ParamScan::ScanForDecPlace(Parameter* parameter) {
    Line passedOver;
    if (const int code = readLine(passedOver); code != 0) {
        return code;
    }
    Line format;
    if (const int code = readLine(format); code != 0) {
        return code;
    }
    const char* const point = std::strchr(format.data(), '.');
    if (format[0] != '\0' && std::strchr("BMYZ", format[0]) != nullptr && point != nullptr) {
        parameter->SetDecimalPlace(readInteger(point + 1));
    }
    return 0;
}
