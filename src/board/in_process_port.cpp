// SPDX-License-Identifier: MIT
#include "board/in_process_port.h"

#include <algorithm>
#include <utility>

namespace quillon {

InProcessPort::InProcessPort(SimulatedBoard& board, TimeSource& time, int baud)
    : board_{board}, time_{time}, out_{baud}, in_{baud} {
    // On a slow line the two bytes of an item come further apart.
    board_.times().item_gap = std::max(board_.times().item_gap, 2 * out_.byte_time());
}

PortOpen InProcessPort::open() {
    catch_up();
    if (board_.unplugged()) return PortOpen::Unavailable;
    if (open_result_ != PortOpen::Ok) return open_result_;
    input_.clear();
    if (!std::exchange(open_, true)) ++opens_;
    return PortOpen::Ok;
}

void InProcessPort::close() {
    if (!open_) return;
    catch_up();
    open_ = false;
    ++closes_;
    input_.clear();
}

std::size_t InProcessPort::InBufferCount() {
    if (!open_) return 0;
    require_port();
    return input_.size();
}

void InProcessPort::discard_input() {
    if (!open_) return;
    require_port();
    input_.clear();
}

void InProcessPort::discard_output() {
    if (open_) require_port();
}

void InProcessPort::write(std::span<const std::uint8_t> bytes) {
    require_port();
    if (bytes.empty()) return;
    const Time now = time_.now();
    wire_.to_board(now, bytes);
    for (const auto byte : bytes) to_board_.push_back({byte, out_.pass(now)});
    catch_up();
}

std::vector<std::uint8_t> InProcessPort::read() {
    require_port();
    return std::exchange(input_, {});
}

void InProcessPort::wait_for_data(std::size_t wanted, std::chrono::microseconds time) {
    const Time limit = time_.now() + time;
    for (;;) {
        require_port();
        if (input_.size() >= wanted || time_.now() >= limit) return;
        const auto next = next_event(wanted);
        time_.advance_to(next ? std::min(*next, limit) : limit);
    }
}

WireLog& InProcessPort::wire() {
    catch_up();
    return wire_;
}

void InProcessPort::require_port() {
    catch_up();
    if (!open_ || board_.unplugged()) throw Abandoned{Abandoned::Reason::PortLost};
}

void InProcessPort::catch_up() {
    const Time now = time_.now();
    while (!to_board_.empty() && to_board_.front().at <= now) {
        const Byte byte = to_board_.front();
        to_board_.pop_front();
        board_.receive(byte.value, byte.at);
        collect(byte.at);
    }
    board_.run_until(now);
    collect(now);
    while (!from_board_.empty() && from_board_.front().at <= now) {
        const Byte byte = from_board_.front();
        from_board_.pop_front();
        if (board_.unplugged()) continue;
        wire_.from_board(byte.at, byte.value);
        if (open_) input_.push_back(byte.value);
    }
}

// Puts the board's ready bytes on the line. A report of several bytes arrives in one piece, when
// its last bit has been sent.
void InProcessPort::collect(Time until) {
    std::size_t together = 0;
    for (const auto& sent : board_.take_sent(until)) {
        const Time at = in_.pass(sent.ready);
        from_board_.push_back({sent.value, at});
        ++together;
        if (sent.more) continue;
        for (auto byte = from_board_.rbegin(); together > 0; ++byte, --together) byte->at = at;
    }
}

// The next time at which a wait can make progress. Where the awaited byte is on the line already,
// this is the time of its arrival.
std::optional<InProcessPort::Time> InProcessPort::next_event(std::size_t wanted) const {
    const std::size_t missing = wanted - input_.size();
    if (from_board_.size() >= missing) return from_board_[missing - 1].at;
    std::optional<Time> next = board_.next_event();
    const auto consider = [&](const std::deque<Byte>& line) {
        if (!line.empty() && (!next || line.front().at < *next)) next = line.front().at;
    };
    consider(to_board_);
    consider(from_board_);
    return next;
}

}  // namespace quillon
