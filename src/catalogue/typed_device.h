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

// Case and blanks around the text don't count. A text that is a whole name, with or without its
// "PIC", means that device even if longer names contain it. Any other text must be in one name
// only.
[[nodiscard]] TypedDevice typed_device(std::string_view typed, std::span<const std::string> names);

}  // namespace quillon
