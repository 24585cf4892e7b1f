// SPDX-License-Identifier: MIT
// Fuzz target of the word-image loader: the first byte chooses the device, the rest is the file.
//
// An image that loads must be equal after a save and another load. The sanitizers find the rest.
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "hex/word_image_loader.h"
#include "hex_targets.h"

namespace {

using namespace quillon;
using fuzz::require;

constexpr fuzz::Device kDevices[] = {
    {"FLASH8", "PIC16F877A", 8192, 256},   {"10F2", "PIC10F200", 256, 0},
    {"12C5", "PIC12C508", 512, 0},         {"EPROM2", "PIC16C710", 512, 0},
    {"FLASH4", "PIC16F887", 8192, 256},    {"FLASH2", "PIC16F77", 8192, 0},
    {"LDR418", "ZQ-LDR418", 8192, 256},    {"FLASH8", "PIC16F1938", 16384, 256, HexAddresses::Full},
    {"FLASH4.9", "PIC16F1827", 4096, 256}, {"5F28", "PIC16F57", 2048, 0},
};

HexLoad load(std::string_view text, Session& session, HexAddresses addresses) {
    return load_word_image(text, session.DeviceName, session, addresses);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static Session session;  // 2 MB: made once
    if (size == 0) return 0;
    const std::string_view text{reinterpret_cast<const char*>(bytes) + 1, size - 1};
    const auto& device = kDevices[bytes[0] % std::size(kDevices)];
    fuzz::choose(session, device);
    const auto loaded = load(text, session, device.addresses);
    require(session.PgmWordsCat == session.PgmWords);
    fuzz::check_findings(text, session, device.addresses);
    require(loaded.sums_as_data.count <= text.size());
    if (!loaded.ok) return 0;
    require(session.ConfigWord[1] <= 0x3FFF);
    const fuzz::Content content{session};
    const auto saved = hex_text(session, session.DeviceName, device.addresses);
    fuzz::choose(session, device);
    require(load(saved, session, device.addresses).ok);
    require(fuzz::Content{session} == content);
    return 0;
}
