#pragma once

#include <cstdio>

void printViewUsage(std::FILE* stream) noexcept;
void printViewHelp(std::FILE* stream) noexcept;
