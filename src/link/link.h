// SPDX-License-Identifier: MIT
// The board on its serial port: found, identified, brought back to its command loop, let go.
//
// The port is opened by Writer_Find or Writer_Check, used for one operation and closed by
// Writer_Close at its end.
#pragma once

#include "app/dialogs.h"
#include "app/host.h"
#include "app/main_form.h"
#include "app/messages.h"
#include "app/session.h"
#include "app/settings.h"
#include "app/token.h"
#include "link/serial_port.h"

namespace quillon {

class Link {
  public:
    Link(Session& session, MainForm& form, Settings& settings, Host& host, SerialPort& port,
         Dialogs& dialogs, Messages& messages);

    // Searches the board unless it has been found already. Leaves the port open.
    void Writer_Find();
    // First step of every operation: opens the port if needed, sends the "*" burst, identifies the
    // board, sets the power delay. One second attempt.
    Token Writer_Check();
    Token Power_Delay_Set();
    // Advises an update of the board's firmware below V6.76. Refuses nothing.
    void Firm_Version_Check();
    // Gives the board's last bytes time to arrive, then closes the port.
    void Writer_Close();

  private:
    Session& session_;
    MainForm& form_;
    Settings& settings_;
    Host& host_;
    SerialPort& port_;
    Dialogs& dialogs_;
    Messages& messages_;
};

}  // namespace quillon
