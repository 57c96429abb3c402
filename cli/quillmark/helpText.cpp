#include "cli/quillmark/helpText.h"

#include "driver/returnCodes.h"

void printHelp(std::FILE* stream, const char* usage) noexcept {
    (void)std::fputs(usage, stream);
    (void)std::fputs(
        "\n"
        "Options may also be spelled -P; -Nc, -nC, -NC; -Of, -oF, -OF; -L. Further ones:\n"
        "  -p NAME     also takes a dialect of --dialects, when no file has that name.\n"
        "  -           is standard input for -nc and -p, standard output for -of, -l, --report.\n"
        "  -ot APT     kind of output; APT is the default and the only kind.\n"
        "              Also -Ot, -oT, -OT.\n"
        "  --summary   figures on standard error: blocks read, statements by kind, seconds,\n"
        "              and notes of what is common and mostly harmless.\n"
        "  --quiet     nothing but errors on standard error.\n"
        "  --strict    exit status 3, after the whole output, when text was not recognised\n"
        "              or a warning was given.\n"
        "  --skip-blocks\n"
        "              leaves out blocks with a skip mark, as with the operator's switch on.\n"
        "  --subprograms DIR\n"
        "              looks for subprograms in DIR, too; may be repeated.\n"
        "  --report FILE\n"
        "              writes what was not understood, the warnings and the figures as JSON.\n"
        "  --whole     writes to NAME.part; output and log take their names when the exit\n"
        "              status is 0, so a run that fails leaves the last ones.\n"
        "  --view FILE makes a page (.html) or a picture (.svg, .png) of the path, by\n"
        "              quillmark-view, when the output is complete.\n"
        "  --dialects  the dialects that are ready to use, as the only argument;\n"
        "              QUILLMARK_DIALECTS names a folder of others.\n"
        "  --help, -h  this text, as the only argument.\n"
        "  --version   version and banner, as the only argument.\n"
        "\n"
        "Several programs in one run, each in a process of its own:\n"
        "  quillmark -p paramfile --into DIR [option ...] ncfile ...\n"
        "  --into DIR  makes NAME.apt, NAME.log and NAME.json of each program there.\n"
        "  --jobs N    how many programs at once; one for each processor is the default.\n"
        "  --resume    leaves programs alone whose NAME.apt is newer than they and paramfile,\n"
        "              and was made with it.\n"
        "  --report FILE\n"
        "              writes what became of each program as JSON.\n"
        "The exit status is that of the worst program.\n"
        "\n"
        "Exit status 2: an option with two dashes is used wrongly, or its file cannot be made.\n"
        "129, 130, 143: SIGHUP, SIGINT or SIGTERM stopped the conversion behind a block.\n"
        "\n"
        "Return codes (the shell sees the low 8 bits):\n"
        "      0  success\n",
        stream);
    for (const ReturnCode& row : returnCodes()) {
        std::fprintf(stream, "%7d  %s:\n           %s\n", row.code, row.meaning, row.remedy);
    }
}
