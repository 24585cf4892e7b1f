// SPDX-License-Identifier: MIT
// A command line in the test's process, with its own home and the simulated board. The clock moves
// only when the run sleeps or waits, so a limit of ten seconds takes no real time.
#pragma once

#include <algorithm>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "cli/run_cli.h"
#include "cli/terminal.h"
#include "support/fakes.h"

namespace quillon::test {

using Json = nlohmann::json;

// A keyboard that types the given lines and then ends the input.
class FakeTerminal : public cli::Terminal {
  public:
    bool interactive() const override { return interactive_; }
    std::optional<std::string> read_line(const std::function<void()>& idle) override {
        idle();
        if (lines.empty()) return std::nullopt;
        auto line = lines.front();
        lines.pop_front();
        return line;
    }

    bool interactive_ = false;
    std::deque<std::string> lines;
};

class VirtualHost : public QtHost {
  public:
    explicit VirtualHost(const Folders& folders) : QtHost{Interface::CommandLine, folders} {}

    Time now() const override { return now_; }
    void sleep(std::chrono::milliseconds time) override {
        now_ += time;
        pump();
    }
    void advance_to(Time time) { now_ = std::max(now_, time); }

  private:
    Time now_{};
};

class CliBench {
  public:
    // Runs with --home and --catalogue before the given arguments. Returns the exit status.
    int operator()(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"--catalogue", catalogue});
        if (std::ranges::count(arguments, "--home") == 0)
            arguments.insert(arguments.begin(), {"--home", home.path().string()});
        // An unexpected wait without limit ends after this time, with a wrong exit status.
        if (std::ranges::count(arguments, "--deadline") == 0)
            arguments.insert(arguments.begin(), {"--deadline", "900"});
        std::ostringstream out_stream, err_stream;
        cli::Console console{out_stream, err_stream, terminal};
        const cli::Machine machine{
            .make_host =
                [](const QtHost::Folders& folders) {
                    return std::make_unique<VirtualHost>(folders);
                },
            .make_time =
                [](QtHost& host) {
                    auto& clock = dynamic_cast<VirtualHost&>(host);
                    return std::make_unique<VirtualTime>(
                        host, [&clock](Host::Time time) { clock.advance_to(time); });
                },
        };
        const int status = cli::run_cli(arguments, console, machine);
        out = out_stream.str();
        err = err_stream.str();
        return status;
    }

    // The same on the simulated board with JSON events, which are kept for the test.
    int on_board(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"--port", "sim", "--json"});
        return json(std::move(arguments));
    }
    int json(std::vector<std::string> arguments) {
        if (std::ranges::count(arguments, "--json") == 0)
            arguments.insert(arguments.begin(), "--json");
        const int status = (*this)(std::move(arguments));
        events.clear();
        std::istringstream lines{out};
        for (std::string line; std::getline(lines, line);) events.push_back(Json::parse(line));
        return status;
    }

    std::vector<Json> of(std::string_view kind) const {
        std::vector<Json> found;
        for (const auto& event : events)
            if (event.at("event") == kind) found.push_back(event);
        return found;
    }
    std::vector<std::string> messages() const {
        std::vector<std::string> texts;
        for (const auto& message : of("message")) texts.push_back(message.at("text"));
        return texts;
    }
    const Json& result() const { return events.back(); }
    Json file(std::string_view name) const { return Json::parse(home.read(name)); }
    std::string path(std::string_view name) const { return (home / name).string(); }

    TempFolder home;
    std::string catalogue = QUILLON_CATALOGUE;
    FakeTerminal terminal;
    std::string out, err;
    std::vector<Json> events;
};

inline const std::string kBlinker = std::string{QUILLON_EXAMPLES} + "/blinker.hex";
inline const std::string kBlinkerNamed = std::string{QUILLON_EXAMPLES} + "/blinker_named.hex";

}  // namespace quillon::test
