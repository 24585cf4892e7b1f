// SPDX-License-Identifier: MIT
// The ports of this machine behind COM1 to COM20.
//
// On Windows the system assigns the numbers. Elsewhere each port keeps the number that it got when
// it was first discovered. The settings hold it in section "HostPorts": the key is "COMn", the
// value the most lasting name that the system has for the port. So an adapter keeps its number in
// another socket and after a restart.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/settings.h"

namespace quillon {

struct FoundPort {
    std::string path;     // "/dev/ttyUSB0"; on Windows "COM3"
    std::string lasting;  // "/dev/serial/by-id/..." where the system has it, else the path
    std::string text;     // what the adapter says it is
};

// The ports of the machine, by name.
std::vector<FoundPort> discover_ports();

class HostPorts {
  public:
    static constexpr int kPorts = 20;
    using Discover = std::function<std::vector<FoundPort>()>;

    explicit HostPorts(SettingsStore& store, Discover discover = discover_ports);

    // Discovers the ports again. A new port gets the lowest number that no port ever had. If there
    // is none, it gets the lowest number of a port that isn't connected.
    void refresh();
    // The number of a port named by the user: "COMn", a lasting name or a path. A path that isn't
    // among the discovered ports, such as a pseudo-terminal, gets a number for this run only, from
    // 20 downwards.
    int assign(const std::string& name);
    // The path of the device. For a port that isn't connected it is the lasting name. Empty if no
    // port has that number.
    std::string path(int number) const;
    // For the port dialog: "/dev/ttyUSB0 (FT232R USB UART)", empty where no port has that number.
    std::string describe(int number) const;

  private:
    const FoundPort* found(int number) const;
    int number_of(const std::string& lasting) const;
    int free_number() const;
    void keep(int number, const std::string& lasting);

    SettingsStore& store_;
    Discover discover_;
    std::vector<FoundPort> found_;
    std::array<std::string, kPorts + 1> given_;  // lasting names, by number
    std::array<std::string, kPorts + 1> named_;  // paths for this run, by number
};

}  // namespace quillon
