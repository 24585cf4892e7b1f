// SPDX-License-Identifier: MIT
// Reads a text file whole, as UTF-8.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

#include "app/host.h"

namespace quillon {

// Far beyond any device: 128 KB of program take less than 1 MB of HEX text.
inline constexpr std::size_t kMostTextBytes = std::size_t{16} << 20;

struct [[nodiscard]] TextFile {
    enum class Problem : std::uint8_t {
        None,
        NotReadable,  // missing, a folder, a device, or not permitted to this user
        TooLarge,     // above kMostTextBytes
        NotText,      // holds a NUL: a binary, or UTF-16
        Changing,     // shrank or grew while it was read: half a file must not be programmed
    };
    std::string text{};
    Problem problem = Problem::None;
};

// A file that isn't valid UTF-8 is converted from the system's code page. A byte order mark is
// dropped. Line ends stay as they are.
TextFile read_text_file(const std::filesystem::path& path, const Host& host);

}  // namespace quillon
