// SPDX-License-Identifier: MIT
// Fuzz target of the item reader, the fields of a record and the file check, with any bytes.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "hex_targets.h"

namespace {

using namespace quillon;
using fuzz::require;

// Every item lies inside the text and after the one before, so the reader always comes to an end.
void check_items(std::string_view text) {
    HexItems items{text};
    const char* behind = text.data();
    std::size_t count = 0, line = 0;
    while (const auto item = items.next()) {
        require(item->data() >= behind && item->data() + item->size() <= text.data() + text.size());
        require(item->find_first_of("\r\n") == std::string_view::npos);
        require(items.line() == line || items.line() == line + 1);
        line = items.line();
        behind = item->data() + item->size();
        require(++count <= text.size());
        if (const auto record = HexRecord::parse(*item); record && record->is_data())
            require(record->address() <= 0xFFFF && record->data_characters() <= 510);
    }
    require(line <= count);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string_view text{reinterpret_cast<const char*>(bytes), size};
    check_items(text);
    static Session session;  // 2 MB: made once
    session.PgmType = "FLASH8";
    session.DeviceName = "PIC16F1938";
    session.PgmWords = 16384;
    session.EepBytes = 256;
    fuzz::check_findings(text, session, HexAddresses::Folded);
    fuzz::check_findings(text, session, HexAddresses::Full);
    session.PgmType = "18F_00";
    fuzz::check_findings(text, session, HexAddresses::Folded);
    return 0;
}
