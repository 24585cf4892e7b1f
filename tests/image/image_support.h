// SPDX-License-Identifier: MIT
// HEX texts and devices for the tests of the image and its files.
#pragma once

#include <cstdint>
#include <memory>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "app/session.h"
#include "app/text.h"

namespace quillon::test {

using Bytes = std::vector<std::uint8_t>;

// One record with its check sum and line end.
inline std::string record(unsigned type, unsigned address, const Bytes& data) {
    Bytes bytes{static_cast<std::uint8_t>(data.size()), static_cast<std::uint8_t>(address >> 8U),
                static_cast<std::uint8_t>(address), static_cast<std::uint8_t>(type)};
    bytes.insert(bytes.end(), data.begin(), data.end());
    const auto sum = std::accumulate(bytes.begin(), bytes.end(), 0U);
    bytes.push_back(static_cast<std::uint8_t>(0U - sum));
    return ":" + hex_bytes(bytes) + "\r\n";
}

inline std::string data(unsigned address, const Bytes& bytes) { return record(0, address, bytes); }

inline std::string upper_address(unsigned upper) {
    return record(4, 0, {static_cast<std::uint8_t>(upper >> 8U), static_cast<std::uint8_t>(upper)});
}

// A segment record, which tools write for data between 64 K and 1 MB. The value is a sixteenth of
// the address to add.
inline std::string segment(unsigned value) {
    return record(2, 0, {static_cast<std::uint8_t>(value >> 8U), static_cast<std::uint8_t>(value)});
}

inline const std::string kEndRecord = ":00000001FF\r\n";

// A session with a device of the given type and sizes; its configuration masks let all pass.
inline std::unique_ptr<Session> device(std::string_view PgmType, std::string_view DeviceName,
                                       std::int32_t words, std::int32_t cells = 0) {
    auto session = std::make_unique<Session>();
    session->PgmType = PgmType;
    session->DeviceName = DeviceName;
    session->PgmWords = session->PgmWordsCat = words;
    session->EepBytes = session->EepBytesCat = cells;
    session->ConfigMask.fill(0xFFFF);
    return session;
}

// Indices `first` to `last` of an array, as hexadecimal digits.
template <typename Array>
std::string bytes_of(const Array& array, std::size_t first, std::size_t last) {
    return hex_bytes(std::span{array}.subspan(first, last - first + 1));
}

}  // namespace quillon::test
