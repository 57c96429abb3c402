/* A host in C that loads quillmark at run time: loaded LIBRARY DIALECT PROGRAM OUTPUT [LOG] */
#include <dlfcn.h>
#include <quillmark.h>
#include <stdio.h>
#include <string.h>

typedef int Convert(const char* paramfile, const char* ncfile, const char* outputfile,
                    const char* logfile, eOutputType type);
typedef void Banner(char* buffer, int* length);

/* dlsym gives an object pointer; its bytes are copied, since C knows no cast to a function. */
static int find(void* library, const char* name, void* function, size_t size) {
    void* const symbol = dlsym(library, name);
    if (symbol == NULL) {
        fprintf(stderr, "%s\n", dlerror());
        return 0;
    }
    memcpy(function, &symbol, size);
    return 1;
}

int main(int argc, char** argv) {
    if (argc < 5) {
        fprintf(stderr, "usage: %s LIBRARY DIALECT PROGRAM OUTPUT [LOG]\n", argv[0]);
        return 2;
    }
    void* const library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    if (library == NULL) {
        fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    Convert* convert = NULL;
    Banner* banner = NULL;
    int code = -1;
    if (find(library, "dllentry", &convert, sizeof convert) &&
        find(library, "gtvers", &banner, sizeof banner)) {
        char text[64] = "";
        int length = 0;
        banner(text, &length);
        printf("%.*s\n", length, text);
        code = convert(argv[2], argv[3], argv[4], argc > 5 ? argv[5] : NULL, eOutputAPT);
    }
    dlclose(library);
    if (code != 0) {
        fprintf(stderr, "conversion failed with code %d\n", code);
        return 1;
    }
    return 0;
}
