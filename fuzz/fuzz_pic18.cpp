// SPDX-License-Identifier: MIT
// Fuzz target of the PIC18 loader: the first byte chooses the device, the rest is the file.
//
// An image that loads must be equal after a save and another load. The sanitizers find the rest.
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "hex/pic18_loader.h"
#include "hex_targets.h"

namespace {

using namespace quillon;
using fuzz::require;

constexpr fuzz::Device kDevices[] = {
    {"18F_00", "PIC18F2550", 16384, 256},
    {"18F_01", "PIC18F14K50", 8192, 256},
    {"18F_00", "PIC18F2515", 24576, 0},
    {"18F_00", "PIC18F8722", 65536, 1024},
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static Session session;  // 2 MB: made once
    if (size == 0) return 0;
    const std::string_view text{reinterpret_cast<const char*>(bytes) + 1, size - 1};
    const auto& device = kDevices[bytes[0] % std::size(kDevices)];
    fuzz::choose(session, device);
    const auto loaded = load_pic18(text, session);
    require(session.PgmWordsCat >= 0 && session.PgmWordsCat <= session.PgmWords);
    require(session.EepBytesCat >= 0 && session.EepBytesCat <= session.EepBytes);
    require(!loaded.has_eeprom || !loaded.ok || session.EepBytesCat > 0);
    fuzz::check_findings(text, session, HexAddresses::Folded);
    require(loaded.sums_as_data.count <= text.size());
    if (!loaded.ok) return 0;
    const fuzz::Content content{session};
    const auto words = session.ConfigWord;
    const auto id = session.IdBytes18;
    const auto saved = hex_text(session, session.DeviceName);
    fuzz::choose(session, device);
    require(load_pic18(saved, session).ok);
    require(fuzz::Content{session} == content);
    require(session.ConfigWord == words && session.IdBytes18 == id);
    return 0;
}
