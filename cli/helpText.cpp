#include "cli/helpText.h"

#include "driver/returnCodes.h"

std::string helpText(const char* usage) {
    std::string text(usage);
    text += "\n"
            "Options may also be spelled -P; -Nc, -nC, -NC; -Of, -oF, -OF; -L. Further ones:\n"
            "  -ot APT     kind of output; APT is the default and the only kind.\n"
            "              Also -Ot, -oT, -OT.\n"
            "  --help      this text, as the only argument.\n"
            "  --version   version and banner, as the only argument.\n"
            "\n"
            "Return codes (the shell sees the low 8 bits):\n"
            "      0  success\n";
    for (const ReturnCode& row : returnCodes()) {
        std::string number = std::to_string(row.code);
        number.insert(0, 7 - number.size(), ' ');
        text += number + "  " + row.meaning + ":\n           " + row.remedy + "\n";
    }
    return text;
}
