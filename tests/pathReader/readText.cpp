#include "tests/pathReader/readText.h"

#include "softCommon/FileOwner.h"

#include <cstdio>
#include <gtest/gtest.h>

namespace {

FileOwner fileOf(std::string_view text) {
    FileOwner file(std::tmpfile());
    EXPECT_EQ(std::fwrite(text.data(), 1, text.size(), file.get()), text.size());
    std::rewind(file.get());
    return file;
}

} // namespace

ToolPath pathOf(std::string_view apt) {
    ToolPath path;
    AptReader reader;
    const FileOwner file = fileOf(apt);
    EXPECT_TRUE(reader.Read(file.get(), path)) << reader.Line() << ": " << reader.Reason();
    return path;
}

std::string errorOf(std::string_view apt) {
    ToolPath path;
    AptReader reader;
    const FileOwner file = fileOf(apt);
    return reader.Read(file.get(), path) ? std::string()
                                         : std::to_string(reader.Line()) + ": " + reader.Reason();
}

std::string addBlocks(ToolPath& path, std::string_view log, std::string_view apt) {
    const FileOwner logFile = fileOf(log);
    const FileOwner aptFile = fileOf(apt);
    return path.blocks.Read(logFile.get(), aptFile.get());
}
