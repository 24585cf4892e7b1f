// SPDX-License-Identifier: MIT
#include "cli/set_controls.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <variant>

#include "app/text.h"
#include "cli/cli_texts.h"
#include "cli/set_config.h"
#include "image/fill.h"
#include "parts/device_traits.h"

namespace quillon::cli {

namespace {

using Problem = std::optional<std::string>;

// The boxes that a user can type into. All other text boxes only show a value.
constexpr std::array<std::string_view, 8> kTextBoxes{
    "Text_ID",  "Text_ID1",        "Text_ID2", "Text_ID3",
    "Text_ID4", "Text_Calib_Data", "Text_BG",  "Text_OSCCAL_Data",
};
// The menu items with a check mark. All other items are commands.
constexpr std::array<std::string_view, 6> kCheckedItems{
    "mnuBlankSkip", "mnuComMode1",     "mnuBoardInfomation",
    "mnuLock",      "HexUpperAddress", "HexFileCheck",
};
// Lists that don't hold a value of the operation.
constexpr std::array<std::string_view, 1> kNoValueLists{"CmbInit"};

bool holds(std::span<const std::string_view> names, std::string_view name) {
    return std::ranges::count(names, name) > 0;
}

std::optional<int> number(std::string_view text) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return value;
}

// n of "CONFIGn", 0 for any other name.
int config_number(std::string_view name) {
    constexpr std::string_view kConfig = "CONFIG";
    if (!name.starts_with(kConfig)) return 0;
    const auto n = number(name.substr(kConfig.size()));
    return n && *n >= 1 && *n <= kConfigWords ? *n : 0;
}

Problem bad(const NamedValue& set, std::string_view wanted) {
    return fmt::format(text::kBadValue, set.name, set.value, wanted);
}

Problem check_switch(const NamedValue& set) {
    return set.value == "0" || set.value == "1" ? Problem{} : bad(set, "0 or 1");
}

// Checks whether a control of this kind and name can be set to the text at all.
struct Check {
    const NamedValue& set;

    Problem operator()(const CheckBox*) const { return check_switch(set); }
    Problem operator()(const MenuItem*) const {
        return holds(kCheckedItems, set.name) ? check_switch(set) : not_settable();
    }
    Problem operator()(const ComboBox*) const {
        if (set.name == "Combo_device") return fmt::format(text::kUseDevice, set.name);
        return holds(kNoValueLists, set.name) ? not_settable() : Problem{};
    }
    Problem operator()(const TextBox*) const {
        if (!holds(kTextBoxes, set.name)) return not_settable();
        const bool digits = !set.value.empty() && std::ranges::all_of(set.value, [](char c) {
            return hex_digit(c).has_value();
        });
        return digits ? Problem{} : bad(set, "a text of hexadecimal digits");
    }
    template <typename Other>
    Problem operator()(const Other*) const {
        return not_settable();
    }
    Problem not_settable() const { return fmt::format(text::kNotSettable, set.name); }
};

struct Apply {
    Run& run;
    const NamedValue& set;

    Problem operator()(CheckBox* box) const {
        box->Checked.set(set.value == "1");
        return {};
    }
    Problem operator()(MenuItem* item) const {
        item->Checked.set(set.value == "1");
        if (set.name == "mnuBlankSkip") ApplyBlankSkip(run.session.DeviceName, run.form);
        return {};
    }
    Problem operator()(ComboBox* list) const {
        if (list->select(std::string_view{set.value})) return {};
        const auto index = number(set.value);
        return index && list->select(*index) ? Problem{} : bad(set, "an entry of the list");
    }
    Problem operator()(TextBox* box) const {
        constexpr std::string_view kId = "Text_ID";
        if (set.name == kId)
            return run.id_entry.take_digits(set.value) ? Problem{}
                                                       : bad(set, "an ID of this device");
        if (set.name.starts_with(kId)) {
            if (!has_four_word_id(run.session.DeviceName))
                return bad(set, "usable: this device takes its ID from Text_ID");
            const int n = set.name.back() - '0';
            return run.id_entry.take_word(n, set.value) ? Problem{} : bad(set, "an ID word");
        }
        const auto limit = box->MaxLength.get();
        if (limit != 0 && set.value.size() > limit)
            return bad(set, fmt::format("a text of at most {} characters", limit));
        box->Text.set(upper(set.value));
        return {};
    }
    template <typename Other>
    Problem operator()(Other*) const {
        return {};
    }
};

Problem check(Run& run, const NamedValue& set) {
    if (set.name == "PowerMode")
        return set.value == "VPP" || set.value == "VDD" ? Problem{} : bad(set, "VPP or VDD");
    if (set.name == "VddVppDelay") {
        const auto delay = number(set.value);
        return delay && *delay >= 0 && *delay <= 255 ? Problem{} : bad(set, "from 0 to 255");
    }
    if (config_number(set.name) != 0) return {};
    const auto* control = run.form.find(set.name);
    if (control == nullptr) return fmt::format(text::kNoControl, set.name);
    return std::visit(Check{set}, control->second);
}

Problem apply(Run& run, const NamedValue& set) {
    if (set.name == "PowerMode") {
        run.session.PowerMode = set.value;
        return {};
    }
    if (set.name == "VddVppDelay") {
        run.session.VddVppDelay = static_cast<std::uint8_t>(number(set.value).value_or(0));
        return {};
    }
    if (const int n = config_number(set.name)) return set_config(run, n, set.value);
    return std::visit(Apply{run, set}, run.form.find(set.name)->second);
}

}  // namespace

Problem check_sets(Run& run, std::span<const NamedValue> sets) {
    for (const auto& set : sets)
        if (auto problem = check(run, set)) return problem;
    return {};
}

void apply_reading_sets(Run& run, std::span<const NamedValue> sets) {
    for (const auto& set : sets) {
        if (set.name == "HexUpperAddress") run.form.HexUpperAddress.Checked.set(set.value == "1");
        if (set.name == "HexFileCheck") run.form.HexFileCheck.Checked.set(set.value == "1");
    }
}

Problem apply_sets(Run& run, std::span<const NamedValue> sets) {
    for (const auto& set : sets)
        if (auto problem = apply(run, set)) return problem;
    return {};
}

}  // namespace quillon::cli
