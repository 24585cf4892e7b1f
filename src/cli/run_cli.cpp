// SPDX-License-Identifier: MIT
#include "cli/run_cli.h"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <fstream>
#include <optional>
#include <system_error>

#include "cli/cli_dialogs.h"
#include "cli/cli_texts.h"
#include "cli/commands.h"
#include "cli/events.h"
#include "cli/exit_status.h"
#include "cli/options.h"
#include "cli/ports.h"
#include "cli/signal_watch.h"
#include "cli/trace.h"
#include "platform/ini_settings_store.h"

namespace quillon::cli {

namespace {

std::unique_ptr<Events> make_events(bool json, Console& console) {
    return json ? json_events(console.out) : text_events(console.out, console.style);
}

// Help, version, or a line that can't be understood. A script that wants JSON gets its result even
// then: its last line is always one.
int end_unparsed(const ParsedLine& line, std::span<const std::string> arguments, Console& console) {
    if (line.exit == kSuccess) {
        console.out << line.text << std::flush;
        return line.exit;
    }
    console.err << line.text << std::flush;
    if (std::ranges::count(arguments, "--json") > 0) {
        Result result;
        result.status = "usage";
        result.exit = line.exit;
        result.error = line.text;
        json_events(console.out)->result(result);
    }
    return line.exit;
}

Finish run_on(const Options& options, QtHost& host, TimeSource& time, Events& events,
              Console& console) {
    std::ofstream trace;
    if (options.trace) {
        trace.open(*options.trace, std::ios::binary | std::ios::trunc);
        if (!trace)
            return Finish::complain(kUsage, fmt::format(text::kCantWrite, options.trace->string(),
                                                        std::generic_category().message(errno)));
    }
    IniSettingsStore store{options.home};
    CliDialogs dialogs{options, events, console, host};
    Ports ports{options, store, host, time};
    TracingPort traced{ports.port(), host, trace};
    SerialPort& port = options.trace ? traced : ports.port();
    const auto run = std::make_unique<Run>(store, host, port, dialogs);
    return Commands{options, *run, host, ports, events}.execute();
}

Finish guarded(const Options& options, QtHost& host, TimeSource& time, Events& events,
               Console& console) {
    try {
        return run_on(options, host, time, events, console);
    } catch (const Abandoned& abandoned) {
        // Given up outside of an operation: nothing is in hand.
        return Finish::of(abandoned.reason == Abandoned::Reason::PortLost ? Outcome::PortLost
                                                                          : Outcome::GivenUp);
    } catch (const std::exception& error) {
        return Finish::complain(kFailed, error.what());
    }
}

}  // namespace

int run_cli(std::span<const std::string> arguments, Console& console, const Machine& machine) {
    const auto line = parse(arguments);
    if (!line.options) return end_unparsed(line, arguments, console);
    const Options& options = *line.options;
    const auto events = make_events(options.json, console);
    const auto host = machine.make_host({.home = options.home});
    const auto time = machine.make_time(*host);
    const auto start = host->now();
    if (options.deadline) host->set_deadline(start + *options.deadline);
    std::optional<SignalWatch> signals;
    if (machine.watch_signals)
        signals.emplace([&host] { host->give_up(Abandoned::Reason::Interrupted); });
    const QtHost::Operation operation{*host};

    auto finish = guarded(options, *host, *time, *events, console);
    if (!finish.result.error.empty())
        console.err << text::kProgram << ": " << finish.result.error << '\n' << std::flush;
    finish.result.operation = options.operation;
    finish.result.seconds =
        static_cast<double>(
            std::chrono::round<std::chrono::milliseconds>(host->now() - start).count()) /
        1000;
    events->progress_off();
    events->result(finish.result);
    return finish.result.exit;
}

}  // namespace quillon::cli
