// SPDX-License-Identifier: MIT
// The command line as plain values.
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "board/faults.h"
#include "cli/command_rows.h"

namespace quillon::cli {

struct NamedValue {
    std::string name;
    std::string value;
};

struct Options {
    Command command = Command::Devices;
    std::string operation;  // the command in the user's words: "erase chip"

    std::optional<std::filesystem::path> home;
    std::optional<std::filesystem::path> catalogue;
    std::optional<std::string> device;
    std::vector<NamedValue> sets;     // in the order given
    std::vector<NamedValue> answers;  // names and values are checked
    bool json = false;
    std::optional<std::filesystem::path> trace;
    std::optional<std::chrono::milliseconds> deadline;

    std::optional<std::string> port;  // as given; "sim" is the simulated board
    std::optional<std::filesystem::path> socket;
    std::optional<int> sim_baud;  // 0: as fast as the host goes
    std::vector<Fault> faults;

    std::optional<std::filesystem::path> hex;   // an empty name is a file that doesn't exist
    std::optional<std::filesystem::path> save;  // the image as a HEX file
    std::optional<std::filesystem::path> dump;
    std::optional<std::filesystem::path> link;

    bool simulated() const { return port == "sim"; }
};

// Either `options` to run with, or a text to show before ending. Help and version go to standard
// output with exit 0. An error in the arguments goes to standard error with exit 2.
struct ParsedLine {
    std::optional<Options> options;
    int exit = 0;
    std::string text;
};

// `arguments` excludes the program's name.
ParsedLine parse(std::span<const std::string> arguments);

// The value that --answer gives for a question, or nothing. If given twice, the last one counts.
std::optional<std::string> answer(const Options& options, const std::string& question);

}  // namespace quillon::cli
