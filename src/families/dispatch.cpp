// SPDX-License-Identifier: MIT
#include "families/dispatch.h"

#include <algorithm>
#include <array>
#include <span>

#include "families/modules.h"

namespace quillon {

namespace {

using Names = std::span<const std::string_view>;

constexpr std::string_view kGeneric = "generic";

constexpr std::array<std::string_view, 16> kEnhancedSmall{
    "PIC12F1822", "PIC12LF1822", "PIC16F1823", "PIC16LF1823", "PIC16F1824", "PIC16LF1824",
    "PIC16F1825", "PIC16LF1825", "PIC16F1828", "PIC16LF1828", "PIC16F1829", "PIC16LF1829",
    "PIC16F1826", "PIC16LF1826", "PIC16F1827", "PIC16LF1827",
};
constexpr std::array<std::string_view, 8> kEnhanced193x{
    "PIC16F1933", "PIC16LF1933", "PIC16F1934", "PIC16LF1934",
    "PIC16F1936", "PIC16LF1936", "PIC16F1937", "PIC16LF1937",
};
constexpr std::array<std::string_view, 4> kEnhanced1939{
    "PIC16F1938",
    "PIC16LF1938",
    "PIC16F1939",
    "PIC16LF1939",
};
constexpr std::array<std::string_view, 9> k10F200{
    "PIC10F200", "PIC10F202", "PIC10F204", "PIC10F206", "PIC10F220",
    "PIC10F222", "PIC12F508", "PIC12F509", "PIC12F510",
};
constexpr std::array<std::string_view, 1> k16F54{"PIC16F54"};
constexpr std::array<std::string_view, 1> k16F57{"PIC16F57"};
constexpr std::array<std::string_view, 5> k16F88X{
    "PIC16F882", "PIC16F883", "PIC16F884", "PIC16F886", "PIC16F887",
};
constexpr std::array<std::string_view, 5> k16F91X{
    "PIC16F913", "PIC16F914", "PIC16F916", "PIC16F917", "PIC16F946",
};
constexpr std::array<std::string_view, 4> k16F7X7{
    "PIC16F737",
    "PIC16F747",
    "PIC16F767",
    "PIC16F777",
};
constexpr std::array<std::string_view, 8> k16F6XX{
    "PIC16F631", "PIC16F677", "PIC16F684", "PIC16F685",
    "PIC16F687", "PIC16F688", "PIC16F689", "PIC16F690",
};
constexpr std::array<std::string_view, 3> k1XF63X{"PIC12F635", "PIC16F636", "PIC16F639"};
constexpr std::array<std::string_view, 8> k12F609{
    "PIC12F609",  "PIC12F615",  "PIC16F610",  "PIC16F616",
    "PIC12HV609", "PIC12HV615", "PIC16HV610", "PIC16HV616",
};
constexpr std::array<std::string_view, 2> k16F785{"PIC16F785", "PIC16HV785"};
constexpr std::array<std::string_view, 1> k16F716{"PIC16F716"};
constexpr std::array<std::string_view, 6> k12C5XXX{
    "PIC12C508", "PIC12C508A", "PIC12C509", "PIC12C509A", "PIC12C518", "PIC12C519",
};
constexpr std::array<std::string_view, 1> k12F683{"PIC12F683"};
constexpr std::array<std::string_view, 4> k16F877{
    "PIC16F873",
    "PIC16F874",
    "PIC16F876",
    "PIC16F877",
};
constexpr std::array<std::string_view, 4> k16F877A{
    "PIC16F873A",
    "PIC16F874A",
    "PIC16F876A",
    "PIC16F877A",
};
constexpr std::array<std::string_view, 1> kLDR412{"ZQ-LDR412"};
constexpr std::array<std::string_view, 1> kLDR412A{"ZQ-LDR412A"};
constexpr std::array<std::string_view, 1> kLDR418{"ZQ-LDR418"};
constexpr std::array<std::string_view, 4> k18F252{
    "PIC18F252",
    "PIC18F258",
    "PIC18F242",
    "PIC18F248",
};
constexpr std::array<std::string_view, 1> k18F452{"PIC18F452"};
constexpr std::array<std::string_view, 1> k18F8720{"PIC18F8720"};
constexpr std::array<std::string_view, 3> k18F1320{"PIC18F1220", "PIC18F1320", "PIC18F1230"};
constexpr std::array<std::string_view, 2> k18F2320{"PIC18F2220", "PIC18F2320"};
constexpr std::array<std::string_view, 1> k18F2420{"PIC18F2420"};
constexpr std::array<std::string_view, 1> k18F2431{"PIC18F2431"};
constexpr std::array<std::string_view, 1> k18F2450{"PIC18F2450"};
constexpr std::array<std::string_view, 1> k18F2455{"PIC18F2455"};
constexpr std::array<std::string_view, 1> k18F2515{"PIC18F2515"};
constexpr std::array<std::string_view, 1> k18F4585{"PIC18F4585"};
constexpr std::array<std::string_view, 11> k18F2550{
    "PIC18F2550", "PIC18F2620", "PIC18F4520", "PIC18F4525", "PIC18F4550", "PIC18F2553",
    "PIC18F2523", "PIC18F2580", "PIC18F2480", "PIC18F2221", "PIC18F2321",
};
constexpr std::array<std::string_view, 1> k18F8722{"PIC18F8722"};
constexpr std::array<std::string_view, 4> k18F14K50{
    "PIC18F13K50",
    "PIC18F14K50",
    "PIC18LF13K50",
    "PIC18LF14K50",
};

using Make = std::unique_ptr<Family> (*)(RunContext&);

struct Row {
    Names devices;
    std::string_view module;
    Make make = nullptr;  // nullptr while the module isn't built
};

// In this order; the first row that holds the name wins.
constexpr std::array kRows{
    Row{kEnhancedSmall, "PIC1XF18XX"},
    Row{kEnhanced193x, "PIC16F19xx"},
    Row{kEnhanced1939, "PIC16F1939"},
    Row{k10F200, "PIC10F200"},
    Row{k16F54, "PIC16F54"},
    Row{k16F57, "PIC16F57"},
    Row{k16F88X, "PIC16F88X"},
    Row{k16F91X, "PIC16F91X"},
    Row{k16F7X7, "PIC16F7X7"},
    Row{k16F6XX, "PIC16F6XX"},
    Row{k1XF63X, "PIC1XF63X"},
    Row{k12F609, "PIC12F609"},
    Row{k16F785, "PIC16F785"},
    Row{k16F716, "PIC16F716"},
    Row{k12C5XXX, "PIC12C5XXX"},
    Row{k12F683, "PIC12F683"},
    Row{k16F877, "PIC16F877", PIC16F877},
    Row{k16F877A, "PIC16F877A", PIC16F877A},
    Row{kLDR412, "ZQLDR412"},
    Row{kLDR412A, "ZQLDR412A"},
    Row{kLDR418, "ZQLDR418"},
    Row{k18F252, "PIC18F252"},
    Row{k18F452, "PIC18F452"},
    Row{k18F8720, "PIC18F8720"},
    Row{k18F1320, "PIC18F1320"},
    Row{k18F2320, "PIC18F2320"},
    Row{k18F2420, "PIC18F2420"},
    Row{k18F2431, "PIC18F2431"},
    Row{k18F2450, "PIC18F2450"},
    Row{k18F2455, "PIC18F2455"},
    Row{k18F2515, "PIC18F2515"},
    Row{k18F4585, "PIC18F4585"},
    Row{k18F2550, "PIC18F2550"},
    Row{k18F8722, "PIC18F8722"},
    Row{k18F14K50, "PIC18F14K50"},
};

// Where a chain doesn't take the row's module.
struct Deviation {
    Chain chain;
    std::string_view device;
    std::string_view module;
};

constexpr std::array kDeviations{
    // The read chain looks for these names where the others have PIC16F1827 and PIC16LF1827, which
    // therefore go the generic way.
    Deviation{Chain::Read, "PIC18F1827", "PIC1XF18XX"},
    Deviation{Chain::Read, "PIC18LF1827", "PIC1XF18XX"},
    Deviation{Chain::Read, "PIC16F1827", kGeneric},
    Deviation{Chain::Read, "PIC16LF1827", kGeneric},
    // The verify chain holds it beside PIC18F2220 and PIC18F2320.
    Deviation{Chain::Verify, "PIC18F1230", "PIC18F2320"},
};

}  // namespace

std::string_view family_of(std::string_view device, Chain chain) {
    for (const auto& deviation : kDeviations)
        if (deviation.chain == chain && deviation.device == device) return deviation.module;
    for (const auto& row : kRows) {
        if (std::ranges::find(row.devices, device) == row.devices.end()) continue;
        // PIC1XF18XX has no blank entry of its own.
        if (chain == Chain::Blank && row.module == "PIC1XF18XX") return "PIC16F19xx";
        return row.module;
    }
    return kGeneric;
}

std::unique_ptr<Family> make_family(std::string_view device, Chain chain, RunContext& context) {
    const auto module = family_of(device, chain);
    const auto row = std::ranges::find(kRows, module, &Row::module);
    if (row == kRows.end() || row->make == nullptr) return nullptr;
    return row->make(context);
}

}  // namespace quillon
