// SPDX-License-Identifier: MIT
// Which module serves which device: every row of the table in all four chains, and the places in
// which a chain deviates on purpose.
#include "parts/modules.h"

#include <gtest/gtest.h>

#include <array>
#include <string_view>
#include <vector>

namespace quillon::test {

namespace {

struct Row {
    std::string_view module;
    std::vector<std::string_view> devices;
};

// In the order in which the chains test.
const std::vector<Row> kTable{
    {"PIC1XF18XX",
     {"PIC12F1822", "PIC12LF1822", "PIC16F1823", "PIC16LF1823", "PIC16F1824", "PIC16LF1824",
      "PIC16F1825", "PIC16LF1825", "PIC16F1828", "PIC16LF1828", "PIC16F1829", "PIC16LF1829",
      "PIC16F1826", "PIC16LF1826", "PIC16F1827", "PIC16LF1827"}},
    {"PIC16F19xx",
     {"PIC16F1933", "PIC16LF1933", "PIC16F1934", "PIC16LF1934", "PIC16F1936", "PIC16LF1936",
      "PIC16F1937", "PIC16LF1937"}},
    {"PIC16F1939", {"PIC16F1938", "PIC16LF1938", "PIC16F1939", "PIC16LF1939"}},
    {"PIC10F200",
     {"PIC10F200", "PIC10F202", "PIC10F204", "PIC10F206", "PIC10F220", "PIC10F222", "PIC12F508",
      "PIC12F509", "PIC12F510"}},
    {"PIC16F54", {"PIC16F54"}},
    {"PIC16F57", {"PIC16F57"}},
    {"PIC16F88X", {"PIC16F882", "PIC16F883", "PIC16F884", "PIC16F886", "PIC16F887"}},
    {"PIC16F91X", {"PIC16F913", "PIC16F914", "PIC16F916", "PIC16F917", "PIC16F946"}},
    {"PIC16F7X7", {"PIC16F737", "PIC16F747", "PIC16F767", "PIC16F777"}},
    {"PIC16F6XX",
     {"PIC16F631", "PIC16F677", "PIC16F684", "PIC16F685", "PIC16F687", "PIC16F688", "PIC16F689",
      "PIC16F690"}},
    {"PIC1XF63X", {"PIC12F635", "PIC16F636", "PIC16F639"}},
    {"PIC12F609",
     {"PIC12F609", "PIC12F615", "PIC16F610", "PIC16F616", "PIC12HV609", "PIC12HV615", "PIC16HV610",
      "PIC16HV616"}},
    {"PIC16F785", {"PIC16F785", "PIC16HV785"}},
    {"PIC16F716", {"PIC16F716"}},
    {"PIC12C5XXX",
     {"PIC12C508", "PIC12C508A", "PIC12C509", "PIC12C509A", "PIC12C518", "PIC12C519"}},
    {"PIC12F683", {"PIC12F683"}},
    {"PIC16F877", {"PIC16F873", "PIC16F874", "PIC16F876", "PIC16F877"}},
    {"PIC16F877A", {"PIC16F873A", "PIC16F874A", "PIC16F876A", "PIC16F877A"}},
    {"ZQLDR412", {"ZQ-LDR412"}},
    {"ZQLDR412A", {"ZQ-LDR412A"}},
    {"ZQLDR418", {"ZQ-LDR418"}},
    {"PIC18F252", {"PIC18F252", "PIC18F258", "PIC18F242", "PIC18F248"}},
    {"PIC18F452", {"PIC18F452"}},
    {"PIC18F8720", {"PIC18F8720"}},
    {"PIC18F1320", {"PIC18F1220", "PIC18F1320", "PIC18F1230"}},
    {"PIC18F2320", {"PIC18F2220", "PIC18F2320"}},
    {"PIC18F2420", {"PIC18F2420"}},
    {"PIC18F2431", {"PIC18F2431"}},
    {"PIC18F2450", {"PIC18F2450"}},
    {"PIC18F2455", {"PIC18F2455"}},
    {"PIC18F2515", {"PIC18F2515"}},
    {"PIC18F4585", {"PIC18F4585"}},
    {"PIC18F2550",
     {"PIC18F2550", "PIC18F2620", "PIC18F4520", "PIC18F4525", "PIC18F4550", "PIC18F2553",
      "PIC18F2523", "PIC18F2580", "PIC18F2480", "PIC18F2221", "PIC18F2321"}},
    {"PIC18F8722", {"PIC18F8722"}},
    {"PIC18F14K50", {"PIC18F13K50", "PIC18F14K50", "PIC18LF13K50", "PIC18LF14K50"}},
};

constexpr std::array kChains{Chain::Blank, Chain::Program, Chain::Read, Chain::Verify};

std::string_view module_name(std::string_view device, Chain chain) {
    return name_of(module_of(device, chain));
}

// The three deviations.
std::string_view expected(Chain chain, std::string_view module, std::string_view device) {
    if (chain == Chain::Blank && module == "PIC1XF18XX") return "PIC16F19xx";
    if (chain == Chain::Read && (device == "PIC16F1827" || device == "PIC16LF1827"))
        return "generic";
    if (chain == Chain::Verify && device == "PIC18F1230") return "PIC18F2320";
    return module;
}

}  // namespace

TEST(module_of, finds_every_device_of_the_table_in_every_chain) {
    std::size_t devices = 0;
    for (const auto& row : kTable) {
        for (const auto device : row.devices) {
            ++devices;
            for (const auto chain : kChains)
                EXPECT_EQ(module_name(device, chain), expected(chain, row.module, device))
                    << device << " in chain " << static_cast<int>(chain);
        }
    }
    EXPECT_EQ(devices, 126U);
}

TEST(module_of, sends_the_sixteen_small_enhanced_parts_to_PIC16F19xx_for_a_blank_check) {
    for (const auto device : kTable[0].devices) {
        EXPECT_EQ(module_name(device, Chain::Blank), "PIC16F19xx");
        EXPECT_EQ(module_name(device, Chain::Program), "PIC1XF18XX");
    }
}

TEST(module_of, misses_PIC16F1827_in_the_read_chain_and_holds_a_name_that_no_part_has) {
    EXPECT_EQ(module_name("PIC16F1827", Chain::Read), "generic");
    EXPECT_EQ(module_name("PIC16LF1827", Chain::Read), "generic");
    EXPECT_EQ(module_name("PIC16F1826", Chain::Read), "PIC1XF18XX");
    for (const auto* name : {"PIC18F1827", "PIC18LF1827"}) {
        EXPECT_EQ(module_name(name, Chain::Read), "PIC1XF18XX");
        EXPECT_EQ(module_name(name, Chain::Blank), "generic");
        EXPECT_EQ(module_name(name, Chain::Program), "generic");
        EXPECT_EQ(module_name(name, Chain::Verify), "generic");
    }
}

TEST(module_of, verifies_PIC18F1230_with_the_module_of_PIC18F2320) {
    EXPECT_EQ(module_name("PIC18F1230", Chain::Verify), "PIC18F2320");
    EXPECT_EQ(module_name("PIC18F1230", Chain::Read), "PIC18F1320");
    EXPECT_EQ(module_name("PIC18F1230", Chain::Program), "PIC18F1320");
    EXPECT_EQ(module_name("PIC18F1220", Chain::Verify), "PIC18F1320");
}

TEST(module_of, leaves_every_other_name_to_the_generic_engine) {
    for (const auto* name : {"", "PIC16F84A", "PIC16F628A", "PIC12F675", "PIC18F4620", "pic16f877a",
                             "PIC16F877 ", "PIC16F87", "PIC16F877AX", "LDR412", "ZQ-LDR"})
        for (const auto chain : kChains) EXPECT_EQ(module_name(name, chain), "generic") << name;
}

TEST(module_of, means_the_program_chain_where_none_is_named) {
    EXPECT_EQ(name_of(module_of("PIC12F1822")), "PIC1XF18XX");
}

}  // namespace quillon::test
