// SPDX-License-Identifier: MIT
// What stands behind COM1 to COM20 on this machine.
//
// On Windows the system has the numbers. Elsewhere each discovered port keeps the number that it
// was first given, by the most lasting name that the system has for it, in section "HostPorts": key
// "COMn", value that name. So an adapter is found again in another socket and after a restart.
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

    // Looks again. A new port takes the lowest number that no port was ever given, or, when there
    // is none, that of a port which isn't there.
    void refresh();
    // The number of a port named by the user: "COMn", a lasting name or a path. A path that isn't
    // among the discovered ports, as of a pseudo-terminal, gets a number for this run only, from 20
    // downwards.
    int assign(const std::string& name);
    // The device's path; for a port that isn't there its lasting name; empty where no port has that
    // number.
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
