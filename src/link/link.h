// SPDX-License-Identifier: MIT
// The board on its serial port: found, identified, brought back to its command loop, released.
//
// The port is opened by Writer_Find or Writer_Check, used for one operation and closed by
// Writer_Close at its end.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "app/dialogs.h"
#include "app/host.h"
#include "app/main_form.h"
#include "app/messages.h"
#include "app/session.h"
#include "app/settings.h"
#include "app/token.h"
#include "link/serial_port.h"

namespace quillon {

// The version in the last four characters of an identity, nothing where they aren't a number.
std::optional<double> firm_version(std::string_view identity);

class Link {
  public:
    Link(Session& session, MainForm& form, Settings& settings, Host& host, SerialPort& port,
         Dialogs& dialogs, Messages& messages)
        : session_{session},
          form_{form},
          settings_{settings},
          host_{host},
          port_{port},
          dialogs_{dialogs},
          messages_{messages} {}

    // Searches for the board unless it has been found already. Leaves the port open.
    void Writer_Find();
    // First step of every operation: opens the port if needed, sends the "*" burst, identifies the
    // board, sets the power delay. Tries at most twice.
    Token Writer_Check();
    Token Power_Delay_Set();
    // Powers the target and holds it, the supply first that the device asks for; and off again.
    void Power_ON();
    void Power_OFF();
    // Advises an update of the board's firmware below V6.76. Never refuses a board.
    void Firm_Version_Check();
    // Gives the board's last bytes time to arrive, then closes the port.
    void Writer_Close();

    // Called when no board is known at the port, or no port is chosen: forgets the former board and
    // shows that in the label.
    void show_no_board();

  private:
    void send(char letter);
    void send(std::uint8_t byte);
    std::string read_identity();
    void show_board();
    bool open_port();
    bool open_for_search();
    void report_denied();
    bool wake_and_ask();
    bool resynchronise(std::chrono::milliseconds limit);
    Token accept_board();
    Token port_not_chosen();

    Session& session_;
    MainForm& form_;
    Settings& settings_;
    Host& host_;
    SerialPort& port_;
    Dialogs& dialogs_;
    Messages& messages_;
    PortOpen last_open_ = PortOpen::Ok;
};

}  // namespace quillon
