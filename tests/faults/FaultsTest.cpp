#include "cli/blockText.h"
#include "cli/errorLine.h"
#include "driver/Controller.h"
#include "driver/returnCodes.h"
#include "paramfile/codeOldLine.h"
#include "paramfile/ppcrypt.h"
#include "softCommon/CStringUtil/CharFeld.h"
#include "softCommon/CStringUtil/fixedField.h"
#include "softCommon/CStringUtil/splitString.h"
#include "tests/faults/Fault.h"
#include "tests/support/Quiet.h"
#include "tests/support/TempFolder.h"
#include "tests/support/dialects.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

int paramToolMain(int argc, char** argv);

using testing::AnyOf;
using testing::StartsWith;

namespace {

std::string codedNew(const std::string& plainFile) {
    const CharFeldOwner lines(file2CharFeld(plainFile.c_str()));
    lines.get()[1][0] = '\0'; // the line that says UNCODED
    EXPECT_EQ(ppcrypt(0, lines.get()), 0);
    std::string file;
    for (char* const* line = lines.get(); *line != nullptr; ++line) {
        file.append(*line).append("\n");
    }
    return file;
}

// The first lines of every key hold a machine with two rotary axes.
std::string oldLines() {
    std::ifstream in(OLD_LINES);
    std::string text;
    std::string line;
    for (int i = 0; i < 60 && std::getline(in, line); ++i) {
        text.append(line).append("\n");
    }
    return text;
}

std::string codedOld(const std::string& plain) {
    std::istringstream lines(plain);
    std::string file;
    for (std::string line; std::getline(lines, line);) {
        OldPhysicalLines physical;
        EXPECT_EQ(codeOldLine(line.c_str(), physical), 0);
        file.append(physical.first.data()).append("\n").append(physical.second.data());
        file.append("\n").append(physical.third.data()).append("\n");
    }
    return file;
}

std::string programText() {
    std::string text = "N1 (part) G90 G94 F1000. T1 M6\nS500 M3 M8\nG0 X10. Y0 Z25.5\n";
    for (int i = 0; i < 20; ++i) {
        text += "G1 Z-" + std::to_string(i) + ".5 F250.\nG2 X0 Y-10. I-10. J0\nG3 X10 Y0 I10\n";
    }
    return text + "G91 G0 Z26.\nM9 M5\nM30\n";
}

struct Outputs {
    std::string apt;
    std::string log;
    auto operator<=>(const Outputs&) const = default;
};

// Keeps the file that others have open, and allocates nothing.
void overwrite(const std::string& path, const std::string& text) {
    const int file = open(path.c_str(), O_WRONLY | O_TRUNC);
    EXPECT_EQ(write(file, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    close(file);
}

// A program, and a dialect of each generation.
class Faults : public testing::Test {
protected:
    // Allocates nothing itself, so that every failing allocation is the library's.
    [[nodiscard]] int convert(const std::string& dialect) const {
        const Quiet quiet;
        (void)unlink(m_apt.c_str());
        (void)unlink(m_log.c_str());
        return dllentry(dialect.c_str(), m_program.c_str(), m_apt.c_str(), m_log.c_str(),
                        eOutputAPT);
    }
    [[nodiscard]] Outputs outputs() const { return {readFile(m_apt), readFile(m_log)}; }
    [[nodiscard]] Outputs converted(const std::string& dialect) const {
        EXPECT_EQ(convert(dialect), 0) << dialect;
        return outputs();
    }

    const TempFolder m_folder;
    const std::string m_program = m_folder.write("part.nc", programText());
    const std::string m_apt = m_folder.path("part.apt");
    const std::string m_log = m_folder.path("part.log");
    const std::string m_plain =
        m_folder.write("plain.pp", mill({{"MFG_CLASS_NAME", "MILLING_MACHINE"}}));
    const std::string m_coded = m_folder.write("coded.pp", codedNew(m_plain));
    const std::string m_old = m_folder.write("old.pp", codedOld(oldLines()));
};

// Fails each call in turn until a run passes without reaching the fault.
TEST_F(Faults, OfEveryCallGiveACodeOrTheRightFiles) {
    struct Row {
        FaultKind kind;
        std::set<int> codes; // an optional step may fail without harm: 0
        long atLeast;        // faults
    };
    const Row rows[] = {
        {FaultKind::kMemory, {0, kMemoryExhausted}, 700},
        {FaultKind::kMemoryForGood, {0, kMemoryExhausted}, 700},
        {FaultKind::kOpen,
         {kNCFileUnreadable, kOutputFileUnwritable, kLogFileUnwritable, kParameterFileUnreadable,
          kNoTemporaryFile, kUpdateFailed},
         17},
        {FaultKind::kRead,
         {kNCFileUnreadable, kParameterFileUnreadable, kParameterFileEndsEarly, kUpdateFailed},
         300},
        {FaultKind::kWrite,
         {kOutputFileUnwritable, kLogFileUnwritable, kNoTemporaryFile, kUpdateFailed},
         500},
        {FaultKind::kSeek, {kRewindFailed}, 6},
    };
    for (const auto& [kind, codes, atLeast] : rows) {
        std::set<int> seen;
        long faults = 0;
        for (const std::string& dialect : {m_plain, m_coded, m_old}) {
            const Outputs expected = converted(dialect);
            bool isReached = true;
            for (long call = 0; isReached; ++call) {
                int code = 0;
                {
                    const Fault fault(kind, call);
                    code = convert(dialect);
                    isReached = fault.happened();
                }
                if (code == 0) {
                    EXPECT_TRUE(outputs() == expected) << dialect << ", call " << call;
                }
                if (isReached) {
                    seen.insert(code);
                    ++faults;
                }
            }
        }
        EXPECT_EQ(seen, codes) << "kind " << static_cast<int>(kind);
        EXPECT_GE(faults, atLeast) << "kind " << static_cast<int>(kind);
        RecordProperty("faults" + std::to_string(static_cast<int>(kind)), static_cast<int>(faults));
    }
}

// The tool for parameter files, whose main function has another name here.
TEST_F(Faults, OfTheParameterToolLeaveTheOldFileOrTheNew) {
    const std::string lines = m_folder.write("old.txt", oldLines());
    const std::string out = m_folder.path("out.pp");
    const std::vector<std::string> commands[] = {
        {"encode", m_plain, out}, {"encode-old", lines, out}, {"decode", m_coded, out},
        {"update", m_old, out},   {"check", m_plain},
    };
    const auto run = [](const std::vector<char*>& argv) {
        const Quiet quiet;
        return paramToolMain(static_cast<int>(argv.size()) - 1, const_cast<char**>(argv.data()));
    };
    for (const auto& command : commands) {
        std::string program = "quillmark-param";
        std::vector<char*> argv = {program.data()};
        for (const std::string& argument : command) {
            argv.push_back(const_cast<char*>(argument.c_str()));
        }
        argv.push_back(nullptr);
        EXPECT_EQ(run(argv), 0) << command[0];
        const std::string expected = readFile(out);
        for (const FaultKind kind :
             {FaultKind::kMemory, FaultKind::kMemoryForGood, FaultKind::kOpen, FaultKind::kRead,
              FaultKind::kWrite, FaultKind::kSeek}) {
            bool isReached = true;
            for (long call = 0; isReached; ++call) {
                m_folder.write("out.pp", "before");
                int status = 0;
                {
                    const Fault fault(kind, call);
                    status = run(argv);
                    isReached = fault.happened();
                }
                const bool hasOutput = command.size() == 3;
                EXPECT_EQ(readFile(out), status == 0 && hasOutput ? expected : "before")
                    << command[0] << " " << static_cast<int>(kind) << " " << call;
                EXPECT_TRUE(status == 0 || (status == 1 && isReached)) << command[0] << status;
            }
        }
    }
}

// The routines on strings say that memory ran out, and keep nothing of what they began.
TEST_F(Faults, OfTheStringRoutinesGiveNothing) {
    std::string text;
    for (int line = 0; line < 300; ++line) {
        text += std::string(static_cast<std::size_t>(line), 'x') + "\n";
    }
    const std::string file = m_folder.write("lines", text);
    struct Row {
        std::function<int()> count; // of strings made; 0 when memory ran out
        int complete;
    };
    const Row rows[] = {
        {[] {
             int count = -1;
             char** fields = splitString(" a, b,,,,,,,,,,,,,,,,,,,,,z", ",", 1, &count);
             for (int more = 0; more < 20 && fields != nullptr; ++more) {
                 fields = add_splitStringArray(fields, "more", &count);
             }
             free_splitStringArray(fields, count);
             return count;
         },
         43},
        {[] {
             const std::unique_ptr<char, decltype(&std::free)> copy(s2ccpy("abc", 2), std::free);
             return copy != nullptr && std::strcmp(copy.get(), "ab") == 0 ? 1 : 0;
         },
         1},
        {[&] {
             errno = 0;
             const CharFeldOwner lines(file2CharFeld(file.c_str()));
             return errno == ENOMEM ? 0 : sizeofCharFeld(lines.get());
         },
         300},
        {[] {
             CharFeldOwner lines;
             for (int count = 0; count < 45;) {
                 lines.reset(addCharFeld20(lines.release(), &count, "line"));
                 if (lines == nullptr) {
                     return 0;
                 }
             }
             return sizeofCharFeld(lines.get());
         },
         45},
    };
    for (const auto& [count, complete] : rows) {
        bool isReached = true;
        for (long call = 0; isReached; ++call) {
            int made = 0;
            {
                const Quiet quiet;
                const Fault fault(FaultKind::kMemory, call);
                made = count();
                isReached = fault.happened();
            }
            EXPECT_EQ(made, isReached ? 0 : complete) << "call " << call;
        }
    }
}

// A limit of the process, not of this test's own streams.
class Limit {
public:
    Limit(__rlimit_resource_t resource, rlim_t value) : m_resource(resource) {
        getrlimit(m_resource, &m_before);
        const rlimit lower{value, m_before.rlim_max};
        setrlimit(m_resource, &lower);
    }
    ~Limit() { setrlimit(m_resource, &m_before); }
    Limit(const Limit&) = delete;
    Limit& operator=(const Limit&) = delete;

private:
    __rlimit_resource_t m_resource;
    rlimit m_before{};
};

TEST_F(Faults, AFullDiskLeavesTheBeginningOfTheFilesAndACode) {
    const Outputs expected = converted(m_plain);
    const std::size_t largest = std::max(expected.apt.size(), expected.log.size());
    (void)std::signal(SIGXFSZ, SIG_IGN);
    for (std::size_t room = 0; room < largest; room += 151) {
        int code = 0;
        {
            const Limit limit(RLIMIT_FSIZE, room);
            code = convert(m_plain);
        }
        const Outputs left = outputs();
        EXPECT_THAT(expected.apt, StartsWith(left.apt)) << room;
        EXPECT_THAT(expected.log, StartsWith(left.log)) << room;
        EXPECT_THAT(code, AnyOf(kNoTemporaryFile, kLogFileUnwritable, kOutputFileUnwritable));
        EXPECT_EQ(code == kOutputFileUnwritable,
                  left.apt.size() == room && code != kNoTemporaryFile)
            << room;
    }
    (void)std::signal(SIGXFSZ, SIG_DFL);
    EXPECT_TRUE(converted(m_plain) == expected);
}

TEST_F(Faults, WithoutDescriptorsGiveTheCodeOfTheFile) {
    const Outputs expected = converted(m_old);
    // What the test inherited would leave gaps in the numbers.
    const int next = STDERR_FILENO + 1;
    EXPECT_EQ(close_range(next, ~0U, 0), 0);
    std::vector<int> codes;
    do {
        // Quiet takes two and needs a third to begin with.
        const Limit limit(RLIMIT_NOFILE, static_cast<rlim_t>(next) + 3 + codes.size());
        codes.push_back(convert(m_old));
    } while (codes.back() != 0 && codes.size() < 20);
    EXPECT_EQ(codes, (std::vector<int>{kLogFileUnwritable, kParameterFileUnreadable,
                                       kNoTemporaryFile, kUpdateFailed, 0}));
    EXPECT_TRUE(outputs() == expected);
}

TEST_F(Faults, OfInputsThatChangeGiveWhatWasRead) {
    m_folder.write("part.nc", "G1 X1.5 Y2 F100.\nX2 Z-1 S500 M3\n(a comment that says nothing)\n"
                              "G91 X3\nG0 Z100.\nT5 M6\nM30\n");
    const auto result = [this] {
        const int code = convert(m_plain);
        return std::pair(code, outputs());
    };
    for (const std::string& input : {m_program, m_plain}) {
        const auto rewrite = [&](const std::string& text) {
            m_folder.write(input.substr(m_folder.path().size() + 1), text);
        };
        const std::string whole = readFile(input);
        const std::string longer = whole + "X7.\n\nX8.\n";
        std::set<std::pair<int, Outputs>> possible;
        for (std::size_t size = 0; size < longer.size() + kStreamBuffer; size += kStreamBuffer) {
            rewrite(whole.substr(0, size));
            possible.insert(result());
            rewrite(longer.substr(0, size));
            possible.insert(result());
        }
        for (const std::string& change : {std::string(), longer}) {
            bool isReached = true;
            for (long call = 0; isReached; ++call) {
                rewrite(whole);
                const Fault fault(FaultKind::kRead, call, [&] { overwrite(input, change); });
                EXPECT_TRUE(possible.contains(result())) << input << call << change;
                isReached = fault.happened();
            }
        }
        rewrite(whole);
    }
}

// What a user finds after a program that could not be read to its end.
TEST_F(Faults, LeaveTheOutputUpToTheBlockThatIsNamed) {
    const std::string begin = "G1 X1.\nX2.\n";
    m_folder.write("part.nc", begin);
    const std::string expected = converted(m_plain).apt;
    m_folder.write("part.nc", begin + "(" + std::string(kStreamBuffer, 'c') + ")\nX3.\n");
    Controller controller;
    int code = 0;
    for (long call = 0; controller.BlockNumber() == 0; ++call) {
        const Fault fault(FaultKind::kRead, call);
        code = controller.execute(m_plain.c_str(), m_program.c_str(), m_apt.c_str(), nullptr,
                                  eOutputAPT);
    }
    std::array<char, 1000> said{};
    std::FILE* const stream = fmemopen(said.data(), said.size(), "w");
    const ConversionFiles files{"mill.pp", "part.nc", "part.apt", nullptr};
    printErrorLine(stream, "quillmark", code, files, controller.LastFailure());
    printStoppedBlock(stream, controller, files.output);
    (void)std::fclose(stream);
    EXPECT_STREQ(said.data(),
                 "quillmark: error 200: cannot read NC file 'part.nc': Input/output error\n"
                 "quillmark: stopped at block 2: X2.\n"
                 "quillmark: the output written so far stays in 'part.apt'\n");
    EXPECT_EQ(outputs().apt, expected);
}

// Folders that are read-only refuse nobody who is root; these refuse everybody.
TEST_F(Faults, OfUnwritableFilesKeepTheirReason) {
    const int sealed = memfd_create("sealed", MFD_ALLOW_SEALING);
    EXPECT_EQ(fcntl(sealed, F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_WRITE), 0);
    EXPECT_EQ(symlink("loop", m_folder.path("loop").c_str()), 0);
    const std::pair<std::string, int> rows[] = {
        {m_folder.path("missing/x"), ENOENT},
        {m_program + "/x", ENOTDIR},
        {m_folder.path("loop"), ELOOP},
        {m_folder.path(std::string(300, 'n')), ENAMETOOLONG},
        {m_folder.path(), EISDIR},
        {"/proc/self/exe", ETXTBSY},
        {"/proc/self/fd/" + std::to_string(sealed), EPERM},
        {"", ENOENT},
    };
    for (const auto& [name, reason] : rows) {
        Controller controller;
        EXPECT_EQ(controller.execute(m_plain.c_str(), m_program.c_str(), name.c_str(),
                                     m_log.c_str(), eOutputAPT),
                  kOutputFileUnwritable);
        EXPECT_EQ(controller.LastFailure().systemError, reason) << name;
        EXPECT_EQ(controller.execute(m_plain.c_str(), m_program.c_str(), m_apt.c_str(),
                                     name.c_str(), eOutputAPT),
                  kLogFileUnwritable);
        EXPECT_EQ(controller.LastFailure().systemError, reason) << name;
    }
    close(sealed);
}

} // namespace
