// SPDX-License-Identifier: MIT
// The port that a command works on: a host port, or the simulated board behind one.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "board/board.h"
#include "board/time_source.h"
#include "cli/options.h"
#include "cli/simulated_socket.h"
#include "link/serial_port.h"
#include "platform/host_ports.h"
#include "platform/qt_host.h"
#include "run/run.h"

namespace quillon::cli {

class Ports {
  public:
    // `time` is the clock of the simulated line.
    Ports(const Options& options, SettingsStore& store, QtHost& host, TimeSource& time);
    ~Ports();

    SerialPort& port() { return *port_; }
    // Makes --port the run's port number. Without --port the saved number is used.
    void choose(Run& run);
    // nullptr if no board is simulated.
    SimulatedSocket* socket() { return socket_ ? &*socket_ : nullptr; }

    // Serves the simulated board on a pseudo-terminal until the run is given up. `announce` gets
    // the name to connect to. Returns a text if something went wrong.
    [[nodiscard]] std::optional<std::string> serve(
        const std::function<void(const std::string& path)>& announce);

  private:
    void simulate(TimeSource& time);

    const Options& options_;
    QtHost& host_;
    std::optional<HostPorts> host_ports_;
    std::optional<SimulatedBoard> board_;
    std::optional<SimulatedSocket> socket_;
    std::unique_ptr<SerialPort> port_;
};

}  // namespace quillon::cli
