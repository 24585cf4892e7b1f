// SPDX-License-Identifier: MIT
// The arguments of the window. Its own options begin with "--" and are taken out first. The others,
// joined by blanks, are the command tail.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quillon {

struct WindowOptions {
    std::optional<std::string> home{};       // settings and work folder
    std::optional<std::string> port{};       // a path, "COMn" or "sim"
    std::optional<std::string> catalogue{};  // device6.ini
    bool help = false;
    bool version = false;
    std::vector<std::string> rest{};   // the tail's arguments, and those of the toolkit
    std::optional<std::string> bad{};  // the problem with the arguments, for standard error
};

// `arguments` excludes the program's name. A value follows a blank or a "=".
WindowOptions read_window_options(std::span<const std::string> arguments);

std::string window_usage();

}  // namespace quillon
