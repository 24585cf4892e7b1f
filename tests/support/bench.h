// SPDX-License-Identifier: MIT
// A whole run in virtual time: the real flows, the simulated board in the process, the shipped
// catalogue, and a record of everything that a user would see.
//
// The destructor checks that the port is closed, that the controls can be used again and that the
// board has no notes. A wait that never ends is given up after ten minutes of virtual time.
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

// A device's block of the shipped catalogue, in which some rows may get another value. Under
// another name it is a device that a user has entered, which no family serves.
struct CatalogueBlock {
    std::string_view device;
    std::vector<std::pair<std::string, std::string>> other_values{};
    std::string_view name{};  // "" for the device's own
};
std::string catalogue_of(const std::vector<CatalogueBlock>& blocks);

// The user's answers. `on_box` is called at the moment in which a box comes up.
class BenchDialogs : public FakeDialogs {
  public:
    BoxAnswer box(const MessageBox& asked) override {
        if (on_box) on_box();
        return FakeDialogs::box(asked);
    }
    std::function<void()> on_box;
};

// A host that sleeps in short pieces as the real one does, with a turn of the interface after each.
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
    // Selects the device ("" for none), fills its image with a pattern and puts a blank part of its
    // kind into the socket. Without `blocks` the catalogue has the usual devices.
    explicit Bench(std::string_view device = "PIC16F877A") : Bench{device, {}} {}
    Bench(std::string_view device, std::vector<CatalogueBlock> blocks);
    ~Bench();
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    // Gives every place of every area a value of its own, see fill_pattern().
    void fill_image();
    // The image as it is after the device was selected: all ones.
    void clear_image();
    // Copies the image into the part in the socket.
    void program_target();
    // Puts a blank part of that device into the socket. The selection is kept.
    void put_into_socket(std::string_view device);
    // Clears the protection bits of configuration word 1 in the part in the socket: 0 protects.
    void protect_target();

    // The exchanges since the last call, or since the start.
    std::string wire();
    std::string log() const;  // of the current log file
    std::string device() const { return run->session.DeviceName; }
    SimulatedTarget& target() { return board.target(); }
    Session& session() { return run->session; }
    MainForm& form() { return run->form; }

    // The bytes of the image in the order of the wire.
    std::vector<std::uint8_t> program_image() const;
    std::vector<std::uint8_t> eeprom_image() const;

    // True while an operation may be started: all controls that it locks can be used.
    bool controls_are_back() const;
    // The names of the controls that an operation locks and that can be used now.
    Lines enabled_buttons() const;

    // The user closes the window in the first turn in which the condition holds.
    void give_up_when(std::function<bool()> condition) { gives_up_ = std::move(condition); }
    // The user presses the stop button in the first turn in which the condition holds.
    void stop_when(std::function<bool()> condition) { stops_ = std::move(condition); }
    // Allows another ten minutes from now on, for a test that runs many operations.
    void restart_the_clock();
    // Runs the action when the message is shown for the first time.
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

    // Switch off checks of the destructor, for tests in which these are no mistake.
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
