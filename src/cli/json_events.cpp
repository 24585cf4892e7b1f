// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "app/text.h"
#include "cli/events.h"

namespace quillon::cli {

namespace {

// Keeps the keys in the order in which they are written here.
using Json = nlohmann::ordered_json;

std::string_view word(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::Critical:
            return "critical";
        case BoxIcon::Question:
            return "question";
        case BoxIcon::Warning:
            return "warning";
        case BoxIcon::Information:
            return "information";
        case BoxIcon::None:
            break;
    }
    return "none";
}

Json words(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::OkCancel:
            return {"ok", "cancel"};
        case BoxButtons::YesNo:
            return {"yes", "no"};
        case BoxButtons::Ok:
            break;
    }
    return Json::array({"ok"});
}

// Escapes the control characters that are valid in JSON but would steer a terminal: DEL and C1. In
// UTF-8, C1 has two bytes. Outside its texts the JSON is plain ASCII, so only texts change.
std::string escape_controls(std::string_view json) {
    std::string escaped;
    for (std::size_t i = 0; i < json.size(); ++i) {
        const auto byte = static_cast<unsigned char>(json[i]);
        const bool c1 = byte == 0xC2 && static_cast<unsigned char>(json[i + 1]) < 0xA0;
        if (c1)
            escaped += fmt::format("\\u{:04x}", static_cast<unsigned char>(json[++i]));
        else if (byte == 0x7F)
            escaped += "\\u007f";
        else
            escaped += json[i];
    }
    return escaped;
}

class JsonEvents : public Events {
  public:
    explicit JsonEvents(std::ostream& out) : out_{out} {}

    void message(const ShownMessage& message) override {
        print({{"event", "message"},
               {"text", message.text},
               {"extra", message.extra},
               {"colour", message.colour == Colour::Red ? "red" : "black"}});
    }
    void progress(int value, int max) override {
        const auto percent = max > 0 ? std::int64_t{100} * value / max : 0;
        print({{"event", "progress"}, {"value", value}, {"max", max}, {"percent", percent}});
    }
    void box(const MessageBox& box, BoxAnswer answer, AnsweredBy by) override {
        print({{"event", "box"},
               {"title", box.title},
               {"text", box.text},
               {"icon", word(box.icon)},
               {"buttons", words(box.buttons)},
               {"answer", cli::word(answer)}});
        if (!box.name.empty()) question(box.name, lines_of(box.text), cli::word(answer), by);
    }
    void question(std::string_view name, const std::vector<std::string>& lines,
                  std::string_view answer, AnsweredBy) override {
        print({{"event", "question"}, {"name", name}, {"lines", lines}, {"answer", answer}});
    }
    void log(const std::string& line) override { print({{"event", "log"}, {"line", line}}); }
    void device(const ListedDevice& device) override {
        print({{"event", "device"},
               {"name", device.name},
               {"PgmType", device.PgmType},
               {"PgmWords", device.PgmWords},
               {"EepBytes", device.EepBytes},
               {"family", device.family}});
    }
    void serving(const std::string& path) override {
        print({{"event", "serving"}, {"path", path}});
    }
    void result(const Result& result) override {
        Json event{{"event", "result"},
                   {"operation", result.operation},
                   {"status", result.status},
                   {"ResultPgm", result.ResultPgm},
                   {"ResultEep", result.ResultEep},
                   {"ResultCfg", result.ResultCfg},
                   {"ResultAll", result.ResultAll},
                   {"CodeProtect", result.CodeProtect},
                   {"TryCount", result.TryCount},
                   {"PassCount", result.PassCount},
                   {"seconds", result.seconds},
                   {"exit", result.exit}};
        if (!result.error.empty()) event["error"] = result.error;
        if (!result.mismatches.empty()) event["mismatches"] = result.mismatches;
        if (!result.FirmwareText.empty()) event["FirmwareText"] = result.FirmwareText;
        if (!result.CalibWord.empty()) {
            event["CalibWord"] = result.CalibWord;
            event["Text_Calib_Data"] = result.Text_Calib_Data;
        }
        print(event);
    }

  private:
    void print(const Json& event) {
        // A text from outside that isn't UTF-8 must not make the event fail.
        out_ << escape_controls(event.dump(-1, ' ', false, Json::error_handler_t::replace)) << '\n'
             << std::flush;
    }

    std::ostream& out_;
};

}  // namespace

std::unique_ptr<Events> json_events(std::ostream& out) { return std::make_unique<JsonEvents>(out); }

std::string_view word(BoxAnswer answer) {
    switch (answer) {
        case BoxAnswer::Ok:
            return "ok";
        case BoxAnswer::Cancel:
            return "cancel";
        case BoxAnswer::Yes:
            return "yes";
        case BoxAnswer::No:
            return "no";
    }
    return "cancel";
}

std::vector<std::string> lines_of(std::string_view text) {
    const auto plain = replace_all(replace_all(std::string{text}, "\r\n", "\n"), "\r", "\n");
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < plain.size();) {
        const auto end = std::min(plain.find('\n', at), plain.size());
        lines.push_back(plain.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

}  // namespace quillon::cli
