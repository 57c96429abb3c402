#pragma once

#include <cstdio>
#include <memory>

/// Owns a stream and closes it at the end of its life; whoever cares about the result of the close
/// releases the stream and closes it himself.
struct FileCloser {
    void operator()(std::FILE* file) const noexcept { (void)std::fclose(file); }
};
using FileOwner = std::unique_ptr<std::FILE, FileCloser>;
