#pragma once

#include <string_view>

/// The page without a path: what stands in front of its data and behind them. Both are made of
/// page.html, its style, its scripts and the library that draws when this is built.
extern const std::string_view kPageHead;
extern const std::string_view kPageTail;
