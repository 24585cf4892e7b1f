// SPDX-License-Identifier: MIT
// Which device is meant by a text that was typed into a list of devices.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillon {

struct TypedDevice {
    std::optional<int> index{};  // of the device in the list
    std::string problem{};       // where there is none: why, as a line for the user
};

// Case and blanks around the text don't count. A whole name comes first, with or without its "PIC",
// though longer names hold it too; then the only name that holds the text.
[[nodiscard]] TypedDevice typed_device(std::string_view typed, std::span<const std::string> names);

}  // namespace quillon
