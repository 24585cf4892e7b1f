// SPDX-License-Identifier: MIT
#include "cli/ports.h"

#include <atomic>
#include <chrono>
#include <exception>
#include <thread>

#include "board/in_process_port.h"
#include "board/pty_server.h"
#include "cli/cli_texts.h"
#include "platform/qt_serial_port.h"

namespace quillon::cli {

namespace {

using namespace std::chrono_literals;

// The simulated board's number if the user has never chosen a port. Messages need a COM port.
constexpr int kSimulatedPort = 1;
// The default speed of the pseudo-terminal is that of the link.
constexpr int kLinkBaud = 57600;

}  // namespace

Ports::Ports(const Options& options, SettingsStore& store, QtHost& host, TimeSource& time)
    : options_{options}, host_{host} {
    if (options.simulated() || options.command == Command::Simulate) {
        simulate(time);
        return;
    }
    host_ports_.emplace(store);
    port_ =
        std::make_unique<QtSerialPort>([this](int number) { return host_ports_->path(number); });
}

Ports::~Ports() = default;

// The line takes the time of its speed. The part itself takes none.
void Ports::simulate(TimeSource& time) {
    const bool served = options_.command == Command::Simulate;
    const int baud = options_.sim_baud.value_or(served ? kLinkBaud : 0);
    board_.emplace(SimulatedTarget{}, BoardTimes::none());
    for (const auto& fault : options_.faults) board_->add_fault(fault);
    socket_.emplace(*board_, options_.socket);
    port_ = std::make_unique<InProcessPort>(*board_, time, baud);
}

void Ports::choose(Run& run) {
    if (socket_) {
        if (run.session.ComNo == 0) run.session.ComNo = kSimulatedPort;
    } else if (options_.port) {
        run.session.ComNo = host_ports_->assign(*options_.port);
    }
    run.port.CommPort(run.session.ComNo);
}

std::optional<std::string> Ports::serve(
    const std::function<void(const std::string& path)>& announce) {
    try {
        PtyServer server{*board_,
                         {.baud = options_.sim_baud.value_or(kLinkBaud),
                          .link = options_.link.value_or(std::filesystem::path{})}};
        announce(options_.link ? options_.link->string() : server.path());
        std::atomic<bool> ended = false;
        const std::jthread serving{[&](const std::stop_token& stop) {
            server.run(stop);
            ended = true;
        }};
        // At the end of the run the sleep throws Abandoned. The jthread's destructor stops serving.
        while (!ended) host_.sleep(50ms);
        return std::string{text::kUnplugged};
    } catch (const Abandoned&) {
        return {};
    } catch (const std::exception& error) {
        return error.what();
    }
}

}  // namespace quillon::cli
