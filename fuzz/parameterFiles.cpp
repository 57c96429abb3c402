#include "fuzz/parameterFiles.h"

#include "paramfile/codeOldLine.h"
#include "paramfile/ppcrypt.h"
#include "softCommon/CStringUtil/CharFeld.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>

const std::string_view kMill =
    "##### Header\n#FILE:       UNCODED\n##### Toolmachine Section\n"
    "MFG_CLASS_NAME\nMILLING_MACHINE\nMFG_INIT_SPINDLE\n0;0.6;0.8\n"
    "COMMENT_START\n(\nCOMMENT_END\n)\nRECORD_NUMBER\nN\nDECIMAL_POINT_REPRESENTATION\n.\n"
    "RAPID\nG0\nLINEAR_INTERPOLATION\nG1\nCIRCULAR_INTERPOLATION_RIGHT\nG2\n"
    "CIRCULAR_INTERPOLATION_LEFT\nG3\nABSOLUTE_ON\nG90\nINCREMENTAL_ON\nG91\n"
    "FEEDRAT_MMPM\nG94\nFEEDRAT_MMPR\nG95\nSPINDLE_CLOCKWISE\nM3\n"
    "SPINDLE_COUNTER_CLOCKWISE\nM4\nSPINDLE_STOP\nM5\nCOOLANT_ON\nM8\nCOOLANT_OFF\nM9\n"
    "PROGRAM_END\nM30\nPROGRAM_STOP\nEND\nFEEDRATE\nF\n1\nM5.3\nSPINDLE_SPEED\nS\n1\nM5.0\n"
    "1ST_COORDINATE_INCR\nU\n1\nM5.3\n2ND_COORDINATE_INCR\nV\n1\nM5.3\n"
    "3RD_COORDINATE_INCR\nW\n1\nM5.3\n1ST_COORDINATE\nX\n1\nM5.3\n2ND_COORDINATE\nY\n1\nM5.3\n"
    "3RD_COORDINATE\nZ\n1\nM5.3\n1ST_CIRCLE_CENTER_COORDINATE\nI\n1\nM5.3\n"
    "2ND_CIRCLE_CENTER_COORDINATE\nJ\n1\nM5.3\n3RD_CIRCLE_CENTER_COORDINATE\nK\n1\nM5.3\n"
    "CIRCLE_CENTER_ABS\n0\n";

const std::string_view kLathe =
    "##### Header\n#FILE:       UNCODED\n##### Toolmachine Section\n"
    "MFG_CLASS_NAME\nNC_LATHE_MACHINE\nCOMMENT_START\n*\nCOMMENT_END\n*/\nRECORD_NUMBER\nN\n"
    "RAPID_LATHE\nG0\nLINEAR_INTERPOLATION_LATHE\nG1\nCIRCULAR_INTERPOLATION_RIGHT_LATHE\nG2\n"
    "CIRCULAR_INTERPOLATION_LEFT\nG3\nABSOLUTE_ON\nG90\nINCREMENTAL_ON\nG91\n"
    "FEEDRAT_MMPM\nG98\nFEEDRAT_MMPR\nG99\nSPINDLE_CLOCKWISE\nM3\n"
    "SPINDLE_COUNTER_CLOCKWISE\nM4\nSPINDLE_OFF_LATHE\nM5\nCOOLANT_ON\nM8\nCOOLANT_OFF\nM9\n"
    "REV_TLCHG_COM\nT\nREV_TLCHG_TLADR\nD\nPROGRAM_END\nM30\n"
    "ZX_LATHE_X_ASSIGNMENT\n-2*Z\nZX_LATHE_Z_ASSIGNMENT\n+1*X\n"
    "FEEDRATE\nF\n1\nM5.3\nSPINDLE_SPEED\nS\n1\nM5.0\n1ST_COORDINATE_LATHE\nX\n1\nM5.3\n"
    "3RD_COORDINATE_LATHE\nZ\n1\nM5.2147483647\n1ST_COORDINATE_INCR_LATHE\nU\n1\nM5.3\n"
    "1ST_CIRCLE_CENTER_COORDINATE\nI\n1\nM5.3\n3RD_CIRCLE_CENTER_COORDINATE\nK\n1\nM5.3\n"
    "CIRCLE_CENTER_ABS\n1\n";

namespace {

std::string codeOld(std::string_view plain) {
    std::string file;
    for (std::size_t end = 0; !plain.empty(); plain.remove_prefix(end)) {
        end = plain.find('\n');
        end = end == std::string_view::npos ? plain.size() : end + 1;
        const std::string line(plain.substr(0, end).substr(0, plain.find('\n')));
        OldPhysicalLines physical;
        if (codeOldLine(line.c_str(), physical) == 0) {
            file.append(physical.first.data()).append("\n").append(physical.second.data());
            file.append("\n").append(physical.third.data()).append("\n");
        }
    }
    return file;
}

std::string codeNew(std::string_view plain) {
    std::string copy(plain);
    std::FILE* const in = fmemopen(copy.data(), copy.size(), "r");
    std::string file;
    if (in != nullptr) {
        const CharFeldOwner lines(fp2CharFeld(in));
        (void)std::fclose(in);
        (void)ppcrypt(0, lines.get());
        for (char* const* line = lines.get(); *line != nullptr; ++line) {
            file.append(*line).append("\n");
        }
    }
    return file;
}

// Up to the next newline, which is passed over.
std::string_view takeLine(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

} // namespace

std::string parameterFileOf(std::string_view input) {
    constexpr std::string_view kOld = "CODE OLD\n";
    constexpr std::string_view kNew = "CODE NEW\n";
    if (input.starts_with(kOld)) {
        return codeOld(input.substr(kOld.size()));
    }
    return input.starts_with(kNew) ? codeNew(input.substr(kNew.size())) : std::string(input);
}

std::string bundledDialect(const std::string& name) {
    std::ifstream file(DIALECTS "/" + name + ".pp");
    std::string text;
    for (std::string line; std::getline(file, line);) {
        if (line == "REV_NOT_CONVERTED" || line == "REV_NO_EFFECT") {
            std::getline(file, line); // long lists of the same
        } else if (!line.starts_with("# ")) {
            text.append(line).append("\n");
        }
    }
    if (text.empty()) {
        (void)std::fprintf(stderr, "there is no dialect %s\n", name.c_str());
        std::abort();
    }
    return text + "REV_MOST_BLOCKS\n50\n";
}

std::string withShortNumbers(std::string_view text) {
    constexpr int kMostDigits = 3;
    std::string result;
    int digits = 0;
    for (const char c : text) {
        digits = c >= '0' && c <= '9' ? digits + 1 : 0;
        if (digits <= kMostDigits) {
            result += c;
        }
    }
    return result;
}

std::string takeEntries(std::string_view& text, std::span<const Key> keys) {
    std::string entries;
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        if (line.empty()) {
            break;
        }
        std::string_view value = line.substr(std::min(line.find(' ') + 1, line.size()));
        auto key = std::ranges::find(keys, line.substr(0, line.find(' ')), &Key::text);
        if (key == keys.end()) {
            key = keys.begin() + static_cast<unsigned char>(line[0]) % keys.size();
            value = line.substr(1);
        }
        entries.append(key->text).append("\n").append(value).append("\n");
        if (key->form == Key::Form::kAddress) {
            entries += "1\nM5.3\n";
        }
    }
    return entries;
}
