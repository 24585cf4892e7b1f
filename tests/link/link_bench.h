// SPDX-License-Identifier: MIT
// What the tests of the link need: a scripted port, virtual time, COM3, a device with a power
// delay of 10 ms.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "app/main_form.h"
#include "app/messages.h"
#include "app/session.h"
#include "app/settings.h"
#include "link/exchange.h"
#include "link/link.h"
#include "support/fakes.h"
#include "support/message_log.h"
#include "support/scripted_port.h"

namespace quillon::test {

// 16 characters of identity and a line end: 18 bytes.
inline constexpr std::string_view kIdentity = "ZQ-LDR412A V6.80\r\n";
inline constexpr std::string_view kBurst = "***?";
inline constexpr std::string_view kDelay = "mD\x0A";

class LinkBench {
  public:
    LinkBench() {
        session.ComNo = 3;
        session.VddVppDelay = 10;
        session.PowerMode = "VDD";
    }
    ~LinkBench() { EXPECT_EQ(port.problem(), ""); }
    LinkBench(const LinkBench&) = delete;
    LinkBench& operator=(const LinkBench&) = delete;

    // The port as an operation finds it once the check is over, with nothing in the journal.
    void open_port() {
        EXPECT_EQ(port.open(), PortOpen::Ok);
        journal.clear();
    }
    const std::string& label() const { return form.Label_FirmwareVersion.Caption.get(); }

    Journal journal;
    JournalHost host{journal};
    ScriptedPort port{host, journal};
    FakeDialogs dialogs;
    MemoryStore store;
    Session session;
    MainForm form;
    Settings settings{store};
    Messages messages{form};
    MessageLog shown{messages};
    Link link{session, form, settings, host, port, dialogs, messages};
    Exchange wire{{}, host, port, messages};
};

using Lines = std::vector<std::string>;

}  // namespace quillon::test
