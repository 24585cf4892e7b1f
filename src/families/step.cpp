// SPDX-License-Identifier: MIT
#include "families/step.h"

#include <string>

namespace quillon {

namespace {

using namespace std::chrono_literals;

bool applies(Only only, const Session& session) {
    switch (only) {
        case Only::Always:
            return true;
        case Only::WithEeprom:
            return session.EepBytes != 0;
        case Only::WholePart:
            return !session.ExtendPgmOnly;
        case Only::WithConfig:
            return !session.ExtendPgmOnly || session.ExtendCfgToo;
    }
    return true;
}

void set(AreaTokens& tokens, Slot slot, Token token) {
    if (slot == Slot::Pgm) tokens.pgm = token;
    if (slot == Slot::Eep) tokens.eep = token;
    if (slot == Slot::Cfg) tokens.cfg = token;
}

void tell_failure(const Step& step, RunContext& context) {
    if (step.on_bad == OnBad::Tell) {
        context.messages.ShowMessage(step.failure);
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
        if (!applies(step.only, context.session)) continue;
        context.messages.ShowMessage(step.status);
        context.host.pump();
        if (step.pause > 0ms) context.host.sleep(step.pause);
        if (step.routine == nullptr) continue;
        const Token token = (areas.*step.routine)();
        const bool bad = token == Token::NG || token == Token::ER;
        if (bad || step.on_bad == OnBad::Keep) set(done.tokens, step.slot, token);
        if (!bad || step.on_bad == OnBad::Keep) continue;
        tell_failure(step, context);
        done.stopped = true;
        break;
    }
    return done;
}

}  // namespace quillon
