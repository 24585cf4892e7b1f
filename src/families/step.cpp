// SPDX-License-Identifier: MIT
#include "families/step.h"

#include <string>

namespace quillon {

namespace {

using namespace std::chrono_literals;

bool applies(Only only, const RunContext& context) {
    const auto& session = context.session;
    switch (only) {
        case Only::Always:
            return true;
        case Only::WithEeprom:
            return session.EepBytes != 0;
        case Only::WholePart:
            return !session.ExtendPgmOnly;
        case Only::WithConfig:
            return !session.ExtendPgmOnly || session.ExtendCfgToo;
        case Only::KeepingCalibration:
            return context.form.Chk_12F_CalibData_Select.Checked.get();
    }
    return true;
}

void set(AreaTokens& tokens, Slot slot, Token token) {
    if (slot == Slot::Pgm) tokens.pgm = token;
    if (slot == Slot::Eep) tokens.eep = token;
    if (slot == Slot::Cfg) tokens.cfg = token;
}

void tell_failure(const Step& step, RunContext& context) {
    if (step.on_bad == OnBad::StopIfRefused) return;
    if (step.on_bad == OnBad::Tell) {
        // Without a text of its own the routine's line stays.
        if (!step.failure.empty()) context.messages.ShowMessage(step.failure);
        return;
    }
    if (step.on_bad == OnBad::CloseBoxAndStop) context.link.Writer_Close();
    context.dialogs.box({.title = std::string{step.title},
                         .text = std::string{step.failure},
                         .icon = BoxIcon::Critical});
}

}  // namespace

StepsDone run_steps(std::span<const Step> steps, Areas& areas, RunContext& context) {
    StepsDone done;
    for (const auto& step : steps) {
        if (!applies(step.only, context)) continue;
        if (!step.status.empty()) {
            context.messages.ShowMessage(step.status);
            context.host.pump();
        }
        if (step.pause > 0ms) context.host.sleep(step.pause);
        if (step.routine == nullptr) continue;
        const Token token = (areas.*step.routine)();
        const bool bad = token == Token::NG || token == Token::ER;
        const bool goes_on = step.on_bad == OnBad::Keep ||
                             (step.on_bad == OnBad::StopIfRefused && token == Token::ER);
        if (bad || goes_on) set(done.tokens, step.slot, token);
        done.failed = done.failed || bad;
        if (!bad || goes_on) continue;
        tell_failure(step, context);
        done.stopped = true;
        done.refused = step.on_bad == OnBad::StopIfRefused;
        break;
    }
    return done;
}

}  // namespace quillon
