// SPDX-License-Identifier: MIT
// The program quillon-cli: standard streams, and the run between them.
#include <unistd.h>

#include <QCoreApplication>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "cli/run_cli.h"

int main(int argc, char** argv) {
    const std::vector<std::string> arguments{argv + 1, argv + argc};
    QCoreApplication application{argc, argv};
    QCoreApplication::setApplicationName("quillon");
    std::ios::sync_with_stdio(false);

    const bool terminal = ::isatty(STDOUT_FILENO) != 0;
    const char* no_colour = std::getenv("NO_COLOR");
    quillon::cli::StandardInput input;
    quillon::cli::Console console{
        .out = std::cout,
        .err = std::cerr,
        .terminal = input,
        .style = {.bar = terminal,
                  .colours = terminal && (no_colour == nullptr || *no_colour == '\0')},
    };
    return quillon::cli::run_cli(arguments, console, {.watch_signals = true});
}
