#include "driver/fileIdentity.h"

#include <sys/stat.h>

namespace {

bool isSame(const struct stat& left, const struct stat& right) noexcept {
    return S_ISREG(left.st_mode) && left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

bool identify(const char* name, struct stat& identity) noexcept {
    return name != nullptr && stat(name, &identity) == 0;
}

bool identify(std::FILE* file, struct stat& identity) noexcept {
    return file != nullptr && fstat(fileno(file), &identity) == 0;
}

template<class Left, class Right>
bool areSame(Left left, Right right) noexcept {
    struct stat l {};
    struct stat r {};
    return identify(left, l) && identify(right, r) && isSame(l, r);
}

} // namespace

bool isSameRegularFile(const char* left, const char* right) noexcept {
    return areSame(left, right);
}

bool isSameRegularFile(std::FILE* left, std::FILE* right) noexcept { return areSame(left, right); }

bool isSameRegularFile(std::FILE* left, const char* right) noexcept { return areSame(left, right); }

bool isDirectory(std::FILE* file) noexcept {
    struct stat identity {};
    return fstat(fileno(file), &identity) == 0 && S_ISDIR(identity.st_mode);
}
