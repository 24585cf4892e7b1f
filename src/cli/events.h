// SPDX-License-Identifier: MIT
// What the command line prints while it works: one JSON object a line, or readable lines.
//
// Every event is flushed at once, so that a script that reads along is never behind.
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

// A question that the user has answered at the terminal stands there to be read already.
enum class AnsweredBy : std::uint8_t { Rule, User };

// A device as the list tells it.
struct ListedDevice {
    std::string name;
    std::string PgmType;
    std::int64_t PgmWords = 0;
    std::int64_t EepBytes = 0;
    std::string family;
};

// The last event. Words of areas that weren't touched are empty.
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
    std::string error{};  // what went wrong outside the flows, else empty
    // Where a verify found the part to differ, as the program view lists it.
    std::vector<std::string> mismatches{};
    std::string FirmwareText{};  // the board's identity, where the operation was to find it
};

class Events {
  public:
    virtual ~Events() = default;

    virtual void message(const ShownMessage& message) = 0;
    virtual void progress(int value, int max) = 0;
    virtual void progress_off() {}
    // A box with a name is a question too: --answer can answer it.
    virtual void box(const MessageBox& box, BoxAnswer answer, AnsweredBy by) = 0;
    virtual void question(std::string_view name, const std::vector<std::string>& lines,
                          std::string_view answer, AnsweredBy by) = 0;
    virtual void log(const std::string& line) = 0;
    virtual void device(const ListedDevice& device) = 0;
    // The name of the pseudo-terminal behind which the simulated board listens.
    virtual void serving(const std::string& path) = 0;
    virtual void result(const Result& result) = 0;
};

std::unique_ptr<Events> json_events(std::ostream& out);

// How a terminal may be used. A file or a pipe gets neither bar nor colours.
struct TextStyle {
    bool bar = false;
    bool colours = false;
};
std::unique_ptr<Events> text_events(std::ostream& out, TextStyle style);

// The words of the events, also those that --answer takes: "ok", "cancel", "yes", "no".
std::string_view word(BoxAnswer answer);
// The text's lines. The product's texts end them with CR, LF or both.
std::vector<std::string> lines_of(std::string_view text);

}  // namespace quillon::cli
