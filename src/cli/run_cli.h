// SPDX-License-Identifier: MIT
// One run of the command line, from its arguments to its exit status.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>

#include "board/time_source.h"
#include "cli/terminal.h"
#include "platform/qt_host.h"

namespace quillon::cli {

// The machine under the run. A test uses a clock of its own here.
struct Machine {
    std::function<std::unique_ptr<QtHost>(const QtHost::Folders&)> make_host =
        [](const QtHost::Folders& folders) {
            return std::make_unique<QtHost>(QtHost::Interface::CommandLine, folders);
        };
    // The clock of the simulated line.
    std::function<std::unique_ptr<TimeSource>(QtHost&)> make_time = [](QtHost& host) {
        return std::make_unique<RealTime>(host);
    };
    // SIGINT, SIGTERM and SIGHUP give the run up. Only for a program that has no threads yet.
    bool watch_signals = false;
};

// `arguments` excludes the program's name. Results go to console.out, errors to console.err.
int run_cli(std::span<const std::string> arguments, Console& console, const Machine& machine = {});

}  // namespace quillon::cli
