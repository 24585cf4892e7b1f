// SPDX-License-Identifier: MIT
// What the command line prints while it works: one JSON object a line, or readable lines.
//
// Every event is flushed at once, so that a script can follow the run.
#pragma once

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "app/dialogs.h"
#include "app/messages.h"

namespace quillon::cli {

// Who answered a question. If the user did, the question is on the terminal already.
enum class AnsweredBy : std::uint8_t { Rule, User };

// A device as the list shows it.
struct ListedDevice {
    std::string name;
    std::string PgmType;
    std::int64_t PgmWords = 0;
    std::int64_t EepBytes = 0;
    std::string family;
};

// The last event. The words of areas that weren't touched are empty.
struct Result {
    std::string operation{};
    std::string status{};
    std::string ResultPgm{};
    std::string ResultEep{};
    std::string ResultCfg{};
    std::string ResultAll{};
    std::string CodeProtect{};
    std::int32_t TryCount = 0;
    std::int32_t PassCount = 0;
    double seconds = 0;
    int exit = 0;
    std::string error{};  // an error outside the flows, else empty
    // The cells that failed the verify, as the program view lists them.
    std::vector<std::string> mismatches{};
    std::string FirmwareText{};  // the board's identity, if the operation was to find it
    // The calibration word, if the operation was to read it: the whole instruction in four digits,
    // and the value in it as --set takes it.
    std::string CalibWord{};
    std::string Text_Calib_Data{};
};

class Events {
  public:
    virtual ~Events() = default;

    virtual void message(const ShownMessage& message) = 0;
    virtual void progress(int value, int max) = 0;
    virtual void progress_off() {}
    // A box with a name is also a question that --answer can answer.
    virtual void box(const MessageBox& box, BoxAnswer answer, AnsweredBy by) = 0;
    virtual void question(std::string_view name, const std::vector<std::string>& lines,
                          std::string_view answer, AnsweredBy by) = 0;
    virtual void log(const std::string& line) = 0;
    virtual void device(const ListedDevice& device) = 0;
    // The name of the pseudo-terminal on which the simulated board can be reached.
    virtual void serving(const std::string& path) = 0;
    virtual void result(const Result& result) = 0;
};

std::unique_ptr<Events> json_events(std::ostream& out);

// What may be written to a terminal. A file or a pipe gets neither bar nor colours.
struct TextStyle {
    bool bar = false;
    bool colours = false;
};
std::unique_ptr<Events> text_events(std::ostream& out, TextStyle style);

// The words in the events, which --answer also takes: "ok", "cancel", "yes", "no".
std::string_view word(BoxAnswer answer);
// Splits a text into lines. The product's texts end a line with CR, LF or both.
std::vector<std::string> lines_of(std::string_view text);

}  // namespace quillon::cli
