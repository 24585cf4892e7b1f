// SPDX-License-Identifier: MIT
// Every device, group and type in the real window. Each is also chosen after devices that have left
// other controls shown.
#include "device_panels.h"

#include <gtest/gtest.h>

#include <QTabWidget>

namespace quillon::test {
namespace {

const Texts kThreeBits{"111 (最大値)", "110", "101", "100 (中央値)",
                       "000 (中央値)", "001", "010", "011 (最小値)"};
const Texts kTwoBits{"11 (最大値)", "10", "01", "00 (最小値)"};
const Texts kBor91X{"111 (最大値)", "110", "101", "100", "011", "010", "001 (最小値)"};
const Texts kWur{"000", "001", "010", "011", "100", "101", "110", "111"};

Texts fcal_entries() {
    Texts list;
    for (int value = 63; value >= -64; --value)
        list.push_back((value > 0 ? "+" : "") + std::to_string(value));
    list[0] += " (最大値)";
    list[63] += "  (中央値)";  // 2 blanks
    list[127] += " (最小値)";
    return list;
}

void expect_combo(const FormBench& bench, const char* name, const Texts& entries, int index) {
    const auto* combo = bench.find<QComboBox>(name);
    Texts standing;
    for (int i = 0; i < combo->count(); ++i) standing.push_back(combo->itemText(i).toStdString());
    EXPECT_EQ(standing, entries) << bench.run->session.DeviceName << " " << name;
    EXPECT_EQ(combo->currentIndex(), index) << bench.run->session.DeviceName << " " << name;
    EXPECT_FALSE(combo->isEnabled()) << "the box that keeps calibration is checked";
}

class device_panels : public DevicePanels {};

TEST_F(device_panels, of_every_device_of_the_catalogue_in_turn_show_its_group_and_its_type) {
    const Texts devices = session().DeviceList;
    ASSERT_EQ(devices.size(), 212U);
    ASSERT_NO_FATAL_FAILURE(choose(devices.back()));
    for (const auto& device : devices) {
        bench().dialogs.power_questions.clear();
        ASSERT_NO_FATAL_FAILURE(choose_and_compare(device));
        EXPECT_TRUE(bench().dialogs.boxes.empty()) << device << ": " << session().CatErrorText;
        EXPECT_EQ(bench().dialogs.power_questions.size(),
                  group_row(device).power_question ? 1U : 0U)
            << device;
        const auto* tabs = bench().find<QTabWidget>("SSTab_Config");
        EXPECT_EQ(tabs->currentIndex(), 0) << device;
        for (int n = 1; n <= 7; ++n)
            EXPECT_EQ(tabs->isTabVisible(n - 1),
                      session().ConfigPresent[static_cast<std::size_t>(n)])
                << device << " word " << n;
    }
}

TEST_F(device_panels, of_each_group_show_its_row_behind_devices_that_had_shown_all_else) {
    // One shows all the 91X combos, one the three others, one none.
    for (const char* before : {"PIC12F635", "PIC16F887", "PIC16F877A"})
        for (const auto& row : group_rows()) {
            if (row.devices.front() == before) continue;
            ASSERT_NO_FATAL_FAILURE(choose(before));
            ASSERT_NO_FATAL_FAILURE(choose_and_compare(row.devices.front()));
        }
}

TEST_F(device_panels, of_each_type_show_its_row_behind_a_device_of_every_other_type) {
    const Texts devices{"PIC16F57",  "PIC16F54",  "PIC10F200", "PIC12C509A", "PIC12C671",
                        "PIC12F675", "PIC16C642", "PIC18F452", "PIC18F2550", "PIC16F877A"};
    for (const auto& before : devices)
        for (const auto& device : devices) {
            if (device == before) continue;
            ASSERT_NO_FATAL_FAILURE(choose(before));
            ASSERT_NO_FATAL_FAILURE(choose_and_compare(device));
        }
}

TEST_F(device_panels, of_the_calibration_families_offer_their_lists) {
    const auto fcal = fcal_entries();
    ASSERT_NO_FATAL_FAILURE(choose("PIC16F887"));
    expect_combo(bench(), "Combo_FCAL", fcal, 63);
    expect_combo(bench(), "Combo_POR", kThreeBits, 4);
    expect_combo(bench(), "Combo_BOR", kThreeBits, 4);
    for (const char* device : {"PIC16F917", "PIC16F636"}) {
        const bool wur = std::string_view{device} == "PIC16F636";
        ASSERT_NO_FATAL_FAILURE(choose(device));
        expect_combo(bench(), "Combo_FCAL_91X", fcal, 63);
        expect_combo(bench(), "Combo_POR_91X", wur ? kThreeBits : kTwoBits, wur ? 4 : 3);
        expect_combo(bench(), "Combo_BOR_91X", kBor91X, 6);
        expect_combo(bench(), "Combo_LVD_91X", kThreeBits, 4);
        if (wur) expect_combo(bench(), "Combo_WUR_63X", kWur, 0);
    }
    for (const char* device : {"PIC16F684", "PIC16F688", "PIC16F631", "PIC16F690"}) {
        const bool three =
            std::string_view{device}.ends_with("4") || std::string_view{device}.ends_with("8");
        ASSERT_NO_FATAL_FAILURE(choose(device));
        expect_combo(bench(), "Combo_FCAL_91X", fcal, 63);
        expect_combo(bench(), "Combo_POR_91X", three ? kThreeBits : kTwoBits, three ? 4 : 3);
        expect_combo(bench(), "Combo_BOR_91X", kBor91X, 6);
    }
    ASSERT_NO_FATAL_FAILURE(choose("PIC12F615"));
    expect_combo(bench(), "Combo_FCAL_91X", fcal, 63);
}

TEST_F(device_panels, open_their_combos_when_the_user_clears_the_box_that_keeps_calibration) {
    ASSERT_NO_FATAL_FAILURE(choose("PIC16F690"));
    auto* box = bench().find<QCheckBox>("Chk_12F_CalibData_Select");
    ASSERT_TRUE(box->isVisible());
    EXPECT_FALSE(bench().find<QComboBox>("Combo_BOR_91X")->isEnabled());
    box->click();
    EXPECT_TRUE(bench().find<QComboBox>("Combo_BOR_91X")->isEnabled());
    EXPECT_EQ(bench().message(),
              "ﾃﾞﾊﾞｲｽ内部のｷｬﾘﾌﾞﾚｰｼｮﾝﾃﾞｰﾀ（工場出荷時の設定値）を変更したくない場合は"
              "ﾁｪｯｸﾎﾞｯｸｽをｸﾘｱしないでください。 ");
    ASSERT_NO_FATAL_FAILURE(choose("PIC16F685"));
    EXPECT_TRUE(box->isChecked()) << "the next device is safe again";
    EXPECT_FALSE(bench().find<QComboBox>("Combo_BOR_91X")->isEnabled());
}

TEST_F(device_panels, of_the_same_device_again_keep_the_file_s_calibration_but_for_5F_and_10F) {
    auto* list = bench().find<QComboBox>("Combo_device");
    auto* use_file = bench().find<QCheckBox>("Chk_UseFileData");
    for (const std::string device : {"PIC16F57", "PIC16F54", "PIC10F200", "PIC12F675"}) {
        ASSERT_NO_FATAL_FAILURE(choose(device));
        bench().run->form.Chk_UseFileData.Visible.set(true);
        use_file->click();
        ASSERT_TRUE(use_file->isChecked()) << device;
        Q_EMIT list->activated(list->currentIndex());
        EXPECT_EQ(session().DeviceName, device);
        EXPECT_EQ(use_file->isChecked(), device == "PIC12F675") << device;
        EXPECT_TRUE(use_file->isVisible()) << device;
    }
    ASSERT_NO_FATAL_FAILURE(choose_and_compare("PIC12F629"));
}

TEST_F(device_panels, take_the_power_order_of_the_answer_where_the_row_asks) {
    for (const auto& row : group_rows()) {
        const auto& device = row.devices.front();
        for (const int answer : {0, 1, 2}) {
            ASSERT_NO_FATAL_FAILURE(choose("PIC16F877A"));
            bench().dialogs.power_answer = answer;
            bench().dialogs.power_questions.clear();
            ASSERT_NO_FATAL_FAILURE(choose(device));
            if (!row.power_question) {
                EXPECT_TRUE(bench().dialogs.power_questions.empty()) << device;
                EXPECT_EQ(session().PowerMode, "VDD") << device << " keeps the catalogue's order";
                continue;
            }
            ASSERT_EQ(bench().dialogs.power_questions.size(), 1U) << device;
            EXPECT_TRUE(bench().dialogs.power_questions[0].starts_with(device + "は\r\n"));
            EXPECT_EQ(session().FormAnswer, answer) << device;
            EXPECT_EQ(session().PowerMode, answer == 2 ? "VDD" : "VPP") << device;
        }
    }
}

}  // namespace
}  // namespace quillon::test
