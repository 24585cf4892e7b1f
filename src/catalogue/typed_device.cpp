// SPDX-License-Identifier: MIT
#include "catalogue/typed_device.h"

#include <fmt/format.h>

#include <algorithm>

#include "app/text.h"
#include "catalogue/catalogue_texts.h"

namespace quillon {

namespace {

constexpr std::string_view kMaker = "PIC";

std::optional<int> whole_name(std::string_view wanted, std::span<const std::string> names) {
    const auto found = std::ranges::find(names, wanted, upper);
    if (found == names.end()) return std::nullopt;
    return static_cast<int>(found - names.begin());
}

}  // namespace

TypedDevice typed_device(std::string_view typed, std::span<const std::string> names) {
    const std::string wanted = upper(trim(typed));
    if (wanted.empty()) return {.problem = std::string{catalogue_text::kNoDevice}};
    if (const auto index = whole_name(wanted, names)) return {.index = index};
    if (const auto index = whole_name(fmt::format("{}{}", kMaker, wanted), names))
        return {.index = index};

    const auto holds = [&](const std::string& name) {
        return upper(name).find(wanted) != std::string::npos;
    };
    const auto holding = std::ranges::count_if(names, holds);
    if (holding == 1)
        return {.index = static_cast<int>(std::ranges::find_if(names, holds) - names.begin())};
    return {.problem = holding == 0
                           ? fmt::format(catalogue_text::kUnknownDevice, trim(typed))
                           : fmt::format(catalogue_text::kSeveralDevices, trim(typed), holding)};
}

}  // namespace quillon
