// SPDX-License-Identifier: MIT
// The arguments of the window.
//
// Read by hand and not by a command line parser: the tail may hold anything, including "/" and
// blanks, and must stay unchanged.
#include "forms/window_options.h"

#include <fmt/format.h>

#include <array>
#include <string_view>

namespace quillon {

namespace {

constexpr std::string_view kUsage =
    "Usage: quillon [OPTIONS] [FILE.HEX [/DEVICE]]\n"
    "\n"
    "  --home DIR        settings in DIR/settings.ini, work folder DIR/QUILLON4_TEMP\n"
    "  --port NAME       serial device path, COMn, or sim, the built-in simulated board\n"
    "  --catalogue FILE  the device6.ini to use\n"
    "  --help, --version\n";

struct Valued {
    std::string_view name;
    std::optional<std::string> WindowOptions::*value;
};
constexpr std::array kValued{
    Valued{"--home", &WindowOptions::home},
    Valued{"--port", &WindowOptions::port},
    Valued{"--catalogue", &WindowOptions::catalogue},
};

const Valued* find(std::string_view name) {
    for (const auto& option : kValued)
        if (option.name == name) return &option;
    return nullptr;
}

}  // namespace

std::string window_usage() { return std::string{kUsage}; }

WindowOptions read_window_options(std::span<const std::string> arguments) {
    WindowOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (!argument.starts_with("--")) {
            options.rest.push_back(argument);
            continue;
        }
        const auto equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        const auto* const valued = find(name);
        if (name == "--help" && equals == std::string::npos) {
            options.help = true;
        } else if (name == "--version" && equals == std::string::npos) {
            options.version = true;
        } else if (valued == nullptr) {
            options.bad = fmt::format("unknown option {}", argument);
        } else if (equals != std::string::npos) {
            options.*valued->value = argument.substr(equals + 1);
        } else if (i + 1 < arguments.size() && !arguments[i + 1].starts_with("--")) {
            options.*valued->value = arguments[++i];
        }
        if (valued != nullptr && (options.*valued->value).value_or("").empty())
            options.bad = fmt::format("{} needs a value", name);
        if (options.bad) break;
    }
    return options;
}

}  // namespace quillon
