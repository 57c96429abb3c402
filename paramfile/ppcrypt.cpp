#include "paramfile/ppcrypt.h"
#include <cstring>
int ppcrypt(int, char** lines) {
    for (; *lines; ++lines) {
        if (std::strncmp(*lines, "#FILE:", 6) == 0 && std::strstr(*lines, "UNCODED"))
            return 0;
    }
    return 39999;
}
