// SPDX-License-Identifier: MIT
// The answers to the flows' questions: given by --answer, typed at the terminal, or the safe one.
//
// The safe answer leaves the device in the socket and the files unchanged: cancel, no, close.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "app/dialogs.h"
#include "app/host.h"
#include "cli/events.h"
#include "cli/options.h"
#include "cli/terminal.h"

namespace quillon::cli {

class CliDialogs : public Dialogs {
  public:
    CliDialogs(const Options& options, Events& events, Console& console, Host& host)
        : options_{options}, events_{events}, console_{console}, host_{host} {}

    BoxAnswer box(const MessageBox& box) override;
    int frmHint(const HintQuestion& question) override;
    int Frm_VPP_DECIDE(const std::string& Label1) override;

    // A command names its file, port and device in its arguments, so nothing is chosen here.
    std::optional<std::filesystem::path> file(const FileDialog&) override { return std::nullopt; }
    void frmOption() override {}
    void frmDeviceSelect() override {}

  private:
    struct Reply {
        std::string word;
        AnsweredBy by = AnsweredBy::Rule;
    };
    // Returns one of the choices. The last choice is the safe one.
    Reply reply(const std::string& name, const std::vector<std::string>& lines,
                std::span<const std::string_view> choices);
    std::optional<std::string> typed(const std::vector<std::string>& lines,
                                     std::span<const std::string_view> choices);

    const Options& options_;
    Events& events_;
    Console& console_;
    Host& host_;
};

}  // namespace quillon::cli
