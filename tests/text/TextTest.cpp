#include "driver/Controller.h"
#include "driver/ModelVocabulary.h"
#include "paramfile/DialectSettings.h"
#include "paramfile/ParamScan.h"
#include "tests/support/TempFolder.h"
#include "tests/support/cases.h"
#include "tests/support/convert.h"
#include "tests/support/dialects.h"
#include "text/TextReader.h"

#include <gtest/gtest.h>
#include <regex>
#include <string>

namespace {

std::string unescaped(std::string text) {
    for (const auto& [mark, bytes] : {std::pair("\\n", "\n"), {"\\t", "\t"}, {"\\r", "\r"}}) {
        for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos; ++at) {
            text.replace(at, 2, bytes);
        }
    }
    return text;
}

// "KEY VALUE & KEY VALUE" as entries behind those of the mill; the keys lack their "REV_".
std::string dialectWith(const std::string& keys) {
    std::string dialect = mill();
    const std::regex entry("([0-9A-Z_]+)(?: (.*?))?(?: & |$)");
    for (std::sregex_iterator it(keys.begin(), keys.end(), entry), end; it != end; ++it) {
        const std::string key = (*it)[1];
        const bool isOwn = key.starts_with("PROGRAM_S") || key == "PROGRAM_END" ||
                           key.starts_with("COMMENT") || key.starts_with("FEED") ||
                           key.starts_with("1ST") || key.starts_with("DEC");
        dialect += (isOwn ? "" : "REV_") + key + "\n" + unescaped((*it)[2]) + "\n";
        dialect += key.ends_with("COORDINATE") ? "1\nM5.3\n" : "";
    }
    return dialect;
}

// The APT on one line: positions as "1,2,3", with "R" for rapid, and other statements as they are.
std::string shortened(const std::string& apt) {
    std::string text = std::regex_replace(apt, std::regex("RAPID\nGOTO/"), "R");
    text = std::regex_replace(text, std::regex("GOTO/| +(?=-?[0-9.]+[,\n])"), "");
    text = std::regex_replace(text, std::regex("(\\.[0-9]*?)0+(?=[,\n])"), "$1");
    text = std::regex_replace(text, std::regex("\\.(?=[,\n])"), "");
    return std::regex_replace(text, std::regex("\n"), " ");
}

// What a program gives: its APT, "?" and each word that nobody knows, "!" and the code of a failure
// with its text.
std::string resultOf(const std::string& dialect, const std::string& nc, bool skips = false) {
    const TempFolder folder;
    Controller controller;
    if (skips) {
        controller.SkipMarkedBlocks();
    }
    const int code =
        controller.execute(folder.write("a.pp", dialect).c_str(), folder.write("a.nc", nc).c_str(),
                           folder.path("apt").c_str(), folder.path("log").c_str(), eOutputAPT);
    std::string text = shortened(folder.read("apt"));
    for (const auto* const entry : controller.Report().Words().MostFrequentFirst()) {
        text += "?" + entry->first + " ";
    }
    for (const Oddity oddity : {Oddity::kOpenComment, Oddity::kSkipMark}) {
        const long count = controller.Report().Of(oddity).count;
        text += count == 0 ? "" : (oddity == Oddity::kSkipMark ? "/" : "(") + std::to_string(count);
    }
    if (code != 0) {
        const char* const reason = controller.LastFailure().text;
        text += "!" + std::to_string(code) + " " + (reason == nullptr ? "" : reason);
    }
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

TEST(Texts, AreReadByTheKeysOfTheirDialect) {
    for (const auto& [input, expected] : casesOf(TEXT_CASES, 70)) {
        const std::size_t bar = input.find(" | ");
        const bool skips = input.starts_with("--skip-blocks ");
        const std::size_t keys = skips ? input.find(' ') + 1 : 0;
        EXPECT_EQ(resultOf(dialectWith(input.substr(keys, bar - keys)),
                           unescaped(input.substr(bar + 3)), skips),
                  expected)
            << input;
    }
}

// What a line says: its words, comments in braces, the program's name behind "=", and marks.
std::string saidBy(const BlockText& text) {
    std::string said = "[" + text.words + "]";
    for (const std::string& comment : text.comments) {
        said += " {" + comment + "}";
    }
    said += text.isProgramName ? " =" + text.programName : "";
    said += text.isFrame ? " frame" : "";
    said += text.hasSkipMark ? " skip" : "";
    return said + (text.hasOpenComment ? " open" : "");
}

TEST(TextReader, ReadsBlocksByTheDefaultsOfTheirFamily) {
    MachineStatus status;
    status.GetRecordNumber()->InitRecordNumber("N");
    for (const auto& [input, expected] : casesOf(BLOCK_CASES, 44)) {
        DialectSettings settings;
        const std::size_t bar = input.find(" | ");
        settings.language = languageOf(input.substr(0, bar)).value();
        const TextRules rules = settings.Resolve(status);
        BlockText text;
        TextReader(rules).read(unescaped(input.substr(bar + 3)), text);
        EXPECT_EQ(saidBy(text), expected) << input;
    }
}

TEST(TextReader, TakesAnyBytesInATimeLinearInTheirNumber) {
    MachineStatus status;
    DialectSettings settings;
    settings.language = ProgramLanguage::kRParameter;
    settings.ignoresBlanks = true;
    settings.blockEnds = {"*", "**"};
    const TextRules rules = settings.Resolve(status);
    BlockText text;
    for (const std::string_view piece :
         {"X 1", "A1 ", "\"", "* ", "/ ", "(", "#<", "%_N_", "\xFF\t"}) {
        std::string line;
        while (line.size() < 400'000) {
            line += piece;
        }
        TextReader(rules).read(line, text);
        EXPECT_LE(text.words.size(), line.size()) << piece;
    }
}

TEST(ProgramFrame, KeepsOnlySoManyLinesBeforeIt) {
    const std::string dialect = mill({{"REV_PROGRAM_FRAME", "%"}});
    std::string title;
    for (int i = 0; i < 999; ++i) {
        title += "TITLE\n";
    }
    EXPECT_EQ(resultOf(dialect, title + "%\nX1\n"), "R1,0,0");
    EXPECT_EQ(resultOf(dialect, title + "A\nB\n%\nX1\n%\nX2"), "R1,0,0 ?TITLE ?A ?B");
}

TEST(Texts, OfLongLinesAreReadInPieces) {
    const std::string blanks(255, ' ');
    const std::string dialect = mill({{"REV_BLOCK_SKIP", "/"}, {"REV_PROGRAM_NAME", "O"}});
    const std::string nc = "O1 X1" + blanks + "X2\n/X3" + blanks + "/X4\nX5" + blanks + "/Y6\n";
    EXPECT_EQ(resultOf(dialect, nc), "R3,0,0 R4,0,0 R5,0,0 R5,6,0 /1");
    EXPECT_EQ(resultOf(dialect, nc, true), "R5,0,0 R5,6,0");
}

TEST(Texts, StandInTheLogAsTheyStandInTheProgram) {
    const Conversion result =
        convert(mill({{"REV_PROGRAM_LANGUAGE", "O_WORD"}, {"REV_TEXT_OUTPUT", "PPRINT"}}),
                "%\n / g0 x 1 ( Hole ) \n\nm30\nx2\n");
    EXPECT_EQ(result.log, "\n/ g0 x 1 ( Hole )\nPPRINT Hole\nRAPID\n" + goTo(1, 0, 0) +
                              "\n\n\nm30\nREWIND/0\nEND\n");
    EXPECT_EQ(result.apt, "PPRINT Hole\nRAPID\n" + goTo(1, 0, 0) + "REWIND/0\nEND\n");
}

TEST(Texts, OfOneConversionAreForgottenByTheNext) {
    const TempFolder folder;
    const std::string program = folder.write("a.nc", "g1 x1 (C)\nG1 X2\nM30\nG91.1 X3\n");
    const std::string apt = folder.path("apt");
    const std::string strict = folder.write("strict.pp", mill({{"REV_LETTER_CASE", "ANY"},
                                                               {"REV_TEXT_OUTPUT", "PPRINT"},
                                                               {"REV_START", "G91"},
                                                               {"REV_END_STOPS", "1"}}));
    const std::string plain = folder.write("plain.pp", mill());
    Controller controller;
    for (const auto& [dialect, expected] : {std::pair(strict, "PPRINT C 1,0,0 3,0,0 REWIND/0 END "),
                                            {plain, "2,0,0 REWIND/0 END MODE/INCR,ON 5,0,0 "}}) {
        EXPECT_EQ(
            controller.execute(dialect.c_str(), program.c_str(), apt.c_str(), nullptr, eOutputAPT),
            0);
        EXPECT_EQ(shortened(folder.read("apt")), expected);
    }
}

TEST(ModelVocabulary, KnowsTheWordsOfItsKeys) {
    const TempFolder folder;
    NCScan scan;
    scan.SetNoOutput();
    ParamScan parameters(scan);
    const std::string dialect = folder.write("a.pp", mill({{"REV_PROGRAM_LANGUAGE", "R_PARAMETER"},
                                                           {"DECIMAL_POINT_REPRESENTATION", "\n"},
                                                           {"COOLANT_ON", "MIST"},
                                                           {"REV_NO_EFFECT", "G64.1"},
                                                           {"REV_NOT_CONVERTED_WORD", "CHR"},
                                                           {"REV_OWN_WORDS", "CYCLE81"}}));
    ASSERT_EQ(parameters.SetParameterFile(dialect.c_str()), 0);
    ASSERT_EQ(parameters.run(), 0);
    const ModelVocabulary vocabulary(scan);
    for (const char* const word :
         {"G1", "G001", "X", "T", "M6", "MIST", "G064.10", "CHR", "CYCLE81"}) {
        EXPECT_TRUE(vocabulary.isKnown(word)) << word;
    }
    for (const char* const word :
         {"G", "G64", "G1.1", "X1", "N", "MIST2", "CYCLE", "CYCLE82", ""}) {
        EXPECT_FALSE(vocabulary.isKnown(word)) << word;
    }
    EXPECT_EQ(vocabulary.separator(), '.');
    EXPECT_EQ(vocabulary.impliedDecimals("X"), 0);
}

} // namespace
