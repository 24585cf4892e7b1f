// SPDX-License-Identifier: MIT
#include "parts/modules.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <span>

namespace quillon {

namespace {

// A fixed list, so that a row can hold its devices itself.
struct Names {
    std::array<std::string_view, 16> names{};
    std::size_t count = 0;

    consteval Names(std::initializer_list<std::string_view> list) : count{list.size()} {
        std::ranges::copy(list, names.begin());
    }
    constexpr std::span<const std::string_view> all() const {
        return std::span{names}.first(count);
    }
};

struct Row {
    Module module;
    std::string_view name;
    Names devices;
};

// Searched in this order; the first row that lists the name wins.
constexpr std::array kRows{
    Row{Module::PIC1XF18XX,
        "PIC1XF18XX",
        {"PIC12F1822", "PIC12LF1822", "PIC16F1823", "PIC16LF1823", "PIC16F1824", "PIC16LF1824",
         "PIC16F1825", "PIC16LF1825", "PIC16F1828", "PIC16LF1828", "PIC16F1829", "PIC16LF1829",
         "PIC16F1826", "PIC16LF1826", "PIC16F1827", "PIC16LF1827"}},
    Row{Module::PIC16F19xx,
        "PIC16F19xx",
        {"PIC16F1933", "PIC16LF1933", "PIC16F1934", "PIC16LF1934", "PIC16F1936", "PIC16LF1936",
         "PIC16F1937", "PIC16LF1937"}},
    Row{Module::PIC16F1939,
        "PIC16F1939",
        {"PIC16F1938", "PIC16LF1938", "PIC16F1939", "PIC16LF1939"}},
    Row{Module::PIC10F200,
        "PIC10F200",
        {"PIC10F200", "PIC10F202", "PIC10F204", "PIC10F206", "PIC10F220", "PIC10F222", "PIC12F508",
         "PIC12F509", "PIC12F510"}},
    Row{Module::PIC16F54, "PIC16F54", {"PIC16F54"}},
    Row{Module::PIC16F57, "PIC16F57", {"PIC16F57"}},
    Row{Module::PIC16F88X,
        "PIC16F88X",
        {"PIC16F882", "PIC16F883", "PIC16F884", "PIC16F886", "PIC16F887"}},
    Row{Module::PIC16F91X,
        "PIC16F91X",
        {"PIC16F913", "PIC16F914", "PIC16F916", "PIC16F917", "PIC16F946"}},
    Row{Module::PIC16F7X7, "PIC16F7X7", {"PIC16F737", "PIC16F747", "PIC16F767", "PIC16F777"}},
    Row{Module::PIC16F6XX,
        "PIC16F6XX",
        {"PIC16F631", "PIC16F677", "PIC16F684", "PIC16F685", "PIC16F687", "PIC16F688", "PIC16F689",
         "PIC16F690"}},
    Row{Module::PIC1XF63X, "PIC1XF63X", {"PIC12F635", "PIC16F636", "PIC16F639"}},
    Row{Module::PIC12F609,
        "PIC12F609",
        {"PIC12F609", "PIC12F615", "PIC16F610", "PIC16F616", "PIC12HV609", "PIC12HV615",
         "PIC16HV610", "PIC16HV616"}},
    Row{Module::PIC16F785, "PIC16F785", {"PIC16F785", "PIC16HV785"}},
    Row{Module::PIC16F716, "PIC16F716", {"PIC16F716"}},
    Row{Module::PIC12C5XXX,
        "PIC12C5XXX",
        {"PIC12C508", "PIC12C508A", "PIC12C509", "PIC12C509A", "PIC12C518", "PIC12C519"}},
    Row{Module::PIC12F683, "PIC12F683", {"PIC12F683"}},
    Row{Module::PIC16F877, "PIC16F877", {"PIC16F873", "PIC16F874", "PIC16F876", "PIC16F877"}},
    Row{Module::PIC16F877A, "PIC16F877A", {"PIC16F873A", "PIC16F874A", "PIC16F876A", "PIC16F877A"}},
    Row{Module::ZQLDR412, "ZQLDR412", {"ZQ-LDR412"}},
    Row{Module::ZQLDR412A, "ZQLDR412A", {"ZQ-LDR412A"}},
    Row{Module::ZQLDR418, "ZQLDR418", {"ZQ-LDR418"}},
    Row{Module::PIC18F252, "PIC18F252", {"PIC18F252", "PIC18F258", "PIC18F242", "PIC18F248"}},
    Row{Module::PIC18F452, "PIC18F452", {"PIC18F452"}},
    Row{Module::PIC18F8720, "PIC18F8720", {"PIC18F8720"}},
    Row{Module::PIC18F1320, "PIC18F1320", {"PIC18F1220", "PIC18F1320", "PIC18F1230"}},
    Row{Module::PIC18F2320, "PIC18F2320", {"PIC18F2220", "PIC18F2320"}},
    Row{Module::PIC18F2420, "PIC18F2420", {"PIC18F2420"}},
    Row{Module::PIC18F2431, "PIC18F2431", {"PIC18F2431"}},
    Row{Module::PIC18F2450, "PIC18F2450", {"PIC18F2450"}},
    Row{Module::PIC18F2455, "PIC18F2455", {"PIC18F2455"}},
    Row{Module::PIC18F2515, "PIC18F2515", {"PIC18F2515"}},
    Row{Module::PIC18F4585, "PIC18F4585", {"PIC18F4585"}},
    Row{Module::PIC18F2550,
        "PIC18F2550",
        {"PIC18F2550", "PIC18F2620", "PIC18F4520", "PIC18F4525", "PIC18F4550", "PIC18F2553",
         "PIC18F2523", "PIC18F2580", "PIC18F2480", "PIC18F2221", "PIC18F2321"}},
    Row{Module::PIC18F8722, "PIC18F8722", {"PIC18F8722"}},
    Row{Module::PIC18F14K50,
        "PIC18F14K50",
        {"PIC18F13K50", "PIC18F14K50", "PIC18LF13K50", "PIC18LF14K50"}},
    Row{Module::Generic, "generic", {}},
};

constexpr bool rows_follow_the_enum() {
    for (std::size_t i = 0; i < kRows.size(); ++i)
        if (static_cast<std::size_t>(kRows[i].module) != i) return false;
    return kRows.size() == kModules;
}
static_assert(rows_follow_the_enum());

// A device for which one chain uses another module than the device's row.
struct Deviation {
    Chain chain;
    std::string_view device;
    Module module;
};

constexpr std::array kDeviations{
    // The read chain lists these names in the place of PIC16F1827 and PIC16LF1827. Those two are
    // therefore read the generic way.
    Deviation{Chain::Read, "PIC18F1827", Module::PIC1XF18XX},
    Deviation{Chain::Read, "PIC18LF1827", Module::PIC1XF18XX},
    Deviation{Chain::Read, "PIC16F1827", Module::Generic},
    Deviation{Chain::Read, "PIC16LF1827", Module::Generic},
    // The verify chain lists it with PIC18F2220 and PIC18F2320.
    Deviation{Chain::Verify, "PIC18F1230", Module::PIC18F2320},
};

const Row& row_of(Module module) { return kRows[static_cast<std::size_t>(module)]; }

}  // namespace

Module module_of(std::string_view device, Chain chain) {
    for (const auto& deviation : kDeviations)
        if (deviation.chain == chain && deviation.device == device) return deviation.module;
    for (const auto& row : kRows) {
        if (std::ranges::find(row.devices.all(), device) == row.devices.all().end()) continue;
        // PIC1XF18XX has no blank entry of its own.
        if (chain == Chain::Blank && row.module == Module::PIC1XF18XX) return Module::PIC16F19xx;
        return row.module;
    }
    return Module::Generic;
}

std::string_view name_of(Module module) { return row_of(module).name; }

std::span<const std::string_view> devices_of(Module module) { return row_of(module).devices.all(); }

}  // namespace quillon
