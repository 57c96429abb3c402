#include "softCommon/CErrorUtil/catalogueHooks.h"

int gueini(std::int32_t /*severity*/) noexcept { return 0; }

int glogon() noexcept { return 0; }

int catgeo() noexcept { return 0; }
