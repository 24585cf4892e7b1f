// SPDX-License-Identifier: MIT
// A store with a writing thread: no caller waits for it, and no value is lost.
#include "platform/deferred_settings.h"

#include <gtest/gtest.h>

#include <future>
#include <map>
#include <string>
#include <vector>

#include "platform/ini_settings_store.h"
#include "support/fakes.h"

namespace quillon {

namespace {

// A disk that blocks until its gate opens.
class SlowStore : public SettingsStore {
  public:
    std::optional<std::string> read(std::string_view, std::string_view key) override {
        ++reads;
        const auto found = values.find(std::string{key});
        return found == values.end() ? std::optional<std::string>{} : found->second;
    }
    bool write(std::string_view, std::string_view key, std::string_view value) override {
        gate.wait();
        values[std::string{key}] = value;
        order.push_back(std::string{key} + "=" + std::string{value});
        return trouble.empty();
    }
    std::string problem() const override { return trouble; }

    std::promise<void> open;
    std::shared_future<void> gate{open.get_future().share()};
    std::map<std::string, std::string> values;
    std::vector<std::string> order;
    std::string trouble;
    int reads = 0;
};

constexpr std::string_view kSection = "Settings6";

}  // namespace

TEST(DeferredSettings, gives_a_saved_value_back_while_the_disk_stands_still) {
    SlowStore disk;
    disk.values["deviceNew"] = "3";
    {
        DeferredSettings settings{disk};
        EXPECT_EQ(settings.read(kSection, "deviceNew"), "3");
        EXPECT_TRUE(settings.write(kSection, "deviceNew", "7"));
        EXPECT_EQ(settings.read(kSection, "deviceNew"), "7");
        EXPECT_EQ(disk.order.size(), 0U);
        disk.open.set_value();
    }
    EXPECT_EQ(disk.values["deviceNew"], "7");
}

TEST(DeferredSettings, writes_each_key_in_the_order_saved_before_it_ends) {
    SlowStore disk;
    {
        DeferredSettings settings{disk};
        for (const auto* key : {"a", "b", "c"}) settings.write(kSection, key, "1");
        disk.open.set_value();
    }
    EXPECT_EQ(disk.order, (std::vector<std::string>{"a=1", "b=1", "c=1"}));
}

TEST(DeferredSettings, writes_the_last_of_several_values_that_wait) {
    SlowStore disk;
    {
        DeferredSettings settings{disk};
        settings.write(kSection, "first", "0");
        for (const auto* value : {"1", "2", "3"}) {
            settings.write(kSection, "a", value);
            settings.write(kSection, "b", value);
        }
        disk.open.set_value();
    }
    EXPECT_EQ(disk.order, (std::vector<std::string>{"first=0", "a=3", "b=3"}));
}

TEST(DeferredSettings, reads_each_value_once) {
    SlowStore disk;
    disk.open.set_value();
    DeferredSettings settings{disk};
    EXPECT_EQ(settings.read(kSection, "none"), std::nullopt);
    EXPECT_EQ(settings.read(kSection, "none"), std::nullopt);
    EXPECT_EQ(disk.reads, 1);
}

TEST(DeferredSettings, tells_what_is_wrong_with_the_store) {
    SlowStore disk;
    disk.trouble = "read-only";
    disk.open.set_value();
    DeferredSettings settings{disk};
    settings.write(kSection, "a", "1");
    EXPECT_EQ(settings.problem(), "read-only");
}

TEST(DeferredSettings, does_not_wait_for_ever_to_tell) {
    SlowStore disk;
    disk.trouble = "read-only";
    DeferredSettings settings{disk};
    settings.write(kSection, "a", "1");
    EXPECT_EQ(settings.problem(), "");
    disk.open.set_value();
}

TEST(DeferredSettings, keeps_what_was_saved_in_the_real_file) {
    const test::TempFolder folder;
    {
        IniSettingsStore file{folder.path()};
        DeferredSettings settings{file};
        for (int i = 0; i < 20; ++i) settings.write(kSection, "key", std::to_string(i));
        settings.write(kSection, "点滅", "あ=い");
    }
    IniSettingsStore again{folder.path()};
    EXPECT_EQ(again.read(kSection, "key"), "19");
    EXPECT_EQ(again.read(kSection, "点滅"), "あ=い");
}

}  // namespace quillon
