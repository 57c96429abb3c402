#pragma once

#include <string>
#include <vector>

/// What the command line of quillmark-view asks for. All pointers point into its arguments, except
/// the error.
struct ViewOptions {
    std::vector<const char*> apts; ///< one, or two to compare
    std::vector<const char*> logs; ///< at most one for each, in their order
    const char* output = nullptr;  ///< null: no picture
    const char* view = nullptr;    ///< name of the one view; null: all
    double rapid = 0.0;            ///< mm/min; 0: not known
    bool measures = false;
    bool json = false;

    std::string usageError; ///< empty when nothing is wrong
};

[[nodiscard]] ViewOptions readViewOptions(int argc, char** argv);
