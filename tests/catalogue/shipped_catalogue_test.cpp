// SPDX-License-Identifier: MIT
// Every device of the catalogue that is shipped with the product.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "catalogue/bench.h"

namespace quillon::test {
namespace {

struct Shipped : Bench {
    Shipped() {
        session.CatalogueFile = QUILLON_CATALOGUE;
        catalogue.LoadDeviceList();
    }
};

TEST(shipped_catalogue, lists_its_devices) {
    Shipped bench;
    EXPECT_FALSE(bench.session.CatError);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_EQ(bench.session.DeviceList.size(), 212U);
}

TEST(shipped_catalogue, selects_each_of_its_devices_without_a_box) {
    Shipped bench;
    for (const auto& name : bench.session.DeviceList) {
        bench.session.PgmType = "";
        ASSERT_TRUE(bench.select(name));
        EXPECT_TRUE(bench.dialogs.boxes.empty()) << name << ": " << bench.session.CatErrorText;
        bench.dialogs.boxes.clear();
        EXPECT_EQ(bench.session.DeviceName, name);
        EXPECT_NE(bench.session.PgmType.text(), "") << name;
        EXPECT_GT(bench.session.PgmWords, 0) << name;
        EXPECT_TRUE(bench.session.ConfigPresent[1]) << name;
    }
}

TEST(shipped_catalogue, shows_an_option_for_every_field_of_every_device) {
    Shipped bench;
    for (const auto& name : bench.session.DeviceList) {
        ASSERT_TRUE(bench.select(name));
        for (int n = 1; n <= 7; ++n)
            for (const auto& row : bench.grid(n))
                EXPECT_FALSE(row.ends_with('=')) << name << " word " << n << " " << row;
    }
}

TEST(shipped_catalogue, has_help_for_every_field) {
    Shipped bench;
    for (const auto& name : bench.session.DeviceList) {
        ASSERT_TRUE(bench.select(name));
        for (const auto& option : bench.catalogue.options()) {
            bool found = false;
            for (const auto& help : bench.catalogue.CmtTable()) found |= help.key == option.name;
            EXPECT_TRUE(found) << name << " " << option.name;
        }
    }
}

}  // namespace
}  // namespace quillon::test
