// SPDX-License-Identifier: MIT
// The numbers of the settings store: key, default, range, and which texts aren't accepted.
#include "app/number_settings.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "support/fakes.h"

namespace quillon {
namespace {

struct Row {
    NumberSetting setting;
    std::string key;
    int default_value;
    int lowest;
    int highest;
};

class number_settings : public testing::TestWithParam<Row> {
  protected:
    void given(const std::string& value) { store.write("Settings6", GetParam().key, value); }
    void expect(int value, bool usable, const std::string& given) {
        EXPECT_EQ(value_of(settings, GetParam().setting), value) << given;
        EXPECT_EQ(is_usable(settings, GetParam().setting), usable) << given;
    }
    test::MemoryStore store;
    Settings settings{store};
};

TEST_P(number_settings, has_its_default_where_nothing_is_saved) {
    EXPECT_EQ(GetParam().setting.key, GetParam().key);
    expect(GetParam().default_value, true, "nothing");
}

TEST_P(number_settings, takes_what_is_saved_at_both_ends_of_its_range) {
    for (const int value : {GetParam().lowest, 1, 12345, GetParam().highest}) {
        given(std::to_string(value));
        expect(value, true, std::to_string(value));
    }
}

TEST_P(number_settings, has_its_default_beyond_its_range_and_is_told_of) {
    for (const int value : {GetParam().lowest - 1, GetParam().highest + 1,
                            std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        given(std::to_string(value));
        expect(GetParam().default_value, false, std::to_string(value));
    }
}

TEST_P(number_settings, has_its_default_for_what_is_no_number_and_is_told_of) {
    for (const auto* value : {"", " ", "abc", "True", "1.5", "0x10", "99999999999", "１"}) {
        given(value);
        expect(GetParam().default_value, false, value);
    }
}

INSTANTIATE_TEST_SUITE_P(
    all, number_settings,
    testing::Values(Row{number_setting::MainLeft, "MainLeft", 100, -1'000'000, 1'000'000},
                    Row{number_setting::MainTop, "MainTop", 100, -1'000'000, 1'000'000},
                    Row{number_setting::MainHeight, "MainHeight", 7860, 0, 1'000'000},
                    Row{number_setting::BoardLeft, "BoardLeft", 0, -1'000'000, 1'000'000},
                    Row{number_setting::BoardTop, "BoardTop", 0, -1'000'000, 1'000'000},
                    Row{number_setting::ComNo, "ComNo", 0, 0, 32767}),
    [](const auto& row) { return row.param.key; });

}  // namespace
}  // namespace quillon
