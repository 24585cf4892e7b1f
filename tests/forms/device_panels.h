// SPDX-License-Identifier: MIT
// One window in which many tests choose devices, and what its widgets show.
#pragma once

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <array>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "device_rows.h"
#include "form_bench.h"

namespace quillon::test {

class DevicePanels : public testing::Test {
  protected:
    static void SetUpTestSuite() { bench_ = std::make_unique<FormBench>(); }
    static void TearDownTestSuite() { bench_.reset(); }
    void SetUp() override {
        bench_->run->session.CatalogueFile = QUILLON_CATALOGUE;
        bench_->dialogs.power_answer = 0;
        bench_->dialogs.boxes.clear();
        bench_->dialogs.power_questions.clear();
    }
    void TearDown() override { EXPECT_TRUE(bench_->dialogs.boxes.empty()); }

    static FormBench& bench() { return *bench_; }
    static Session& session() { return bench_->run->session; }

    // Chooses as a user does: types the name, then Return. For the selected device Return does
    // nothing, so its entry is chosen.
    static void choose(const std::string& device) {
        auto* box = bench_->find<QComboBox>("Combo_device");
        if (device == session().DeviceName) {
            Q_EMIT box->activated(box->currentIndex());
        } else {
            box->lineEdit()->setText(QString::fromStdString(device));
            QTest::keyClick(box->lineEdit(), Qt::Key_Return);
        }
        ASSERT_EQ(session().DeviceName, device);
        ASSERT_EQ(box->lineEdit()->text().toStdString(), device);
    }

    static bool shown(const char* name) {
        const auto* widget = bench_->window->findChild<QWidget*>(name);
        if (widget == nullptr) ADD_FAILURE() << "no widget " << name;
        return widget != nullptr && widget->isVisible();
    }
    static void expect_shown(const char* name, bool wanted) {
        EXPECT_EQ(shown(name), wanted) << session().DeviceName << " " << name;
    }
    static void expect_text(const char* name, const std::string& text) {
        EXPECT_EQ(bench_->find<QLineEdit>(name)->text().toStdString(), text)
            << session().DeviceName << " " << name;
    }
    static void expect_caption(const char* name, const std::string& text) {
        EXPECT_EQ(bench_->find<QLabel>(name)->text().toStdString(), text)
            << session().DeviceName << " " << name;
    }
    // Grey and locked, or white and open.
    static void expect_box(const char* name, bool open) {
        const auto* box = bench_->find<QLineEdit>(name);
        const auto ground = open ? QPalette::Base : QPalette::Window;
        EXPECT_EQ(box->isEnabled(), open) << session().DeviceName << " " << name;
        EXPECT_EQ(box->palette().color(QPalette::Base), QApplication::palette().color(ground))
            << session().DeviceName << " " << name;
    }

    using Group = std::vector<std::pair<const char*, const char*>>;
    // The widgets of the groups, each with the word for it in the rows.
    static const Group& group_widgets() {
        static const Group kWidgets{
            {"Combo_BOR_91X", "BOR"}, {"Combo_POR_91X", "POR"}, {"Combo_FCAL_91X", "FCAL"},
            {"Combo_LVD_91X", "LVD"}, {"Combo_WUR_63X", "WUR"}, {"Text_ID1", "ID"},
            {"Text_ID2", "ID"},       {"Text_ID3", "ID"},       {"Text_ID4", "ID"},
            {"Label10(0)", "ID"},     {"Label10(1)", "ID"},     {"Label10(2)", "ID"},
            {"Label10(3)", "ID"},     {"Combo_FCAL", "88X"},    {"Combo_BOR", "88X"},
            {"Combo_POR", "88X"},     {"Label11(0)", "88X"},    {"Label11(1)", "88X"},
            {"Label11(2)", "88X"}};
        return kWidgets;
    }
    static std::vector<bool> group_seen() {
        std::vector<bool> seen;
        for (const auto& [widget, word] : group_widgets()) seen.push_back(shown(widget));
        return seen;
    }

    // Chooses the device and compares the window with the device's two rows.
    static void choose_and_compare(const std::string& device) {
        const auto former_group = group_seen();
        const bool former_revision = shown("Lbl_div");
        ASSERT_NO_FATAL_FAILURE(choose(device));
        const GroupRow& group = group_row(device);
        const TypeRow& type = type_row(session().PgmType.text());
        expect_group(group, former_group);
        expect_type(type, group.user_decides);
        expect_calibration(type);
        expect_identity(type, former_revision);
    }

  private:
    static void expect_group(const GroupRow& row, const std::vector<bool>& former) {
        for (std::size_t i = 0; i < former.size(); ++i) {
            const auto& [widget, word] = group_widgets()[i];
            expect_shown(widget, row.keep ? former[i] : holds(row.shown, word));
        }
        if (holds(row.shown, "ID"))
            for (const char* id : {"Text_ID1", "Text_ID2", "Text_ID3", "Text_ID4"})
                expect_text(id, "3FFF");
    }

    // The tabs have no strip. The widgets shown on a tab identify it.
    static void expect_type(const TypeRow& row, bool user_decides) {
        std::array<bool, 10> tabs{};
        if (row.tab) tabs.at(*row.tab) = true;
        EXPECT_EQ(bench_->run->form.SSTab_MCU_Information.TabVisible.get(), tabs)
            << session().DeviceName;
        for (const char* name : {"Label_Calib", "Label_CalibInfo", "Lbl_Calib_ReadWrite_Data",
                                 "Text_OSCCAL_Data", "Text_Calib_Data", "Text_BG", "Label_BG",
                                 "Check_Parity_Disp", "Label_DEV_id", "Label_DEV_rev"})
            expect_shown(name, holds(row.shown, name));
        EXPECT_FALSE(bench_->find<QCheckBox>("Check_Parity_Disp")->isChecked());
        expect_shown("Chk_12F_CalibData_Select", row.keeps || user_decides);
        if (row.keeps || user_decides) {
            EXPECT_TRUE(bench_->find<QCheckBox>("Chk_12F_CalibData_Select")->isChecked());
        }
        expect_shown("Chk_UseFileData", false);
        EXPECT_FALSE(bench_->find<QCheckBox>("Chk_UseFileData")->isChecked());
    }

    static void expect_calibration(const TypeRow& row) {
        expect_caption("Lbl_Calib_ReadWrite_Data", "--");
        expect_text("Text_Calib_Data", row.Text_Calib_Data);
        EXPECT_FALSE(bench_->find<QLineEdit>("Text_Calib_Data")->isEnabled());
        if (row.tab == 0) expect_box("Text_Calib_Data", false);
        if (row.tab == 3) expect_box("Text_OSCCAL_Data", false);
        if (!row.keeps) return;
        expect_text("Text_BG", "3");
        expect_box("Text_BG", row.bandgap_open);
    }

    static void expect_identity(const TypeRow& row, bool former_revision) {
        if (row.revision == Revision::Shown || row.tab == 2) {
            expect_caption("Label_DEV_id", "--");
            expect_caption("Label_DEV_rev", "--");
        }
        const bool revision =
            row.revision == Revision::AsBefore ? former_revision : row.revision == Revision::Shown;
        for (const char* name : {"Lbl_div", "Lbl_rev", "Lbl_ID_Dev", "Lbl_ID_Rev"})
            expect_shown(name, revision);
        expect_caption("Lbl_ID_Dev", "");
        expect_caption("Lbl_ID_Rev", "");
        expect_text("Text_ID", row.Text_ID);
        EXPECT_EQ(bench_->find<QLineEdit>("Text_ID")->maxLength(),
                  static_cast<int>(row.Text_ID.size()))
            << session().DeviceName;
    }

    inline static std::unique_ptr<FormBench> bench_;
};

}  // namespace quillon::test
