// SPDX-License-Identifier: MIT
// Readable lines: messages as they come, and a progress bar on a terminal that each line replaces.
#include <fmt/format.h>

#include <algorithm>

#include "app/text.h"
#include "cli/events.h"

namespace quillon::cli {

namespace {

constexpr std::string_view kRed = "\x1b[31m";
constexpr std::string_view kNormal = "\x1b[0m";
// Moves to the first column and clears the line.
constexpr std::string_view kEraseLine = "\r\x1b[K";
constexpr int kBarWidth = 40;

// Removes blanks at the end, also full-width ones: they only shaped the product's boxes.
std::string trimmed(std::string_view line) {
    constexpr std::string_view kFullWidthBlank = "　";
    for (;;) {
        if (line.ends_with(' ') || line.ends_with('\t'))
            line.remove_suffix(1);
        else if (line.ends_with(kFullWidthBlank))
            line.remove_suffix(kFullWidthBlank.size());
        else
            return std::string{line};
    }
}

class TextEvents : public Events {
  public:
    TextEvents(std::ostream& out, TextStyle style) : out_{out}, style_{style} {}
    ~TextEvents() override { TextEvents::progress_off(); }

    void message(const ShownMessage& message) override {
        print(fmt::format("{} {}", message.text, message.extra), message.colour == Colour::Red);
    }
    void progress(int value, int max) override {
        if (!style_.bar || max <= 0) return;
        const int filled = static_cast<int>(std::int64_t{kBarWidth} * value / max);
        out_ << kEraseLine
             << fmt::format("[{:-<{}}] {:3}%", std::string(static_cast<std::size_t>(filled), '#'),
                            kBarWidth, std::int64_t{100} * value / max)
             << std::flush;
        bar_shown_ = true;
    }
    void progress_off() override {
        if (std::exchange(bar_shown_, false)) out_ << kEraseLine << std::flush;
    }
    void box(const MessageBox& box, BoxAnswer answer, AnsweredBy by) override {
        if (by == AnsweredBy::User) return;
        const bool red = box.icon == BoxIcon::Critical;
        if (!box.title.empty()) print(fmt::format("[{}]", box.title), red);
        print(box.text, red);
        if (box.buttons != BoxButtons::Ok) print(fmt::format("-> {}", word(answer)), false);
    }
    void question(std::string_view name, const std::vector<std::string>& lines,
                  std::string_view answer, AnsweredBy by) override {
        if (by == AnsweredBy::User) return;
        for (const auto& line : lines) print(line, false);
        print(fmt::format("{} -> {}", name, answer), false);
    }
    // Not printed: the log is a file, and its line has been shown as a message already.
    void log(const std::string&) override {}
    void device(const ListedDevice& device) override { print(printable(device.name), false); }
    void serving(const std::string& path) override { print(printable(path), false); }
    void result(const Result& result) override {
        progress_off();
        for (const auto& mismatch : result.mismatches) print(mismatch, false);
        if (!result.FirmwareText.empty()) print(printable(result.FirmwareText), false);
        if (!result.CalibWord.empty())
            print(fmt::format("CalibWord={} Text_Calib_Data={}", result.CalibWord,
                              result.Text_Calib_Data),
                  false);
    }

  private:
    void print(std::string_view text, bool red) {
        progress_off();
        for (const auto& raw : lines_of(text)) {
            const auto line = printable(trimmed(raw));
            if (line.empty()) continue;
            if (red && style_.colours)
                out_ << kRed << line << kNormal << '\n';
            else
                out_ << line << '\n';
        }
        out_ << std::flush;
    }

    std::ostream& out_;
    TextStyle style_;
    bool bar_shown_ = false;
};

}  // namespace

std::unique_ptr<Events> text_events(std::ostream& out, TextStyle style) {
    return std::make_unique<TextEvents>(out, style);
}

}  // namespace quillon::cli
