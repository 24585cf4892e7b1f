// SPDX-License-Identifier: MIT
// What an operation works on. The run passes it by reference to flows and families.
#pragma once

#include "app/dialogs.h"
#include "app/host.h"
#include "app/main_form.h"
#include "app/messages.h"
#include "app/operation_log.h"
#include "app/session.h"
#include "catalogue/config_model.h"
#include "catalogue/device_selection.h"
#include "image/views.h"
#include "link/link.h"
#include "link/serial_port.h"

namespace quillon {

struct RunContext {
    Session& session;
    MainForm& form;
    Host& host;
    SerialPort& port;
    Dialogs& dialogs;
    Messages& messages;
    OperationLog& log;
    MemoryViews& views;
    ConfigModel& config;
    DeviceSelection& selection;
    Link& link;
};

}  // namespace quillon
