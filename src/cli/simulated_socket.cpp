// SPDX-License-Identifier: MIT
#include "cli/simulated_socket.h"

#include <fmt/format.h>

#include <utility>

#include "board/session_facts.h"
#include "board/target_json.h"
#include "cli/cli_texts.h"
#include "platform/whole_file.h"

namespace quillon::cli {

std::optional<std::string> SimulatedSocket::insert(const Session& session) {
    std::error_code error;
    if (!file_ || !std::filesystem::exists(*file_, error)) {
        if (session.DeviceName.empty()) return {};
        board_.target() = blank_target(facts_of(session));
        inserted_ = true;
        return save();
    }
    auto reading = load_target(*file_);
    if (!reading.target) return fmt::format(text::kBadSocket, file_->string(), reading.error);
    board_.target() = std::move(*reading.target);
    inserted_ = true;
    return {};
}

std::optional<std::string> SimulatedSocket::save() const {
    if (!file_ || !inserted_) return {};
    const auto problem = write_whole(*file_, target_text(board_.target()));
    if (!problem) return {};
    return fmt::format(text::kCantWrite, file_->string(), *problem);
}

}  // namespace quillon::cli
