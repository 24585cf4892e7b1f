// SPDX-License-Identifier: MIT
// The program's name, description and version, as it shows them.
#pragma once

#include <string_view>

namespace quillon {

inline constexpr std::string_view kProductTitle = "Quillon";
inline constexpr std::string_view kProductDescription = "ＰＩＣマイコンプログラマ";
inline constexpr std::string_view kProductLegal = "MIT License";

// Major, minor and revision number joined by points: "4.0.1".
std::string_view product_version();

}  // namespace quillon
