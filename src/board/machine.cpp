// SPDX-License-Identifier: MIT
#include "board/machine.h"

#include <algorithm>

namespace quillon::firmware {

void Machine::receive(std::uint8_t value, Time at) {
    input_.push_back({value, at});
    run(at);
}

void Machine::run(Time until) {
    while (wait_is_over(until)) {
        if (wait_ == Wait::Restart) drop();
        if (pile_.empty()) enter(program_());
        wait_ = Wait::Nothing;
        pile_.back().resume();
    }
}

bool Machine::wait_is_over(Time until) {
    switch (wait_) {
        case Wait::Nothing:
        case Wait::Restart:
            return true;
        case Wait::Elapse:
            if (*limit_ > until) return false;
            now_ = *limit_;
            return true;
        case Wait::Byte:
            return byte_has_come(until);
    }
    return false;
}

bool Machine::byte_has_come(Time until) {
    if (!input_.empty() && (!limit_ || input_.front().at <= *limit_)) {
        taken_ = input_.front();
        input_.pop_front();
        // A byte that came while the board was busy is taken at the present time.
        now_ = std::max(now_, taken_->at);
        return true;
    }
    if (!limit_ || *limit_ > until) return false;
    taken_.reset();
    now_ = std::max(now_, *limit_);
    return true;
}

std::optional<Time> Machine::next_event() const {
    if (wait_ == Wait::Elapse || wait_ == Wait::Byte) return limit_;
    return std::nullopt;
}

void Machine::restart(Time at) {
    drop();
    input_.clear();
    wait_ = Wait::Nothing;
    now_ = std::max(now_, at);
    run(at);
}

void Machine::drop() {
    while (!pile_.empty()) {
        pile_.back().destroy();
        pile_.pop_back();
    }
}

}  // namespace quillon::firmware
