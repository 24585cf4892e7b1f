// SPDX-License-Identifier: MIT
// A whole run in virtual time: the real flows, the simulated board in the process, the shipped
// catalogue, and everything that a user would see, noted down.
//
// When it goes, it looks that the port is closed, that the controls can be used again and that the
// board had nothing to complain of. A wait that never ends is given up after ten minutes on its
// clock.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "board/board.h"
#include "board/in_process_port.h"
#include "board/time_source.h"
#include "run/run.h"
#include "support/fakes.h"
#include "support/message_log.h"

namespace quillon::test {

using namespace std::chrono_literals;
using Lines = std::vector<std::string>;

// What the shipped catalogue says of one device, as a catalogue of its own, with some of its rows
// given another value.
struct CatalogueBlock {
    std::string_view device;
    std::vector<std::pair<std::string, std::string>> other_values{};
};
std::string catalogue_of(const std::vector<CatalogueBlock>& blocks);

// The user's answers, and a look at the moment in which a box comes up.
class BenchDialogs : public FakeDialogs {
  public:
    BoxAnswer box(const MessageBox& asked) override {
        if (on_box) on_box();
        return FakeDialogs::box(asked);
    }
    std::function<void()> on_box;
};

// A clock that cuts a sleep as the real host does, with a turn of the interface in between.
class BenchHost : public FakeHost {
  public:
    void sleep(std::chrono::milliseconds time) override {
        sleeps.push_back(time);
        const Time end = now() + time;
        do {
            advance_to(std::min<Time>(end, now() + 10ms));
            pump();
        } while (now() < end);
    }
};

class Bench {
  public:
    // The device is selected ("" for none), its image filled with a pattern, and a blank part of
    // its kind is in the socket.
    explicit Bench(std::string_view device = "PIC16F877A") : Bench{device, {}} {}
    Bench(std::string_view device, std::vector<CatalogueBlock> blocks);
    ~Bench();
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    // Every area of the image gets values of its own in every place.
    void fill_image();
    // The image as it is after the device was selected: all ones.
    void clear_image();
    // The part in the socket holds what the image holds.
    void program_target();
    // Another blank part, of that device of the catalogue. The selection is kept.
    void put_into_socket(std::string_view device);
    // Takes the protection bits off configuration word 1, in the part that is in the socket.
    void protect_target();

    // The exchanges since the last call to this or since the start.
    std::string wire();
    std::string log() const;  // of the current log file
    std::string device() const { return run->session.DeviceName; }
    SimulatedTarget& target() { return board.target(); }
    Session& session() { return run->session; }
    MainForm& form() { return run->form; }

    // The image as it goes over the wire.
    std::vector<std::uint8_t> program_image() const;
    std::vector<std::uint8_t> eeprom_image() const;

    // True while an operation may be started: all controls that it locks can be used.
    bool controls_are_back() const;
    // Names of the controls of the four buttons and of the device list that can be used.
    Lines enabled_buttons() const;

    // The user closes the window at the first turn at which the condition holds.
    void give_up_when(std::function<bool()> condition) { gives_up_ = std::move(condition); }
    // The user presses the stop button in the first turn at which the condition holds.
    void stop_when(std::function<bool()> condition) { stops_ = std::move(condition); }
    // Another ten minutes from now on, for a test that runs many operations.
    void restart_the_clock();
    // Does something as that message comes up, once.
    void when_shown(std::string_view message, std::function<void()> action);

    TempFolder folder;
    BenchHost host;
    BenchDialogs dialogs;
    MemoryStore store;
    SimulatedBoard board;
    VirtualTime time{host, [this](Host::Time until) { host.advance_to(until); }};
    InProcessPort port{board, time};
    std::unique_ptr<Run> run;
    std::unique_ptr<MessageLog> shown;

    // For tests in which these are no mistake.
    bool notes_expected = false;
    bool buttons_stay_locked = false;

  private:
    void select(std::string_view device);
    void watch_the_clock();

    std::function<bool()> gives_up_;
    std::function<bool()> stops_;
    Host::Time end_{};
    std::vector<Connection> watches_;
};

}  // namespace quillon::test
