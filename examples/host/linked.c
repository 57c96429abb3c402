/* A host in C that is linked with quillmark: linked DIALECT PROGRAM OUTPUT [LOG] */
#include <quillmark.h>
#include <stdio.h>

int main(int argc, char** argv) {
    if (argc < 4) {
        fprintf(stderr, "usage: %s DIALECT PROGRAM OUTPUT [LOG]\n", argv[0]);
        return 2;
    }
    const char* const log = argc > 4 ? argv[4] : NULL;
    const int code = dllentry(argv[1], argv[2], argv[3], log, eOutputAPT);
    if (code != 0) {
        fprintf(stderr, "conversion failed with code %d\n", code);
        return 1;
    }
    return 0;
}
