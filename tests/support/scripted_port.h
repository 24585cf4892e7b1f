// SPDX-License-Identifier: MIT
// A port that answers by a script, and a journal of all that was done to it, in virtual time.
//
// A script is a row of steps. Once the host has sent exactly the bytes of a step, its answer comes
// in pieces, each with a delay after the one before. The journal holds sends, flushes, opens,
// sleeps and turns of the interface in their order. Turns in a row are one entry, since the number
// of turns in a wait means nothing.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/text.h"
#include "link/serial_port.h"
#include "support/fakes.h"

namespace quillon::test {

using namespace std::chrono_literals;

// "flush, send ?, sleep 200, pump"
class Journal {
  public:
    void note(std::string entry) {
        if (entry == "pump" && !entries_.empty() && entries_.back() == "pump") return;
        entries_.push_back(std::move(entry));
    }
    void clear() { entries_.clear(); }
    std::string text() const {
        std::string joined;
        for (const auto& entry : entries_) joined += (joined.empty() ? "" : ", ") + entry;
        return joined;
    }

  private:
    std::vector<std::string> entries_;
};

class JournalHost : public FakeHost {
  public:
    explicit JournalHost(Journal& journal) : journal_{journal} {}

    void sleep(std::chrono::milliseconds time) override {
        journal_.note("sleep " + std::to_string(time.count()));
        asleep_ = true;
        FakeHost::sleep(time);
        asleep_ = false;
    }
    void pump() override {
        if (!asleep_) journal_.note("pump");
        FakeHost::pump();
    }

  private:
    Journal& journal_;
    bool asleep_ = false;
};

// A single byte as its letter, several bytes in hexadecimal.
inline std::string byte_names(std::span<const std::uint8_t> bytes) {
    if (bytes.size() == 1 && bytes[0] > ' ' && bytes[0] < 0x7F)
        return std::string{static_cast<char>(bytes[0])};
    std::string names;
    for (const auto byte : bytes) names.append(names.empty() ? "" : " ").append(hex(byte, 2));
    return names;
}

inline std::vector<std::uint8_t> bytes_of(std::string_view text) {
    return {text.begin(), text.end()};
}

class ScriptedPort : public SerialPort {
  public:
    struct Piece {
        std::chrono::microseconds later{};  // after the piece before, or the last byte sent
        std::string bytes;
    };

    ScriptedPort(FakeHost& host, Journal& journal) : host_{host}, journal_{journal} {}

    // Adds a step to the script.
    void when(std::string_view sent, std::vector<Piece> answer = {}) {
        script_.push_back({std::string{sent}, std::move(answer)});
    }
    void when(std::string_view sent, std::string_view answer) {
        when(sent, std::vector<Piece>{{1ms, std::string{answer}}});
    }
    // Bytes that come after this delay, whatever the host sends.
    void arrives(std::chrono::microseconds later, std::string_view bytes) {
        incoming_.push_back({host_.now() + later, bytes_of(bytes)});
    }
    // "" if the host has sent exactly what the script says, to its end.
    std::string problem() const {
        if (!problem_.empty()) return problem_;
        return script_.empty() ? "" : "never sent: " + script_.front().sent;
    }

    PortOpen next_open = PortOpen::Ok;
    int chosen = 0;

    void CommPort(int number) override { chosen = number; }
    PortOpen open() override {
        journal_.note("open");
        open_ = next_open == PortOpen::Ok;
        return next_open;
    }
    void close() override {
        if (std::exchange(open_, false)) journal_.note("close");
    }
    bool is_open() const override { return open_; }
    void RTSEnable(bool on) override { journal_.note(on ? "rts on" : "rts off"); }
    std::size_t InBufferCount() override { return received().size(); }
    void discard_input() override {
        journal_.note("flush");
        received().clear();
    }
    void discard_output() override { journal_.note("flush output"); }
    void write(std::span<const std::uint8_t> bytes) override {
        journal_.note("send " + byte_names(bytes));
        for (const auto byte : bytes) take(static_cast<char>(byte));
    }
    std::vector<std::uint8_t> read() override { return std::exchange(received(), {}); }
    void wait_for_data(std::size_t wanted, std::chrono::microseconds time) override {
        const auto end = host_.now() + time;
        while (received().size() < wanted && host_.now() < end) {
            auto next = end;
            for (const auto& piece : incoming_) next = std::min(next, piece.at);
            host_.advance_to(next);
        }
    }

  private:
    struct Step {
        std::string sent;
        std::vector<Piece> answer;
    };
    struct Incoming {
        FakeHost::Time at;
        std::vector<std::uint8_t> bytes;
    };

    void take(char byte) {
        if (script_.empty() || script_.front().sent[matched_] != byte) {
            const auto odd = static_cast<std::uint8_t>(byte);
            if (problem_.empty()) problem_ = "not in the script: " + byte_names({&odd, 1});
            return;
        }
        if (++matched_ < script_.front().sent.size()) return;
        matched_ = 0;
        auto at = std::chrono::microseconds{};
        for (const auto& piece : script_.front().answer) arrives(at += piece.later, piece.bytes);
        script_.pop_front();
    }

    std::vector<std::uint8_t>& received() {
        while (!incoming_.empty() && incoming_.front().at <= host_.now()) {
            const auto& bytes = incoming_.front().bytes;
            received_.insert(received_.end(), bytes.begin(), bytes.end());
            incoming_.pop_front();
        }
        return received_;
    }

    FakeHost& host_;
    Journal& journal_;
    std::deque<Step> script_;
    std::size_t matched_ = 0;
    std::deque<Incoming> incoming_;  // in the order of their times
    std::vector<std::uint8_t> received_;
    std::string problem_;
    bool open_ = false;
};

}  // namespace quillon::test
