#include "apt/APTFactory.h"
#include "driver/Controller.h"
#include "driver/returnCodes.h"
#include "softCommon/CDebugUtil/dbtrace.h"
#include "softCommon/CStringUtil/CharFeld.h"
#include "softCommon/CStringUtil/splitString.h"
#include "tests/faults/Fault.h"
#include "tests/support/Quiet.h"
#include "tests/support/TempFolder.h"
#include "tests/support/dialects.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

int frontEndMain(int argc, char** argv, char** envp);
int paramToolMain(int argc, char** argv);

using testing::AnyOf;
using testing::StartsWith;
using enum FaultKind;

namespace {

std::string programText() {
    std::string text = "N1 (part) G90 G94 F1000. T1 M6\nS500 M3 M8\nG0 X10. Y0 Z25.5\n";
    for (int i = 0; i < 20; ++i) {
        text += "G1 Z-" + std::to_string(i) + ".5 F250.\nG2 X0 Y-10. I-10. J0\nG3 X10 Y0 I10\n";
    }
    return text + "G91 G0 Z26.\nM9 M5\nM30\n";
}

// The first lines of every key hold a machine with two rotary axes.
std::string oldLines() {
    const std::string all = readFile(OLD_LINES);
    return all.substr(0, all.find("*POLAR10")) + "*MAKRO01\nis answered on standard error\n";
}

// The tool for parameter files, whose main function has another name here.
int tool(const char* command, const std::string& in, const char* out) {
    const char* argv[] = {"quillmark-param", command, in.c_str(), out, nullptr};
    return paramToolMain(out == nullptr ? 3 : 4, const_cast<char**>(argv));
}

// Fails the calls of a kind one by one, each in a run of its own, until a run does not reach the
// fault. `check` gets the result of the run, whether a call failed, and its number.
long failEachCall(FaultKind kind, const std::function<int()>& run,
                  const std::function<void(int, bool, long)>& check,
                  const std::function<void()>& action = nullptr) {
    long call = 0;
    for (bool isReached = true; isReached; ++call) {
        int result = 0;
        {
            const Quiet quiet;
            const Fault fault(kind, call, action);
            result = run();
            isReached = fault.happened();
        }
        check(result, isReached, call);
    }
    return call - 1;
}

using Outputs = std::pair<std::string, std::string>; // APT and log

// A program, and a dialect of each generation.
class Faults : public testing::Test {
protected:
    Faults() {
        EXPECT_EQ(tool("encode", m_plain, m_coded.c_str()), 0);
        EXPECT_EQ(tool("encode-old", m_lines, m_old.c_str()), 0);
    }
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
    const std::string m_lines = m_folder.write("old.txt", oldLines());
    const std::string m_plain =
        m_folder.write("plain.pp", mill({{"MFG_CLASS_NAME", "MILLING_MACHINE"},
                                         {"REV_PROGRAM_FRAME", "%"},
                                         {"REV_NO_EFFECT", "G64"},
                                         {"REV_TEXT_OUTPUT", "PPRINT"},
                                         {"REV_PLANE_XY", "G17"},
                                         {"REV_METRIC", "G21"}}));
    const std::string m_coded = m_folder.path("coded.pp");
    const std::string m_old = m_folder.path("old.pp");
};

TEST(FactoryFaults, GiveNoWriterAndNoException) {
    APTFactory factory(nullptr, nullptr);
    const auto gives = [&](auto make) {
        const Fault fault(kMemory, 0);
        return (factory.*make)() != nullptr;
    };
    EXPECT_FALSE(gives(&APTFactory::GetLinearCom) || gives(&APTFactory::GetCirculCom) ||
                 gives(&APTFactory::GetCoolanCom) || gives(&APTFactory::GetSpindlCom) ||
                 gives(&APTFactory::GetFeedRaCom) || gives(&APTFactory::GetMovTypCom) ||
                 gives(&APTFactory::GetRegulaCom) || gives(&APTFactory::GetEndCom) ||
                 gives(&APTFactory::GetTextCom) || gives(&APTFactory::GetControlCom));
}

TEST_F(Faults, OfEveryCallGiveACodeOrTheRightFiles) {
    struct Row {
        FaultKind kind;
        std::set<int> codes; // an optional step may fail without harm: 0
        long atLeast;        // faults
    };
    const Row rows[] = {
        {kMemory, {0, kMemoryExhausted}, 700},
        {kMemoryForGood, {kMemoryExhausted}, 700},
        {kOpen,
         {kNCFileUnreadable, kOutputFileUnwritable, kLogFileUnwritable, kParameterFileUnreadable,
          kNoTemporaryFile, kUpdateFailed},
         17},
        {kRead,
         // 0: the library reads ahead where it sets a place in a file, and does without.
         {0, kNCFileUnreadable, kParameterFileUnreadable, kParameterFileEndsEarly, kUpdateFailed},
         300},
        {kWrite, {kOutputFileUnwritable, kLogFileUnwritable, kNoTemporaryFile, kUpdateFailed}, 500},
        // 0: the second look at a program that does not move may fail.
        {kSeek, {0, kRewindFailed}, 6},
    };
    for (const auto& [kind, codes, atLeast] : rows) {
        std::set<int> seen;
        long faults = 0;
        for (const std::string& dialect : {m_plain, m_coded, m_old}) {
            const Outputs expected = converted(dialect);
            const auto check = [&](int code, bool isReached, long call) {
                const auto [apt, log] = outputs();
                EXPECT_TRUE(code != 0 || outputs() == expected) << dialect << ", call " << call;
                if (kind == kWrite && code != kNoTemporaryFile && code != kUpdateFailed) {
                    EXPECT_THAT(expected.first, StartsWith(apt)) << dialect << ", call " << call;
                    EXPECT_THAT(expected.second, StartsWith(log)) << dialect << ", call " << call;
                }
                if (isReached) {
                    seen.insert(code);
                }
            };
            faults += failEachCall(
                kind, [&] { return convert(dialect); }, check);
        }
        EXPECT_EQ(seen, codes) << "kind " << static_cast<int>(kind);
        EXPECT_GE(faults, atLeast) << "kind " << static_cast<int>(kind);
    }
}

TEST_F(Faults, OfTheFrontEndGiveAStatusOrTheRightFiles) {
    const std::string report = m_folder.path("report");
    const char* argv[] = {
        "quillmark",    "-p",          m_old.c_str(), "-nc",         m_program.c_str(),
        "-of",          m_apt.c_str(), "-l",          m_log.c_str(), "--report",
        report.c_str(), "--summary",   nullptr};
    const Outputs expected = converted(m_old);
    for (const FaultKind kind : {kMemory, kMemoryForGood, kOpen, kRead, kWrite, kSeek}) {
        const long faults = failEachCall(
            kind,
            [&] {
                return frontEndMain(static_cast<int>(std::size(argv)) - 1, const_cast<char**>(argv),
                                    environ);
            },
            [&](int status, bool isReached, long call) {
                EXPECT_TRUE(status != 0 ||
                            (outputs() == expected && readFile(report).ends_with("}\n")))
                    << static_cast<int>(kind) << " " << call;
                EXPECT_TRUE(status == 0 || isReached) << status;
            });
        EXPECT_GE(faults, 3) << static_cast<int>(kind);
    }
}

TEST_F(Faults, OfTheParameterToolLeaveTheOldFileOrTheNew) {
    const std::string out = m_folder.path("out.pp");
    const std::pair<const char*, std::string> commands[] = {{"encode", m_plain},
                                                            {"encode-old", m_lines},
                                                            {"decode", m_coded},
                                                            {"update", m_old},
                                                            {"check", m_plain}};
    for (const auto& command : commands) {
        const bool isCheck = command.first == std::string("check");
        const auto run = [&] {
            return tool(command.first, command.second, isCheck ? nullptr : out.c_str());
        };
        m_folder.write("out.pp", "before");
        EXPECT_EQ(run(), 0) << command.first;
        const std::string expected = readFile(out);
        EXPECT_EQ(expected == "before", isCheck) << command.first;
        for (const FaultKind kind : {kMemory, kMemoryForGood, kOpen, kRead, kWrite, kSeek}) {
            m_folder.write("out.pp", "before");
            failEachCall(kind, run, [&](int status, bool isReached, long call) {
                EXPECT_EQ(readFile(out), status == 0 ? expected : "before")
                    << command.first << " " << static_cast<int>(kind) << " " << call;
                EXPECT_TRUE(status == 0 || (status == 1 && isReached)) << command.first << status;
                m_folder.write("out.pp", "before");
            });
        }
    }
    const std::filesystem::directory_iterator files(m_folder.path());
    EXPECT_EQ(std::distance(begin(files), end(files)), 6) << "a temporary file stays";
}

// The routines on strings say that memory ran out, and keep nothing of what they began.
TEST_F(Faults, OfTheStringRoutinesGiveNothing) {
    // One line outgrows its buffer twice, and all of them their array.
    const std::string file =
        m_folder.write("lines", std::string(600, 'x') + std::string(300, '\n'));
    // Routines that give the number of strings made, or 0 when memory ran out; the number made.
    const std::pair<std::function<int()>, int> rows[] = {
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
        {[&] {
             errno = 0;
             const CharFeldOwner lines(file2CharFeld(file.c_str()));
             return errno == ENOMEM ? 0 : sizeofCharFeld(lines.get());
         },
         300},
        {[] {
             int count = 0;
             CharFeldOwner lines(addCharFeld20(nullptr, &count, "line"));
             while (lines != nullptr && count < 45) {
                 lines.reset(addCharFeld20(lines.release(), &count, "line"));
             }
             return sizeofCharFeld(lines.get());
         },
         45},
    };
    for (const auto& [count, complete] : rows) {
        failEachCall(kMemory, count, [&, complete = complete](int made, bool isReached, long call) {
            EXPECT_EQ(made, isReached ? 0 : complete) << "call " << call;
        });
    }
}

TEST(Fault, OfTheTraceLeavesItUninitialised) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_EQ((Fault(kMemory, 0), dbinit()), 1);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), StartsWith("dbinit (malloc db_root): "));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Debugging nicht initialisiert!\nBitte zuerst dbinit aufrufen!\n"
              "Error in dbinit. Rc=1\n");
    EXPECT_EQ(dbinit_no(), 0);
    dbexit();
}

// Runs the action under a limit of the process.
template<class Action>
auto limited(__rlimit_resource_t resource, rlim_t value, const Action& action) {
    rlimit before{};
    getrlimit(resource, &before);
    const rlimit lower{value, before.rlim_max};
    setrlimit(resource, &lower);
    const auto result = action();
    setrlimit(resource, &before);
    return result;
}

TEST_F(Faults, AFullDiskLeavesTheBeginningOfTheFilesAndACode) {
    const auto [apt, log] = converted(m_plain);
    (void)std::signal(SIGXFSZ, SIG_IGN);
    for (std::size_t room = 0; room < std::max(apt.size(), log.size()); room += 151) {
        const int code = limited(RLIMIT_FSIZE, room, [this] { return convert(m_plain); });
        const auto [leftApt, leftLog] = outputs();
        EXPECT_THAT(apt, StartsWith(leftApt)) << room;
        EXPECT_THAT(log, StartsWith(leftLog)) << room;
        EXPECT_THAT(code, AnyOf(kNoTemporaryFile, kLogFileUnwritable, kOutputFileUnwritable));
        EXPECT_EQ(code == kOutputFileUnwritable, leftApt.size() == room && code != kNoTemporaryFile)
            << room;
    }
    (void)std::signal(SIGXFSZ, SIG_DFL);
    EXPECT_EQ(converted(m_plain), Outputs(apt, log));
}

TEST_F(Faults, WithoutDescriptorsGiveTheCodeOfTheFile) {
    const Outputs expected = converted(m_old);
    // What the test inherited would leave gaps in the numbers.
    constexpr int kNext = STDERR_FILENO + 1;
    EXPECT_EQ(close_range(kNext, ~0U, 0), 0);
    rlim_t room = kNext + 3; // Quiet takes two and needs a third to begin with
    for (const int code : std::initializer_list<int>{kLogFileUnwritable, kParameterFileUnreadable,
                                                     kNoTemporaryFile, kUpdateFailed, 0}) {
        EXPECT_EQ(limited(RLIMIT_NOFILE, room++, [this] { return convert(m_old); }), code);
    }
    EXPECT_EQ(outputs(), expected);
}

// Messages would land in a file that took the place of standard error.
TEST_F(Faults, OfMissingStandardDescriptorsReachNoFile) {
    const Outputs expected = converted(m_old);
    for (const std::vector<int>& missing : {std::vector{0}, {2}, {1, 2}, {0, 1, 2}}) {
        std::vector<int> kept;
        for (const int descriptor : missing) {
            kept.push_back(fcntl(descriptor, F_DUPFD, 10));
            close(descriptor);
        }
        const int code =
            dllentry(m_old.c_str(), m_program.c_str(), m_apt.c_str(), m_log.c_str(), eOutputAPT);
        for (std::size_t i = 0; i < missing.size(); ++i) {
            const bool isFree = fcntl(missing[i], F_GETFD) == -1;
            dup2(kept[i], missing[i]);
            close(kept[i]);
            EXPECT_TRUE(isFree) << missing[i];
        }
        EXPECT_EQ(code, 0) << missing.size();
        EXPECT_EQ(outputs(), expected) << missing.size();
    }
}

TEST_F(Faults, OfInputsThatChangeGiveWhatWasRead) {
    m_folder.write("part.nc", "G1 X1.5 Y2 F100.\nX2 Z-1 S500 M3\n(a comment that says nothing)\n"
                              "G91 X3\nG0 Z100.\nT5 M6\nM30\n");
    for (const std::string name : {"part.nc", "plain.pp"}) {
        const std::string whole = m_folder.read(name);
        const std::string longer = whole + "X7.\n\nX8.\n";
        const auto convertWith = [&](const std::string& text) {
            m_folder.write(name, text);
            return convert(m_plain);
        };
        std::set<std::pair<int, Outputs>> possible;
        for (std::size_t size = 0; size < longer.size() + kStreamBuffer; size += kStreamBuffer) {
            for (const std::string& text : {whole, longer}) {
                const int code = convertWith(text.substr(0, size));
                possible.emplace(code, outputs());
            }
        }
        // Writing keeps the file that the conversion has open.
        for (const std::string& change : {std::string(), longer}) {
            failEachCall(
                kRead, [&] { return convertWith(whole); },
                [&](int code, bool /*isReached*/, long call) {
                    EXPECT_TRUE(possible.contains({code, outputs()})) << name << call << change;
                },
                [&] { m_folder.write(name, change); });
        }
        m_folder.write(name, whole);
    }
}

// What a user finds after a program that could not be read to its end.
TEST_F(Faults, LeaveTheOutputUpToTheBlockThatIsNamed) {
    const std::string begin = "G1 X1.\nX2.\n";
    m_folder.write("part.nc", begin);
    const std::string expected = converted(m_plain).first;
    m_folder.write("part.nc", begin + "(" + std::string(kStreamBuffer, 'c') + ")\nX3.\n");
    Controller controller;
    int code = 0;
    for (long call = 0; controller.CurrentBlock().GetPlace().number == 0; ++call) {
        const Fault fault(kRead, call);
        code = controller.execute(m_plain.c_str(), m_program.c_str(), m_apt.c_str(), nullptr,
                                  eOutputAPT);
    }
    EXPECT_EQ(code, kNCFileUnreadable);
    EXPECT_EQ(controller.LastFailure().systemError, EIO);
    EXPECT_EQ(controller.CurrentBlock().GetPlace().line, 2);
    EXPECT_EQ(controller.CurrentBlock().Text(), "X2.");
    EXPECT_EQ(outputs().first, expected);
}

TEST_F(Faults, OfUnwritableFilesKeepTheirReason) {
    chmod(m_folder.path().c_str(), 0777);
    mkdir(m_folder.path("locked").c_str(), 0555);
    const std::pair<std::string, int> rows[] = {
        {m_folder.path("locked/x"), EACCES}, {m_folder.path("missing/x"), ENOENT},
        {m_program + "/x", ENOTDIR},         {m_folder.path(), EISDIR},
        {"/proc/self/exe", ETXTBSY},         {"", ENOENT},
    };
    for (const auto& [name, reason] : rows) {
        Controller controller;
        // To root no folder is read-only.
        constexpr uid_t kNobody = 65534;
        const uid_t user = geteuid();
        (void)seteuid(user == 0 && reason == EACCES ? kNobody : user);
        for (const bool isLog : {false, true}) {
            EXPECT_EQ(controller.execute(m_plain.c_str(), m_program.c_str(),
                                         (isLog ? m_apt : name).c_str(),
                                         (isLog ? name : m_log).c_str(), eOutputAPT),
                      isLog ? kLogFileUnwritable : kOutputFileUnwritable);
            EXPECT_EQ(controller.LastFailure().systemError, reason) << name;
        }
        EXPECT_EQ(seteuid(user), 0);
    }
}

} // namespace
