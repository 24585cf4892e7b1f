// SPDX-License-Identifier: MIT
// One run of the program: owns one of each object and passes them on by reference. The composition
// root of the window, of the command line and of the tests.
#pragma once

#include "app/buttons.h"
#include "app/dialogs.h"
#include "app/extend_form.h"
#include "app/host.h"
#include "app/main_form.h"
#include "app/messages.h"
#include "app/operation_log.h"
#include "app/session.h"
#include "app/settings.h"
#include "areas/context.h"
#include "catalogue/buffer_commands.h"
#include "catalogue/catalogue.h"
#include "catalogue/config_model.h"
#include "catalogue/device_check.h"
#include "catalogue/device_selection.h"
#include "files/hex_files.h"
#include "flows/extend_flows.h"
#include "flows/flows.h"
#include "flows/operation_frame.h"
#include "hex/id_entry.h"
#include "image/views.h"
#include "link/link.h"
#include "link/serial_port.h"
#include "run/device_select_form.h"
#include "run/menu_commands.h"
#include "run/option_form.h"
#include "run/stop_form.h"

namespace quillon {

// In construction order: each object refers only to those above it.
//
// A Dialogs shows frmOption and frmDeviceSelect by binding to option_form and device_select_form;
// both are loaded when it is called, and done when Visible is false.
struct Run {
    Run(SettingsStore& store, Host& host_, SerialPort& port_, Dialogs& dialogs_);
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    Host& host;
    SerialPort& port;
    Dialogs& dialogs;
    Session session;
    MainForm form;
    BoardForm board;
    AboutForm about;
    OptionForm option_form;
    ExtendForm extend_form;
    StopForm stop_form;
    DeviceSelectForm device_select_form;
    Settings settings;
    Messages messages;
    OperationLog log;
    Link link;
    OptionDialog option;
    DeviceSelectDialog device_select;
    MemoryViews views;
    IdEntry id_entry;
    Catalogue catalogue;
    ConfigModel config;
    DeviceCheck device_check;
    BufferCommands buffer;
    DeviceSelection selection;
    HexFiles files;
    RunContext context;
    OperationFrame frame;
    Flows flows;
    ExtendFlows extend;
    StopDialog stop;
    MenuCommands menu;
};

// Runs Writer_Find outside an operation. False if the search was given up. A port that vanished is
// closed, with a message.
[[nodiscard]] bool search_board(Run& run);

}  // namespace quillon
