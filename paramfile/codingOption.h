#pragma once

/// The options of ppcrypt and pp_vxveh; any other is refused.
inline constexpr int kCodeOption = 0;
inline constexpr int kDecodeOption = 1;
