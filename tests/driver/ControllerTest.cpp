#include "driver/Controller.h"
#include "commands/LinearMovement.h"
#include "commands/NonModalCommand.h"
#include "softCommon/CDebugUtil/dbtrace.h"
#include "softCommon/CErrorUtil/processEnd.h"
#include "tests/support/TempFolder.h"
#include "tests/support/convert.h"
#include "tests/support/dialects.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace std::string_literals;

namespace {

TEST(Controller, EchoesEveryBlockToTheLog) {
    const Conversion result = convert(mill(), "  N10 G1 X1 (a) \r\n\nM8 Q5\nN20 (b)\n\t\nM9");
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.log, "\nN10 G1 X1 (a)\n" + goTo(1, 0, 0) +
                              "\n\n"
                              "\nM8 Q5\nCOOLNT/ON\n"
                              "\nN20 (b)\n"
                              "\n\t\n"
                              "\nM9\nCOOLNT/OFF\n");
    EXPECT_EQ(result.apt, goTo(1, 0, 0) + "COOLNT/ON\nCOOLNT/OFF\n");
    expectAPT(mill({{"MFG_CLASS_NAME", "MILLING_MACHINE"}}), {{"", ""}});
}

TEST(Controller, ReadsALongLineInPieces) {
    // A word that the cut divides belongs to neither piece; words elsewhere are read as usual.
    std::string line(4 * 255, ' ');
    line.replace(0, 5, "G1 X1");
    line.replace(254, 3, "Y12"); // "Y" ends the first piece
    line.replace(2 * 255, 2, "X2");
    EXPECT_EQ(convert(mill(), line + "Z3\nM8\n").log,
              "\n" + line.substr(0, 255) + "\n" + goTo(1, 0, 0) + "\n12\n" + "\nX2\n" +
                  goTo(2, 0, 0) + "\n\n" + "\nZ3\n" + goTo(2, 0, 3) + "\nM8\nCOOLNT/ON\n");
    // The line's end alone is a block of its own.
    EXPECT_EQ(convert(mill(), "M8" + std::string(253, ' ') + "\nM9").log,
              "\nM8\nCOOLNT/ON\n\n\n\nM9\nCOOLNT/OFF\n");
}

TEST(Controller, ReadsBytesThatAreNoText) {
    const std::string nc = "G1 X1\0 Y9\n\0\nX2 \x80\xFF\nX\xE4"
                           "3\n\xC4X4\nX5\x01Y6\r X7\n"s;
    EXPECT_EQ(aptOf(mill(), nc), goTo(1, 0, 0) + goTo(2, 0, 0) + goTo(4, 0, 0) + goTo(5, 6, 0));
    EXPECT_EQ(convert(mill(), std::string(100'000, '\0')).code, 0);
    EXPECT_EQ(convert(std::string(kHeader) + std::string(100'000, '\0'), "X1").code, 0);
}

TEST(Controller, NamesWhatIsMissing) {
    const TempFolder folder;
    const std::string dialect = folder.write("a.pp", mill());
    const std::string program = folder.write("a.nc", "U1\n");
    const std::string output = folder.path("apt");
    const char* const pp = dialect.c_str();
    const char* const nc = program.c_str();
    const char* const apt = output.c_str();
    Controller controller; // one for all: nothing carries over
    EXPECT_EQ(controller.execute(pp, nc, apt, nullptr, eOutputAPT), 0);
    EXPECT_EQ(controller.execute(nullptr, nc, apt, nullptr, eOutputAPT), 300);
    EXPECT_EQ(controller.execute(pp, nullptr, apt, nullptr, eOutputAPT), 200);
    EXPECT_EQ(controller.execute(pp, nc, nullptr, folder.path("log").c_str(), eOutputAPT), 202);
    EXPECT_EQ(folder.read("log"), kLogHead) << "the log is opened without an output, too";
    EXPECT_EQ(controller.execute(pp, nc, nullptr, nullptr, eOutputToolpath), 201);
    EXPECT_EQ(controller.execute(pp, nc, nc, nullptr, eOutputAPT), 202) << "it is an input";
    EXPECT_EQ(controller.execute(pp, nc, apt, pp, eOutputAPT), 203);
    const std::string made = folder.path("made");
    EXPECT_EQ(controller.execute(pp, made.c_str(), apt, made.c_str(), eOutputAPT), 200);
    EXPECT_EQ(controller.execute(pp, nc, apt, nullptr, static_cast<eOutputType>(7)), 201);
    EXPECT_EQ(controller.execute(pp, nc, apt, nullptr, eOutputAPT), 0);
    EXPECT_EQ(readFile(output), "RAPID\n" + goTo(1, 0, 0));
    EXPECT_EQ(controller.Report().Statements().Of(StatementKind::kRapidMove), 1);
}

struct Idle : ModalCommand {};

// Moves along X and Y in the block's own buffer.
struct Cycle : NonModalCommand {
    explicit Cycle(MachineStatus& status) : m_status(status) { InitSyntax("G", 81); }
    void InitStatus(char* line) override {
        for (const char* const step : {"X1", "Y2"}) {
            std::strcpy(line, step);
            EXPECT_EQ(m_status.scanNC(line), 0);
        }
    }
    MachineStatus& m_status;
};

TEST(Controller, LetsAHostsCommandDoToABlockWhatItLikes) {
    const TempFolder folder;
    Controller controller;
    EXPECT_EQ(controller.SetOutputType(eOutputAPT, folder.path("apt").c_str(), nullptr), 0);
    EXPECT_EQ(controller.scanParamFile(folder.write("a.pp", mill()).c_str()), 0);
    Idle idle; // a host's command as well, within the other one's call
    controller.Machinestatus().GetCoolantCom()->SetActiveCommand(&idle);
    controller.Availablecommands().NewCommand(new Cycle(controller.Machinestatus()));
    EXPECT_EQ(controller.scanNCFile(folder.write("a.nc", "G1\nG81 F7\n").c_str()), 0);
    EXPECT_EQ(controller.CloseFiles(), 0);
    EXPECT_EQ(folder.read("apt"), goTo(0, 0, 0) + goTo(1, 0, 0) + goTo(1, 2, 0));
}

TEST(Controller, LetsAHostGoOnWithItsModel) {
    const TempFolder folder;
    const std::string dialect = folder.write("a.pp", mill());
    const std::string program = folder.write("a.nc", "G1 X1\nM99\n");
    const std::int16_t users = db_initialized;
    {
        Controller controller;
        EXPECT_EQ(db_initialized, users + 1);
        EXPECT_EQ(controller.NCScan::run(), 200);
        char line[] = "G0 X2";
        EXPECT_EQ(controller.Machinestatus().scanNC(line), 0); // without a dialect
        Idle idle;
        controller.Machinestatus().GetCoolantCom()->SetActiveCommand(&idle);
        EXPECT_EQ(controller.Machinestatus().scanNC(line), 0); // and without a block
        auto* const known = new Command;
        known->InitSyntax("M", 99);
        controller.Availablecommands().NewCommand(known);
        EXPECT_EQ(controller.execute(dialect.c_str(), program.c_str(), folder.path("apt").c_str(),
                                     folder.path("log").c_str(), eOutputAPT),
                  0);
        EXPECT_EQ(controller.Report().UnrecognisedBlocks(), 0);
        // The files are closed: the machine moves on, and nothing is written.
        const StatementCounts before = controller.Report().Statements();
        EXPECT_EQ(controller.Machinestatus().scanNC(line), 0);
        EXPECT_EQ(controller.Machinestatus().GetEndPosition()[0], 2.0);
        EXPECT_EQ(controller.Report().Statements().Of(StatementKind::kFeedMove),
                  before.Of(StatementKind::kFeedMove));
        ASSERT_NE(controller.GetOutputFactory(), nullptr);
        LinearMovement own(&controller.Machinestatus(), controller.GetOutputFactory());
        EXPECT_EQ(own.Act(), 0);
    }
    EXPECT_EQ(db_initialized, users);
    EXPECT_EQ(folder.read("apt"), goTo(1, 0, 0));
}

TEST(Controller, KnowsTheSpellingsOfItsOptions) {
    for (std::vector<std::string> words :
         {std::vector<std::string>{"", "-P", "p", "-Nc", "n", "-oF", "o", "-L", "l", "-OT", "APT"},
          {"", "-l", "l", "-p", "p", "-NC", "n", "-OF", "o", "-oT", "TOOLPATH"}}) {
        std::vector<char*> argv;
        for (std::string& word : words) {
            argv.push_back(word.data());
        }
        argv.push_back(nullptr);
        char* files[4] = {};
        eOutputType type = eOutputNone;
        EXPECT_EQ(Controller().ScanParameters(static_cast<int>(words.size()), argv.data(), files[0],
                                              files[1], files[2], files[3], type),
                  0);
        EXPECT_EQ(std::string(files[0]) + files[1] + files[2] + files[3], "pnlo");
        EXPECT_EQ(type, words.back() == "APT" ? eOutputAPT : eOutputToolpath);
    }
}

TEST(Controller, TellsTheHookBeforeTheProcessEnds) {
    const TempFolder folder;
    const std::string dialect = folder.write("a.pp", mill());
    const std::string nc = folder.write("a.nc", "G1 X1\nG2 X5\nX9\n");
    std::string expression;
    setProcessEndHook(
        [](void* context, const ProcessEnd& end) {
            EXPECT_EQ(end.kind, ProcessEnd::Kind::kAssertion);
            *static_cast<std::string*>(context) = end.expression;
            throw 1; // takes the end over
        },
        &expression);
    Controller controller;
    EXPECT_EQ(controller.execute(dialect.c_str(), nc.c_str(), folder.path("apt").c_str(), nullptr,
                                 eOutputAPT),
              39999);
    setProcessEndHook(nullptr, nullptr);
    EXPECT_EQ(expression, "!gmIsZero(len)");
    EXPECT_EQ(folder.read("apt"), goTo(1, 0, 0)); // closed
}

} // namespace
