// SPDX-License-Identifier: MIT
// The steps of erases, write stages and partial runs, and the one routine that runs them.
#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <string_view>

#include "app/token.h"
#include "areas/areas.h"
#include "areas/context.h"

namespace quillon {

// Which of the three results a step's token becomes. A write sets it only where it went wrong, a
// verify always.
enum class Slot : std::uint8_t { None, Pgm, Eep, Cfg };

// What a token that isn't OK (NG, ER) does.
enum class OnBad : std::uint8_t {
    Keep,             // it is a result, and the run goes on
    StopIfRefused,    // the same for ER; NG ends the run
    Tell,             // the failure's line, and the run ends
    BoxAndStop,       // a box
    CloseBoxAndStop,  // the port is closed first, so that the board isn't held while the user reads
};

enum class Only : std::uint8_t {
    Always,
    WithEeprom,          // the device has one
    WholePart,           // unless the program area alone is in the run
    WithConfig,          // unless the program area alone is, without its configuration
    KeepingCalibration,  // the user wants the device's calibration kept
};

struct Step {
    std::string_view status = "";  // "": nothing is shown
    std::chrono::milliseconds pause{};
    Token (Areas::*routine)() = nullptr;  // none: the status line alone
    Slot slot = Slot::None;
    OnBad on_bad = OnBad::Keep;
    Only only = Only::Always;
    std::string_view title = "";  // of the box
    std::string_view failure = "";
};

struct StepsDone {
    bool stopped = false;
    bool refused = false;  // a step's own check found no board
    bool failed = false;   // one of the steps, whether it stopped the run or not
    AreaTokens tokens{Token::Absent, Token::Absent, Token::Absent};
};

StepsDone run_steps(std::span<const Step> steps, Areas& areas, RunContext& context);

}  // namespace quillon
