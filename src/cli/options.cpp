// SPDX-License-Identifier: MIT
#include "cli/options.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <sstream>
#include <string_view>
#include <utility>

#include "app/product.h"
#include "app/text.h"
#include "cli/cli_texts.h"
#include "cli/exit_status.h"

namespace quillon::cli {

namespace {

struct Question {
    std::string_view name;
    std::array<std::string_view, 3> values;
};
constexpr std::array kQuestions{
    Question{"overwrite", {"ok", "cancel"}},    Question{"mismatch", {"ok", "cancel"}},
    Question{"power", {"vpp", "vdd", "close"}}, Question{"firmware", {"ok", "cancel"}},
    Question{"replace", {"ok", "cancel"}},      Question{"calibration", {"ok", "cancel"}},
};

// About thirty years, which is as good as no deadline. In milliseconds it still fits.
constexpr double kLongestSeconds = 1e9;

// The values from CLI11, before they are checked and go into Options.
struct Raw {
    std::vector<std::string> sets;
    std::vector<std::string> answers;
    std::vector<std::string> faults;
    std::optional<double> deadline;
};

NamedValue named_value(const std::string& option, const std::string& text) {
    const auto equals = text.find('=');
    if (equals == std::string::npos || equals == 0)
        throw CLI::ValidationError{option, fmt::format("'{}' is not NAME=VALUE", text)};
    return {text.substr(0, equals), text.substr(equals + 1)};
}

NamedValue sound_answer(const std::string& text) {
    auto given = named_value("--answer", text);
    const auto question = std::ranges::find(kQuestions, given.name, &Question::name);
    if (question == kQuestions.end())
        throw CLI::ValidationError{"--answer", fmt::format("no question named '{}'", given.name)};
    if (given.value.empty() || std::ranges::count(question->values, given.value) == 0)
        throw CLI::ValidationError{
            "--answer", fmt::format("'{}' is no answer to '{}'", given.value, given.name)};
    return given;
}

// A repeatable option takes one value each time, so that it can't take the command as a value.
CLI::Option* repeatable(CLI::App& app, const char* name, std::vector<std::string>& values,
                        const char* help) {
    return app.add_option(name, values, help)->allow_extra_args(false)->take_all();
}

// Keeps the value as given: CLI11's own option reads an empty text as no value.
template <typename Value>
CLI::Option* given(CLI::App& app, const char* name, std::optional<Value>& value, const char* help) {
    return app.add_option_function<std::string>(
        name, [&value](const std::string& text) { value = text; }, help);
}

// CLI11 reads an empty number as no value: a script's unset variable must not mean the default.
std::string not_empty(const std::string& number) { return number.empty() ? "is empty" : ""; }

void add_options(CLI::App& app, Options& options, Raw& raw) {
    given(app, "--home", options.home, "folder of settings.ini and QUILLON4_TEMP")
        ->type_name("DIR");
    given(app, "--catalogue", options.catalogue, "the device6.ini to use")->type_name("FILE");
    given(app, "--port", options.port, "a serial device's path, COMn, or sim")->type_name("NAME");
    given(app, "--socket", options.socket,
          "with --port sim or simulate: a JSON file that keeps the simulated target")
        ->type_name("FILE");
    app.add_option(
           "--sim-baud", options.sim_baud,
           "the line speed to imitate; 0 is as fast as the host goes; default: 0, with simulate 57600")
        ->type_name("N")
        ->check(not_empty);
    repeatable(app, "--fault", raw.faults, "a fault of the simulated board; may be repeated")
        ->type_name("FAULT");
    given(app, "--device", options.device, "the device to select")->type_name("NAME");
    repeatable(app, "--set", raw.sets, "sets a control; may be repeated")->type_name("NAME=VALUE");
    repeatable(app, "--answer", raw.answers, "answers a question; may be repeated")
        ->type_name("NAME=VALUE");
    app.add_flag("--json", options.json, "prints one JSON object a line");
    given(app, "--trace", options.trace, "writes every byte on the wire to a file")
        ->type_name("FILE");
    app.add_option("--deadline", raw.deadline, "gives the operation up after this many seconds")
        ->type_name("SECONDS")
        ->check(not_empty);
    app.set_version_flag("--version", fmt::format("{} {}", text::kProgram, product_version()),
                         "shows the version");
    app.set_help_flag("--help", "shows this help");
}

CLI::App* with_help(CLI::App* added) {
    added->set_help_flag("--help", "shows this help");
    added->group("Commands");
    return added;
}

void add_command(CLI::App& parent, const CommandRow& row, Options& options) {
    auto& added = *with_help(parent.add_subcommand(std::string{row.name}, std::string{row.help}));
    added.callback([&options, &row] {
        options.command = row.command;
        options.operation = row.words();
    });
    if (row.hex != HexNeed::None)
        given(added, "HEX", options.hex, "an Intel HEX file")->required()->type_name("FILE");
    if (row.command == Command::Simulate)
        given(added, "--link", options.link, "a name for the pseudo-terminal")->type_name("PATH");
    if (row.outputs == Outputs::None) return;
    given(added, "--dump", options.dump, "writes the image as JSON")->type_name("FILE");
    if (row.outputs == Outputs::OfRead)
        given(added, "-o", options.save, "saves what was read as a HEX file")->type_name("FILE");
    else
        given(added, "--save", options.save, "saves the image as a HEX file")->type_name("FILE");
}

// A group is added in the place of its first command.
void add_commands(CLI::App& app, Options& options) {
    std::map<std::string_view, CLI::App*> parents{{"", &app}};
    for (const auto& row : command_rows()) {
        auto*& parent = parents[row.group];
        if (parent == nullptr) {
            const auto group = std::ranges::find(command_groups(), row.group, &CommandGroup::name);
            parent =
                with_help(app.add_subcommand(std::string{group->name}, std::string{group->help}));
            parent->require_subcommand(1);
        }
        add_command(*parent, row, options);
    }
}

// An empty name must be an error: a script's unset variable must not mean the default place.
void check_places(const Options& options) {
    const auto check = [](const char* name, const auto& place) {
        if (place && place->empty()) throw CLI::ValidationError{name, "is empty"};
    };
    check("--home", options.home);
    check("--catalogue", options.catalogue);
    check("--link", options.link);
    check("--socket", options.socket);
    check("--port", options.port);
    if (options.home && !is_utf8(options.home->string()))
        throw CLI::ValidationError{"--home", "the name isn't valid UTF-8"};
}

void take(Options& options, const Raw& raw) {
    check_places(options);
    for (const auto& set : raw.sets) options.sets.push_back(named_value("--set", set));
    // The value that the catalogue shows must not go into a part by accident.
    if (options.command == Command::CalibWrite &&
        std::ranges::count(options.sets, "Text_Calib_Data", &NamedValue::name) == 0)
        throw CLI::ValidationError{std::string{text::kNoCalibrationValue}};
    for (const auto& given : raw.answers) options.answers.push_back(sound_answer(given));
    if (options.sim_baud.value_or(0) < 0)
        throw CLI::ValidationError{"--sim-baud", "must not be below 0"};
    if (raw.deadline) {
        if (!(*raw.deadline > 0)) throw CLI::ValidationError{"--deadline", "must be above 0"};
        options.deadline = std::chrono::milliseconds{
            static_cast<std::int64_t>(std::ceil(std::min(*raw.deadline, kLongestSeconds) * 1000))};
    }
    for (const auto& text : raw.faults) {
        const auto reading = read_fault(text);
        if (!reading.fault) throw CLI::ValidationError{"--fault", reading.error};
        options.faults.push_back(*reading.fault);
    }
    const bool board = options.simulated() || options.command == Command::Simulate;
    if (!board && (options.socket || options.sim_baud || !options.faults.empty()))
        throw CLI::ValidationError{std::string{text::kNeedsSimulation}};
}

// A first word whose second one is missing or unknown.
std::string complain_of_group(const std::string& group, const std::string* unknown) {
    std::vector<std::string_view> known;
    for (const auto& row : command_rows())
        if (row.group == group) known.push_back(row.name);
    if (unknown == nullptr) return fmt::format(text::kNoSecondWord, group, fmt::join(known, ", "));
    return fmt::format(text::kUnknownSecondWord, group, *unknown, fmt::join(known, ", "));
}

// CLI11 reports an unknown command as a missing one.
std::string complaint(const CLI::App& app, const std::string& words) {
    const auto rest = app.remaining();
    const auto is_command = [](const std::string& word) { return !word.starts_with('-'); };
    const auto unknown = std::ranges::find_if(rest, is_command);
    if (const auto chosen = app.get_subcommands(); !chosen.empty()) {
        const auto& name = chosen.front()->get_name();
        const bool is_group = std::ranges::count(command_groups(), name, &CommandGroup::name) > 0;
        if (!is_group || !chosen.front()->get_subcommands().empty()) return words;
        return complain_of_group(name, unknown != rest.end() ? &*unknown : nullptr);
    }
    if (unknown != rest.end()) return fmt::format(text::kUnknownCommand, *unknown);
    return rest.empty() ? std::string{text::kNoCommand} : words;
}

}  // namespace

ParsedLine parse(std::span<const std::string> arguments) {
    Options options;
    Raw raw;
    CLI::App app{std::string{text::kDescription}, "quillon-cli"};
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app.fallthrough();
    app.require_subcommand(1);
    add_options(app, options, raw);
    add_commands(app, options);
    app.footer(std::string{text::kFooter});  // after the commands, because they would inherit it
    try {
        app.parse(std::vector<std::string>{arguments.rbegin(), arguments.rend()});
        take(options, raw);
    } catch (const CLI::ParseError& error) {
        std::ostringstream out, err;
        const bool asked = app.exit(error, out, err) == 0;
        if (asked) return {std::nullopt, kSuccess, out.str()};
        return {std::nullopt, kUsage, complaint(app, err.str())};
    }
    return {std::move(options), kSuccess, {}};
}

std::optional<std::string> answer(const Options& options, const std::string& question) {
    const auto found = std::ranges::find(options.answers.rbegin(), options.answers.rend(), question,
                                         &NamedValue::name);
    if (found == options.answers.rend()) return std::nullopt;
    return found->value;
}

}  // namespace quillon::cli
