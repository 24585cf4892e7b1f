// SPDX-License-Identifier: MIT
#include "platform/host_ports.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "support/fakes.h"

namespace quillon {
namespace {

using test::MemoryStore;

const FoundPort kFirst{"/dev/ttyUSB0", "/dev/serial/by-id/usb-A", "FT232R USB UART"};
const FoundPort kSecond{"/dev/ttyUSB1", "/dev/serial/by-id/usb-B", ""};

class HostPorts_ : public testing::Test {
  protected:
    HostPorts ports() {
        return HostPorts{store, [this] { return there; }};
    }
    std::string saved(std::string_view key) { return store.read("HostPorts", key).value_or(""); }
    MemoryStore store;
    std::vector<FoundPort> there{kFirst, kSecond};
};

TEST_F(HostPorts_, gives_numbers_from_1_and_keeps_them_by_the_lasting_name) {
    const auto one = ports();
    EXPECT_EQ(one.path(1), "/dev/ttyUSB0");
    EXPECT_EQ(one.path(2), "/dev/ttyUSB1");
    EXPECT_EQ(one.path(3), "");
    EXPECT_EQ(saved("COM1"), "/dev/serial/by-id/usb-A");
    EXPECT_EQ(saved("COM2"), "/dev/serial/by-id/usb-B");
}

TEST_F(HostPorts_, finds_an_adapter_under_its_number_in_another_socket) {
    static_cast<void>(ports());
    there = {{"/dev/ttyUSB7", kSecond.lasting, ""}};
    const auto later = ports();
    EXPECT_EQ(later.path(2), "/dev/ttyUSB7");
    EXPECT_EQ(later.path(1), kFirst.lasting);  // not connected: opening it fails
}

TEST_F(HostPorts_, gives_no_number_away_while_others_are_free) {
    static_cast<void>(ports());
    there = {{"/dev/ttyUSB0", "/dev/serial/by-id/usb-C", ""}};
    EXPECT_EQ(ports().path(3), "/dev/ttyUSB0");
    EXPECT_EQ(saved("COM1"), kFirst.lasting);
}

TEST_F(HostPorts_, takes_the_number_of_an_absent_port_when_all_are_given) {
    for (int n = 1; n <= 20; ++n)
        store.write("HostPorts", fmt::format("COM{}", n), fmt::format("/dev/old{}", n));
    store.write("HostPorts", "COM1", kFirst.lasting);
    const auto full = ports();
    EXPECT_EQ(full.path(1), "/dev/ttyUSB0");
    EXPECT_EQ(full.path(2), "/dev/ttyUSB1");
    EXPECT_EQ(full.path(3), "/dev/old3");
}

TEST_F(HostPorts_, shows_no_more_than_20) {
    there.clear();
    for (int n = 0; n < 25; ++n) {
        const auto path = fmt::format("/dev/ttyS{}", n);
        there.push_back({path, path, ""});
    }
    const auto many = ports();
    EXPECT_EQ(many.path(20), "/dev/ttyS19");
    EXPECT_EQ(many.path(21), "");
    EXPECT_EQ(many.path(0), "");
    EXPECT_EQ(many.path(-1), "");
}

TEST_F(HostPorts_, looks_again_when_asked) {
    there = {kFirst};
    auto live = ports();
    EXPECT_EQ(live.path(2), "");
    there = {kFirst, kSecond};
    live.refresh();
    EXPECT_EQ(live.path(2), "/dev/ttyUSB1");
}

TEST_F(HostPorts_, describes_what_is_behind_a_number) {
    auto live = ports();
    EXPECT_EQ(live.describe(1), "/dev/ttyUSB0 (FT232R USB UART)");
    EXPECT_EQ(live.describe(2), "/dev/ttyUSB1");
    EXPECT_EQ(live.describe(3), "");
    EXPECT_EQ(live.describe(99), "");
    there.clear();
    live.refresh();
    EXPECT_EQ(live.describe(1), "/dev/serial/by-id/usb-A （未接続）");
}

TEST_F(HostPorts_, knows_a_port_that_the_user_names_in_any_way) {
    auto live = ports();
    EXPECT_EQ(live.assign("COM7"), 7);
    EXPECT_EQ(live.assign("com2"), 2);
    EXPECT_EQ(live.assign("/dev/ttyUSB1"), 2);
    EXPECT_EQ(live.assign("/dev/serial/by-id/usb-A"), 1);
}

TEST_F(HostPorts_, gives_a_pseudo_terminal_a_number_for_this_run_only) {
    auto live = ports();
    EXPECT_EQ(live.assign("/dev/pts/991"), 20);
    EXPECT_EQ(live.assign("/dev/pts/992"), 19);
    EXPECT_EQ(live.assign("/dev/pts/991"), 20);
    EXPECT_EQ(live.path(20), "/dev/pts/991");
    EXPECT_EQ(live.describe(19), "/dev/pts/992");
    EXPECT_EQ(saved("COM20"), "");
    EXPECT_EQ(ports().path(20), "");
}

TEST_F(HostPorts_, follows_a_link_to_a_discovered_port) {
    const test::TempFolder folder;
    const auto device = folder.write("ttyX", "");
    std::filesystem::create_symlink(device, folder / "board");
    const auto real = std::filesystem::canonical(device).string();
    there = {{real, real, ""}};
    EXPECT_EQ(ports().assign((folder / "board").string()), 1);
}

TEST_F(HostPorts_, takes_no_bad_number_for_a_port) {
    auto live = ports();
    EXPECT_EQ(live.assign("COM0"), 20);  // no valid number, so it names a file
    EXPECT_EQ(live.path(live.assign("COM0")), std::filesystem::absolute("COM0").string());
}

TEST(discover_ports_, names_each_port_once_and_by_a_path) {
    std::vector<std::string> seen;
    for (const auto& port : discover_ports()) {
        EXPECT_FALSE(port.path.empty());
        EXPECT_FALSE(port.lasting.empty());
        EXPECT_EQ(std::ranges::count(seen, port.path), 0) << port.path;
        seen.push_back(port.path);
    }
}

}  // namespace
}  // namespace quillon
