// SPDX-License-Identifier: MIT
#include "board/board.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace quillon {
namespace {

constexpr std::size_t kCall = 3;  // "*" in a row
// Three "*" in one go may be an item's data. They are a call if no byte follows for this long.
constexpr auto kCallQuiet = std::chrono::milliseconds{20};

}  // namespace

SimulatedBoard::SimulatedBoard(SimulatedTarget target, BoardTimes times) : program_{bench_} {
    bench_.socket.target = std::move(target);
    bench_.times = times;
    bench_.identity = kIdentity;
}

void SimulatedBoard::receive(std::uint8_t byte, Time arrived) {
    run_until(arrived);
    if (unplugged() || ignored(byte)) return;
    const bool called = counts_star(byte, arrived);
    last_byte_ = arrived;
    if (called)
        call_to_command_loop(arrived);
    else
        program_.machine().receive(byte, arrived);
}

bool SimulatedBoard::ignored(std::uint8_t byte) {
    if (!bench_.faults.ignores_star()) return false;
    if (byte == '?') bench_.faults.ignores_question();
    return byte == '?' || byte == '*';
}

bool SimulatedBoard::counts_star(std::uint8_t byte, Time arrived) {
    call_at_.reset();
    if (byte != '*') {
        stars_ = 0;
        return false;
    }
    if (progress() != progress_at_star_) stars_ = 0;
    progress_at_star_ = progress();
    const bool apart = last_byte_ && arrived - *last_byte_ >= bench_.times.item_gap;
    spaced_ = stars_ == 0 || (spaced_ && apart);
    if (++stars_ < kCall) return false;
    if (!spaced_) call_at_ = arrived + kCallQuiet;
    return spaced_;
}

void SimulatedBoard::run_until(Time now) {
    if (call_at_ && *call_at_ <= now) {
        const Time at = *std::exchange(call_at_, std::nullopt);
        program_.machine().run(at);
        if (progress() == progress_at_star_) call_to_command_loop(at);
    }
    program_.machine().run(now);
}

void SimulatedBoard::call_to_command_loop(Time at) {
    bench_.out.forget(at);
    program_.machine().restart(at);
}

std::optional<SimulatedBoard::Time> SimulatedBoard::next_event() const {
    std::optional<Time> next;
    for (const auto& event : {program_.machine().next_event(), bench_.out.next(), call_at_})
        if (event && (!next || *event < *next)) next = event;
    return next;
}

void SimulatedBoard::add_fault(std::string_view text) {
    auto reading = read_fault(text);
    if (!reading.fault) throw std::invalid_argument{reading.error};
    add_fault(std::move(*reading.fault));
}

void SimulatedBoard::ignore_bursts(std::size_t count) {
    add_fault(Fault{.kind = Fault::Kind::IgnoreBursts, .n = count});
}

}  // namespace quillon
