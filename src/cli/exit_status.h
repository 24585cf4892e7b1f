// SPDX-License-Identifier: MIT
// The exit status for the shell, and the words for it.
//
// Scripts and production lines depend on these numbers, so they never change.
#pragma once

#include <string_view>

#include "app/outcome.h"

namespace quillon::cli {

inline constexpr int kSuccess = 0;
inline constexpr int kFailed = 1;   // ran and failed, or a file can't be loaded or written
inline constexpr int kUsage = 2;    // also a device that isn't in the catalogue
inline constexpr int kNoBoard = 3;  // not found, or the port can't be opened or has vanished
inline constexpr int kGivenUp = 4;  // cancelled by an answer, interrupted, or out of time

constexpr int exit_status(Outcome outcome) {
    switch (outcome) {
        case Outcome::Success:
            return kSuccess;
        case Outcome::Failed:
            return kFailed;
        case Outcome::NoDevice:
        case Outcome::NotServed:
            return kUsage;
        case Outcome::NoBoard:
        case Outcome::PortLost:
            return kNoBoard;
        case Outcome::Cancelled:
        case Outcome::GivenUp:
            return kGivenUp;
    }
    return kFailed;
}

// The result event's status.
constexpr std::string_view status_word(Outcome outcome) {
    switch (outcome) {
        case Outcome::Success:
            return "success";
        case Outcome::Failed:
            return "failed";
        case Outcome::NoDevice:
            return "no-device";
        case Outcome::NotServed:
            return "not-served";
        case Outcome::NoBoard:
            return "no-board";
        case Outcome::PortLost:
            return "port-lost";
        case Outcome::Cancelled:
            return "cancelled";
        case Outcome::GivenUp:
            return "interrupted";
    }
    return "failed";
}

}  // namespace quillon::cli
