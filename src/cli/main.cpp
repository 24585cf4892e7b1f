// SPDX-License-Identifier: MIT
// The program quillon-cli: connects a run to the standard streams.
#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "cli/descriptor_stream.h"
#include "cli/run_cli.h"

namespace {

// If a standard stream is closed at the start, the next file that is opened gets its number. What
// is printed would then go into that file.
void occupy_standard_streams() {
    int descriptor = 0;
    while (descriptor >= 0 && descriptor <= STDERR_FILENO) descriptor = ::open("/dev/null", O_RDWR);
    if (descriptor > STDERR_FILENO) ::close(descriptor);
}

}  // namespace

int main(int argc, char** argv) {
    occupy_standard_streams();
    // A reader that has closed its pipe, or a limit on file sizes, must not kill a run in the
    // middle of a write to the device. The affected write fails with a reason instead.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    const std::vector<std::string> arguments{argv + 1, argv + argc};
    QCoreApplication application{argc, argv};
    QCoreApplication::setApplicationName("quillon");
    std::ios::sync_with_stdio(false);

    const bool terminal = ::isatty(STDOUT_FILENO) != 0;
    const char* no_colour = std::getenv("NO_COLOR");
    quillon::cli::StandardInput input;
    quillon::cli::DescriptorStream output{STDOUT_FILENO};
    quillon::cli::Console console{
        .out = output,
        .err = std::cerr,
        .terminal = input,
        .style = {.bar = terminal,
                  .colours = terminal && (no_colour == nullptr || *no_colour == '\0')},
        .lost_output =
            [&output] { return output.lost_its_reader() ? std::nullopt : output.problem(); },
    };
    return quillon::cli::run_cli(arguments, console, {.watch_signals = true});
}
