#include "driver/returnCodes.h"

#include <algorithm>

namespace {

constexpr ReturnCode kReturnCodes[] = {
    {kCommandLineIncomplete, ConversionFile::kNone,
     "parameter file, NC file or output file missing on the command line",
     "give all of -p, -nc and -of with their values"},
    {kNCFileUnreadable, ConversionFile::kNC, "cannot read NC file",
     "name a readable file after -nc"},
    {kOutputTypeUnsupported, ConversionFile::kNone, "the requested kind of output is not APT",
     "leave out -ot or write -ot APT"},
    {kOutputFileUnwritable, ConversionFile::kOutput, "cannot write output file",
     "name a file that can be written and is no input, with enough room on its disk"},
    {kLogFileUnwritable, ConversionFile::kLog, "cannot write log file",
     "name a file that can be written and is neither an input nor the output, with enough room on "
     "its disk"},
    {kNoParameterFileName, ConversionFile::kNone, "no parameter file name",
     "name the parameter file of the dialect"},
    {kParameterFileUnreadable, ConversionFile::kParameter, "cannot open parameter file",
     "name a readable file after -p"},
    {kParameterFileEndsEarly, ConversionFile::kParameter, "unexpected end of parameter file",
     "the file is empty, or its last key lacks the lines that belong to it"},
    {kCommandValueEmpty, ConversionFile::kParameter, "empty command value in parameter file",
     "give the command its code or leave out its key"},
    {kNoTemporaryFile, ConversionFile::kParameter, "cannot make a temporary copy of parameter file",
     "make room in the folder for temporary files"},
    {kRewindFailed, ConversionFile::kParameter, "cannot rewind parameter file",
     "name a file on a disk, not a pipe"},
    {kUpdateFailed, ConversionFile::kParameter, "cannot convert parameter file of the old format",
     "the file is damaged, or it is no parameter file: the first line of a current one contains "
     "\"Header\""},
    {kDecodeFailed, ConversionFile::kParameter, "cannot decode coded parameter file",
     "the file is damaged or was coded with another key; a plain file says UNCODED in its #FILE: "
     "line"},
    {kKeyValueUnknown, ConversionFile::kParameter, "value not understood in parameter file",
     "write one of the values that the key knows"},
    {kDialectUnsupported, ConversionFile::kParameter, "unsupported dialect in parameter file",
     "programs in conversational format cannot be converted"},
    {kMemoryExhausted, ConversionFile::kNone, "memory exhausted",
     "close other programs and try again"},
    {kBlockUnreadable, ConversionFile::kNC, "block cannot be read in NC file",
     "check its spelling, its brackets and its length"},
    {kNameUnknown, ConversionFile::kNC, "unknown or ill-typed variable or function in NC file",
     "check its name or number, and that it has a value before"},
    {kNotComputable, ConversionFile::kNC, "value cannot be computed in NC file",
     "check divisors and arguments, and the variables in them"},
    {kJumpTargetMissing, ConversionFile::kNC, "label, block number or end missing in NC file",
     "check the target of the jump, or the end of the branch or loop"},
    {kSubprogramMissing, ConversionFile::kNC, "subprogram not found for NC file",
     "put its file beside the program or name its folder with --subprograms"},
    {kProgramEndless, ConversionFile::kNC, "too many calls, statements or blocks in NC file",
     "check the ends of loops and recursions, or raise REV_MOST_BLOCKS in the parameter file"},
    {kProgramAborted, ConversionFile::kNC, "alarm raised by NC file",
     "check the conditions under which it does so"},
    {kAxisUnknown, ConversionFile::kNC, "position of an axis is not known in NC file",
     "give the axis in a rapid block before, or its zero in the parameter file"},
    {kRotaryRefused, ConversionFile::kNC,
     "rotary axis or tool vector that the machine cannot follow in NC file",
     "check the rotary axes of the parameter file, the vector, and the feed of the block"},
    {kBlockRefused, ConversionFile::kNC, "block that a control refuses in NC file",
     "correct the block"},
    {kArcRefused, ConversionFile::kNC, "arc that a control refuses in NC file",
     "correct the arc, or how the parameter file reads centres and radii"},
    {kWordNotConverted, ConversionFile::kNC, "word that is not converted in NC file",
     "take it out of the program"},
    {kInternalError, ConversionFile::kNone, "internal error", "please report it with the input"},
};

} // namespace

std::span<const ReturnCode> returnCodes() noexcept { return kReturnCodes; }

const ReturnCode* findReturnCode(int code) noexcept {
    const auto* const row = std::ranges::find(kReturnCodes, code, &ReturnCode::code);
    return row == std::end(kReturnCodes) ? nullptr : row;
}
