// SPDX-License-Identifier: MIT
#include "cli/cli_dialogs.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "app/text.h"

namespace quillon::cli {

namespace {

constexpr std::array<std::string_view, 2> kOkCancel{"ok", "cancel"};
constexpr std::array<std::string_view, 3> kPower{"vpp", "vdd", "close"};

// FormAnswer of frmHint.
constexpr int kHintOk = 1;
constexpr int kHintCancel = 2;

}  // namespace

BoxAnswer CliDialogs::box(const MessageBox& box) {
    if (box.buttons == BoxButtons::Ok) {
        events_.box(box, BoxAnswer::Ok, AnsweredBy::Rule);
        return BoxAnswer::Ok;
    }
    auto lines = lines_of(box.text);
    if (!box.title.empty()) lines.insert(lines.begin(), fmt::format("[{}]", box.title));
    const auto given = reply(box.name, lines, kOkCancel);
    const bool yes_no = box.buttons == BoxButtons::YesNo;
    const auto answer = given.word == "ok" ? (yes_no ? BoxAnswer::Yes : BoxAnswer::Ok)
                                           : (yes_no ? BoxAnswer::No : BoxAnswer::Cancel);
    events_.box(box, answer, given.by);
    return answer;
}

int CliDialogs::frmHint(const HintQuestion& question) {
    const std::vector lines{question.line1, question.line2};
    const auto given = reply("overwrite", lines, kOkCancel);
    events_.question("overwrite", lines, given.word, given.by);
    return given.word == "ok" ? kHintOk : kHintCancel;
}

int CliDialogs::Frm_VPP_DECIDE(const std::string& Label1) {
    const auto lines = lines_of(Label1);
    const auto given = reply("power", lines, kPower);
    events_.question("power", lines, given.word, given.by);
    if (given.word == "vpp") return 1;
    return given.word == "vdd" ? 2 : 0;
}

CliDialogs::Reply CliDialogs::reply(const std::string& name, const std::vector<std::string>& lines,
                                    std::span<const std::string_view> choices) {
    if (const auto given = answer(options_, name)) return {*given, AnsweredBy::Rule};
    if (console_.terminal.interactive())
        if (const auto given = typed(lines, choices)) return {*given, AnsweredBy::User};
    return {std::string{choices.back()}, AnsweredBy::Rule};
}

std::optional<std::string> CliDialogs::typed(const std::vector<std::string>& lines,
                                             std::span<const std::string_view> choices) {
    for (const auto& line : lines) console_.err << printable(line) << '\n';
    for (;;) {
        console_.err << fmt::format("({}) ", fmt::join(choices, "/")) << std::flush;
        const auto line = console_.terminal.read_line([this] { host_.pump(); });
        if (!line) return std::nullopt;
        const auto word = lower(trim(*line));
        // The first letters are enough if they fit only one choice. "v" fits "vpp" and "vdd".
        const auto fits = [&](std::string_view choice) { return choice.starts_with(word); };
        if (!word.empty() && std::ranges::count_if(choices, fits) == 1)
            return std::string{*std::ranges::find_if(choices, fits)};
    }
}

}  // namespace quillon::cli
