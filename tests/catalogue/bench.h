// SPDX-License-Identifier: MIT
// A session with its form, a catalogue of the test's own, and everything that a selection touches.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/main_form.h"
#include "app/messages.h"
#include "app/session.h"
#include "app/settings.h"
#include "catalogue/buffer_commands.h"
#include "catalogue/catalogue.h"
#include "catalogue/config_model.h"
#include "catalogue/device_check.h"
#include "catalogue/device_selection.h"
#include "image/views.h"
#include "support/fakes.h"

namespace quillon::test {

struct Bench {
    // The text becomes device6.ini in a folder of the test's own; "" makes no file.
    explicit Bench(std::string_view catalogue_text = "") {
        if (!catalogue_text.empty()) folder.write("device6.ini", catalogue_text);
        session.AppPath = session.TempDir = folder.path().string() + "/";
        session.CatalogueFile = session.AppPath + "device6.ini";
        form.Combo_device.Click = [this] { selection.Combo_device_Click(); };
    }

    void load(std::string_view name) { catalogue.LoadDeviceRecord(name); }
    // As the user does it: the list, then the entry.
    bool select(std::string_view name) {
        if (form.Combo_device.Items.get().empty()) catalogue.LoadDeviceList();
        return form.Combo_device.select(name);
    }
    // The fields and options that grid n shows below its heading, "name=option".
    std::vector<std::string> grid(int n) {
        std::vector<std::string> rows;
        for (std::size_t row = 1; row < form.HFGrid(n).rows(); ++row)
            rows.push_back(form.HFGrid(n).cell(row, 0) + "=" + form.HFGrid(n).cell(row, 1));
        return rows;
    }

    TempFolder folder;
    FakeHost host;
    FakeDialogs dialogs;
    MemoryStore store;
    Settings settings{store};
    std::unique_ptr<Session> heap = std::make_unique<Session>();
    Session& session = *heap;
    MainForm form;
    BoardForm board;
    ExtendForm extend;
    Messages messages{form};
    MemoryViews views{session, form, host};
    Catalogue catalogue{session, form, board, host, dialogs};
    ConfigModel config{session, form, messages, views, catalogue};
    DeviceCheck device_check{session, form, dialogs, messages};
    BufferCommands buffer{session, form, messages, views, config, device_check};
    DeviceSelection selection{session,  form,         board,     extend, settings, dialogs,
                              messages, device_check, catalogue, config, buffer};
};

// A block of that name with the given rows, each ending in a line end.
inline std::string block(std::string_view name, std::string_view rows) {
    return "#BEGIN\n" + std::string{name} + "\n" + std::string{rows} + "#END\n";
}

// A 14-bit flash part with fields in one word.
inline constexpr std::string_view kFlashRows =
    "; an example\n"
    "PGM_TYPE FLASH4\n"
    "POWER_MODE VPP\n"
    "PACKAGE 28\n"
    "JP2 2-3\n"
    "FIRM 6.50\n"
    "VDD_VPP_DELAY 10\n"
    "PGM_SIZE_WORD 0x1FFF\n"
    "EEPROM_BYTE 0xFF\n"
    "COMMENT 8K words and 256 bytes\n"
    "CONFIG1 0B00111111 11111111 0B00000000 00000000 0B00000000 00000000 0x3FFF\n"
    "CFG1 FOSC RC 0B00000000 00000011 0B00000000 00000011\n"
    "CFG1 FOSC HS 0B00000000 00000011 0B00000000 00000010\n"
    "CFG1 FOSC XT 0B00000000 00000011 0B00000000 00000001\n"
    "CFG1 FOSC LP 0B00000000 00000011 0B00000000 00000000\n"
    "CFG1 CP ON 0B00110000 00110000 0B00000000 00000000\n"
    "CFG1 CP OFF 0B00110000 00110000 0B00110000 00110000\n";

}  // namespace quillon::test
