// SPDX-License-Identifier: MIT
// Fuzz target of the HEX reader: items, records and both loaders on any bytes.
//
// The first byte chooses the device, the rest is the file. What must hold whatever the bytes are is
// checked here; the sanitizers see to the rest.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <span>
#include <string_view>

#include "app/session.h"
#include "image/fill.h"
#include "image/hex_items.h"
#include "image/pic18_loader.h"
#include "image/word_image_loader.h"

namespace {

using namespace quillon;

struct Device {
    std::string_view PgmType;
    std::string_view DeviceName;
    std::int32_t words;
    std::int32_t cells;
};

constexpr Device kDevices[] = {
    {"FLASH8", "PIC16F877A", 8192, 256},  {"10F2", "PIC10F200", 256, 0},
    {"12C5", "PIC12C508", 512, 0},        {"EPROM2", "PIC16C710", 512, 0},
    {"FLASH4", "PIC16F887", 8192, 256},   {"FLASH2", "PIC16F77", 8192, 0},
    {"LDR418", "ZQ-LDR418", 8192, 256},   {"18F_00", "PIC18F2550", 16384, 256},
    {"18F_01", "PIC18F14K50", 8192, 256}, {"18F_00", "PIC18F2515", 24576, 0},
};

void require(bool holds) {
    if (!holds) std::abort();
}

void choose(Session& session, const Device& device) {
    session.PgmType = device.PgmType;
    session.DeviceName = device.DeviceName;
    session.PgmWords = session.PgmWordsCat = device.words;
    session.EepBytes = session.EepBytesCat = device.cells;
    session.WriteBufBytes = 32;
    session.ConfigMask.fill(0x3FFF);
    FillProgramOnes(session);
    FillEepromOnes(session);
    FillIdOnes(session);
}

// Every item lies inside the text and behind the one before: the reader can't stand still.
void check_items(std::string_view text) {
    HexItems items{text};
    const char* behind = text.data();
    std::size_t count = 0;
    while (const auto item = items.next()) {
        require(item->data() >= behind && item->data() + item->size() <= text.data() + text.size());
        behind = item->data() + item->size();
        require(++count <= text.size());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static Session session;  // 2 MB: made once
    if (size == 0) return 0;
    const std::string_view text{reinterpret_cast<const char*>(bytes) + 1, size - 1};
    choose(session, kDevices[bytes[0] % std::size(kDevices)]);
    check_items(text);
    if (is_pic18_flash(session.PgmType)) {
        const auto load = load_pic18(text, session);
        require(session.PgmWordsCat >= 0 && session.PgmWordsCat <= session.PgmWords);
        require(session.EepBytesCat >= 0 && session.EepBytesCat <= session.EepBytes);
        require(!load.has_eeprom || !load.ok || session.EepBytesCat > 0);
    } else {
        const auto load = load_word_image(text, session.DeviceName, session);
        require(!load.ok || session.ConfigWord[1] <= 0x3FFF);
        require(session.PgmWordsCat == session.PgmWords);
    }
    return 0;
}
