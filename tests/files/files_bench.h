// SPDX-License-Identifier: MIT
// A run's objects as far as files need them, with a catalogue of a few devices.
#pragma once

#include <filesystem>
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
#include "files/hex_files.h"
#include "image/image_support.h"
#include "image/views.h"
#include "support/fakes.h"

namespace quillon::test {

inline constexpr std::string_view kFewDevices = R"(VERSION 6 . 12
#BEGIN
PIC16F877A
PGM_TYPE FLASH8
PGM_SIZE_WORD 0x1FFF
EEPROM_BYTE 0xFF
CONFIG1 0x3FFF 0x1030 0x0000 0x3FFF
CFG1 FOSC RC 0x0003 0x0003
CFG1 FOSC HS 0x0003 0x0002
CFG1 FOSC XT 0x0003 0x0001
CFG1 WDT ON 0x0004 0x0004
CFG1 WDT OFF 0x0004 0x0000
#END
#BEGIN
PIC16F84A
PGM_TYPE FLASH1
PGM_SIZE_WORD 0x3FF
EEPROM_BYTE 0x3F
CONFIG1 0x3FFF 0x0000 0x0000 0x3FFF
#END
#BEGIN
PIC18F2550
PGM_TYPE 18F_00
PGM_SIZE_WORD 0x3FFF
EEPROM_BYTE 0xFF
WRITE_BUFFER_SIZE_BYTE 32
CONFIG1 0x0500 0x0000 0x0000 0xFFFF
CFG1 FOSC HS 0x0F00 0x0500
CFG1 FOSC EC 0x0F00 0x0E00
CFG1 DIV 1 0xF0FF 0x0000
CFG1 DIV 5 0xF0FF 0x0024
CONFIG7 0x400F 0x0000 0x0000 0xFFFF
#END
#BEGIN
PIC18F2515
PGM_TYPE 18F_00
PGM_SIZE_WORD 0x5FFF
EEPROM_BYTE 0
WRITE_BUFFER_SIZE_BYTE 64
#END
#BEGIN
PIC16F887
PGM_TYPE FLASH4
PGM_SIZE_WORD 0x1FFF
EEPROM_BYTE 0xFF
CONFIG1 0x3FFF 0x0000 0x0000 0x3FFF
CONFIG2 0x3FFF 0x3800 0x0000 0x3FFF
#END
)";

struct FilesBench {
    explicit FilesBench(std::string_view device = "PIC16F877A") {
        session.CatalogueFile = folder.write("device6.ini", kFewDevices).string();
        session.TempDir = (folder.path() / "").string();
        session.MainTitle = "Quillon V4 V4.0.1  ";
        form.Combo_device.Click = [this] { selection.Combo_device_Click(); };
        catalogue.LoadDeviceList();
        if (!device.empty()) form.Combo_device.select(device);
        watch = messages.shown.connect([this](const ShownMessage& message) {
            shown.push_back((message.colour == Colour::Red ? "red " : "") + message.text +
                            (message.extra.empty() ? "" : "|" + message.extra));
        });
        dialogs.power_questions.clear();
        form.HexFileCheck.Checked.set(true);
    }

    // Opens a file of that content as if chosen in the dialog.
    Token open(std::string_view text, std::string_view name = "work/a.hex") {
        std::filesystem::create_directories((folder / name).parent_path());
        shown.clear();
        return files.mnuFileOpen_Click(folder.write(name, text));
    }
    std::string first_program_line() const { return form.RichTxtPgmMem.Text.get().substr(0, 47); }
    std::string path(std::string_view name) const { return (folder / name).string(); }

    TempFolder folder;
    FakeHost host;
    FakeDialogs dialogs;
    MemoryStore store;
    Session session;
    MainForm form;
    BoardForm board;
    ExtendForm extend;
    AboutForm about;
    Settings settings{store};
    Messages messages{form};
    MemoryViews views{session, form, host};
    Catalogue catalogue{session, form, board, host, dialogs};
    ConfigModel config{session, form, messages, views, catalogue};
    DeviceCheck device_check{session, form, dialogs, messages};
    BufferCommands buffer{session, form, messages, views, config, device_check};
    DeviceSelection selection{session,  form,         board,     extend, settings, dialogs,
                              messages, device_check, catalogue, config, buffer};
    HexFiles files{session,  form,  about,  settings, host,     dialogs,
                   messages, views, config, buffer,   selection};
    std::vector<std::string> shown;  // "red " before a red text, "|" between main and extra text
    Connection watch;
};

// The same on the shipped catalogue.
struct AllDevices : FilesBench {
    AllDevices() : FilesBench{""} {
        session.CatalogueFile = QUILLON_CATALOGUE;
        catalogue.LoadDeviceList();
    }
};

}  // namespace quillon::test
