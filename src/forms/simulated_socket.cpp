// SPDX-License-Identifier: MIT
// The simulated board behind a port number of the window.
#include "forms/simulated_socket.h"

#include "board/session_facts.h"
#include "board/target_facts.h"

namespace quillon {

SimulatedSocket::SimulatedSocket(const Host& host, int baud)
    : time_{host}, port_{board_, time_, baud} {}

void SimulatedSocket::follow(Run& run) {
    run.form.Combo_device.Click = [this, &run, select = run.form.Combo_device.Click] {
        if (select) select();
        if (run.session.DeviceName != inserted_) insert(run.session);
    };
}

void SimulatedSocket::insert(const Session& session) {
    inserted_ = session.DeviceName;
    board_.target() = blank_target(facts_of(session));
}

}  // namespace quillon
