#pragma once

#include "driver/NCScan.h"
#include "softCommon/FileOwner.h"

#include <string>

/// The two inputs of a run on their way to the library.
class InputFiles {
public:
    /// `parameter` is a file, a dialect by name, or "-" for standard input; `nc` a file or "-".
    InputFiles(const char* parameter, const char* nc);

    /// What to call the parameter file: the file that was found for a dialect.
    [[nodiscard]] const char* ParameterName() const noexcept { return m_parameterName.c_str(); }
    /// The name under which the library opens it, once it is tested: that of a copy when it comes
    /// from a pipe, which cannot be rewound.
    [[nodiscard]] const char* OpenedParameterName() const noexcept { return m_opened.c_str(); }

    /// Tests before any output is touched whether both can be opened, and that no program is given
    /// as parameter file. Returns 0 or a return code, whose failure `scan` then keeps.
    [[nodiscard]] int Test(NCScan& scan);
    /// Reads the tested parameter file as the run will, and writes nothing: a run that cannot begin
    /// is known before it empties what the last one wrote. Returns as Test does.
    [[nodiscard]] int TestDialect(NCScan& scan) const;
    /// Whether the NC file seems to be a parameter file.
    [[nodiscard]] bool HasParameterFileAsProgram() const;

private:
    [[nodiscard]] int testParameterFile(NCScan& scan);
    [[nodiscard]] int copyParameterFile(NCScan& scan);

    std::string m_parameterName;
    std::string m_opened;
    const char* m_nc;
    FileOwner m_copy;
};
