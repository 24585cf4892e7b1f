// SPDX-License-Identifier: MIT
// frmOption, the port dialog. Its state and behaviour are here; a window only shows them.
#pragma once

#include <array>

#include "app/controls.h"
#include "app/dialogs.h"
#include "app/messages.h"
#include "app/session.h"
#include "app/settings.h"
#include "link/link.h"
#include "link/serial_port.h"

namespace quillon {

inline constexpr int kComPorts = 20;

// Visible from its load until it is unloaded.
struct OptionForm : Form {
    OptionForm() { Caption.set("通信ポート選択して下さい。"); }

    // Instance n is COM(n+1); option buttons, so that choosing one clears the others.
    std::array<CheckBox, kComPorts> Option_Com{
        {{*this, "Option_Com(0)", "COM1"},   {*this, "Option_Com(1)", "COM2"},
         {*this, "Option_Com(2)", "COM3"},   {*this, "Option_Com(3)", "COM4"},
         {*this, "Option_Com(4)", "COM5"},   {*this, "Option_Com(5)", "COM6"},
         {*this, "Option_Com(6)", "COM7"},   {*this, "Option_Com(7)", "COM8"},
         {*this, "Option_Com(8)", "COM9"},   {*this, "Option_Com(9)", "COM10"},
         {*this, "Option_Com(10)", "COM11"}, {*this, "Option_Com(11)", "COM12"},
         {*this, "Option_Com(12)", "COM13"}, {*this, "Option_Com(13)", "COM14"},
         {*this, "Option_Com(14)", "COM15"}, {*this, "Option_Com(15)", "COM16"},
         {*this, "Option_Com(16)", "COM17"}, {*this, "Option_Com(17)", "COM18"},
         {*this, "Option_Com(18)", "COM19"}, {*this, "Option_Com(19)", "COM20"}}};
    Button Command_Ok{*this, "Command_Ok", "OK"};
    Button Command1{*this, "Command1", "CANCEL"};
};

class OptionDialog {
  public:
    OptionDialog(OptionForm& form, Session& session, Settings& settings, SerialPort& port,
                 Dialogs& dialogs, Messages& messages, Link& link)
        : form_{form},
          session_{session},
          settings_{settings},
          port_{port},
          dialogs_{dialogs},
          messages_{messages},
          link_{link} {}

    void Form_Load();
    // The user's choice of one button, 0 to 19.
    void Option_Com_Click(int instance);
    // Opens the chosen port and leaves it open. True if the form is done. If the port can't be
    // opened, a box reports that and the form stays open.
    bool Command_Ok_Click();
    // CANCEL, Escape and the close box: restores the port that was chosen when the form was loaded.
    void Command1_Click();

  private:
    void choose();
    void refuse(PortOpen reason);

    OptionForm& form_;
    Session& session_;
    Settings& settings_;
    SerialPort& port_;
    Dialogs& dialogs_;
    Messages& messages_;
    Link& link_;
    int former_ = 0;  // ComNo at the load
};

}  // namespace quillon
