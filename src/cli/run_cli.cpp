// SPDX-License-Identifier: MIT
#include "cli/run_cli.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <exception>
#include <filesystem>
#include <optional>
#include <system_error>

#include "app/folders.h"
#include "app/text.h"
#include "cli/cli_dialogs.h"
#include "cli/cli_texts.h"
#include "cli/commands.h"
#include "cli/descriptor_stream.h"
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

// Ends a run with the help, the version or an error in the arguments. With --json even an error
// prints a result, so that the last line is always one.
int end_unparsed(const ParsedLine& line, std::span<const std::string> arguments, Console& console) {
    if (line.exit == kSuccess) {
        console.out << line.text << std::flush;
        return line.exit;
    }
    console.err << printable_lines(line.text) << std::flush;
    if (std::ranges::count(arguments, "--json") > 0) {
        Result result;
        result.status = "usage";
        result.exit = line.exit;
        result.error = line.text;
        json_events(console.out)->result(result);
    }
    return line.exit;
}

// `trace` is nullptr if no trace is wanted.
Finish run_on(const Options& options, QtHost& host, TimeSource& time, Events& events,
              Console& console, std::ostream* trace) {
    IniSettingsStore store{options.home};
    CliDialogs dialogs{options, events, console, host};
    Ports ports{options, store, host, time};
    std::optional<TracingPort> traced;
    if (trace != nullptr) traced.emplace(ports.port(), host, *trace);
    const auto run = std::make_unique<Run>(store, host, traced ? *traced : ports.port(), dialogs);
    return Commands{options, *run, ports, events}.execute();
}

Finish guarded(const Options& options, QtHost& host, TimeSource& time, Events& events,
               Console& console, std::ostream* trace) {
    try {
        return run_on(options, host, time, events, console, trace);
    } catch (const Abandoned& abandoned) {
        // Given up outside an operation: no flow has reported it, so the result must.
        if (abandoned.reason == Abandoned::Reason::PortLost) return Finish::of(Outcome::PortLost);
        auto finish = Finish::of(Outcome::GivenUp);
        finish.result.error =
            abandoned.reason == Abandoned::Reason::Deadline ? text::kOutOfTime : text::kInterrupted;
        return finish;
    } catch (const std::exception& error) {
        return Finish::complain(kFailed, error.what());
    }
}

// Devices and pipes may have several uses. A file that isn't there yet is known by its name.
bool is_same_file(const std::filesystem::path& one, const std::filesystem::path& other) {
    namespace fs = std::filesystem;
    std::error_code error;
    if (one.empty() || other.empty()) return false;
    if (fs::exists(one, error) && fs::exists(other, error))
        return fs::equivalent(one, other, error) && fs::is_regular_file(one, error);
    return fs::absolute(one, error).lexically_normal() ==
           fs::absolute(other, error).lexically_normal();
}

// A file that the run reads and another that it writes must not be one: the trace would empty the
// HEX file before it is loaded. A HEX file may be saved over itself, which is asked about.
std::optional<std::string> same_file_twice(const Options& options) {
    struct Use {
        std::string_view name;
        const std::optional<std::filesystem::path>& path;
        bool written;
    };
    // A HEX file is found without regard to case.
    std::optional<std::filesystem::path> hex;
    if (options.hex) hex = on_disk(options.hex->string());
    const std::array uses{
        Use{"the HEX file", hex, false},       Use{"--catalogue", options.catalogue, false},
        Use{"--socket", options.socket, true}, Use{"--save or -o", options.save, true},
        Use{"--dump", options.dump, true},     Use{"--trace", options.trace, true},
    };
    for (const auto& one : uses)
        for (const auto& other : uses) {
            const bool saved_over = &one == &uses[0] && &other == &uses[3];
            if (&one >= &other || !other.written || saved_over) continue;
            if (one.path && other.path && is_same_file(*one.path, *other.path))
                return fmt::format(text::kSameFile, one.name, other.name,
                                   printable(other.path->string()));
        }
    return std::nullopt;
}

// A trace that fails doesn't stop the operation. The missing trace is reported at the end.
Finish traced(const Options& options, QtHost& host, TimeSource& time, Events& events,
              Console& console) {
    if (const auto problem = same_file_twice(options)) return Finish::complain(kUsage, *problem);
    if (!options.trace) return guarded(options, host, time, events, console, nullptr);
    DescriptorStream trace{*options.trace};
    const auto problem = [&] {
        return fmt::format(text::kCantWrite, options.trace->string(), *trace.problem());
    };
    if (trace.problem()) return Finish::complain(kUsage, problem());
    auto finish = guarded(options, host, time, events, console, &trace);
    if (trace.problem()) finish.miss(problem());
    return finish;
}

int run_options(const Options& options, Console& console, const Machine& machine) {
    const auto events = make_events(options.json, console);
    const auto host = machine.make_host({.home = options.home});
    const auto time = machine.make_time(*host);
    const auto start = host->now();
    if (options.deadline) host->set_deadline(start + *options.deadline);
    std::optional<SignalWatch> signals;
    if (machine.watch_signals)
        signals.emplace([&host] { host->give_up(Abandoned::Reason::Interrupted); });
    const QtHost::Operation operation{*host};

    auto finish = traced(options, *host, *time, *events, console);
    if (!finish.result.error.empty())
        console.err << text::kProgram << ": " << printable(finish.result.error) << '\n'
                    << std::flush;
    finish.result.operation = options.operation;
    finish.result.seconds =
        static_cast<double>(
            std::chrono::round<std::chrono::milliseconds>(host->now() - start).count()) /
        1000;
    events->progress_off();
    events->result(finish.result);
    return finish.result.exit;
}

}  // namespace

int run_cli(std::span<const std::string> arguments, Console& console, const Machine& machine) {
    const auto line = parse(arguments);
    const int status = line.options ? run_options(*line.options, console, machine)
                                    : end_unparsed(line, arguments, console);
    console.out << std::flush;
    const auto lost = console.lost_output();
    if (!lost) return status;
    console.err << text::kProgram << ": "
                << fmt::format(text::kCantWrite, text::kStandardOutput, *lost) << '\n'
                << std::flush;
    return status == kSuccess ? kFailed : status;
}

}  // namespace quillon::cli
