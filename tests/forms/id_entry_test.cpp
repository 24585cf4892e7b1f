// SPDX-License-Identifier: MIT
// IDs and configuration words as the user changes them in the window.
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "app/buttons.h"
#include "forms/form_bench.h"
#include "image/image_support.h"

namespace quillon::test {
namespace {

constexpr const char* kBlinker = QUILLON_EXAMPLES "/blinker.hex";

void type(QLineEdit& box, const char* text) {
    box.selectAll();
    QTest::keyClicks(&box, text);
}

TEST(id_box, takes_a_complete_ID_into_the_image_at_once) {
    FormBench bench;
    auto* box = bench.find<QLineEdit>("Text_ID");
    type(*box, "12ab");
    EXPECT_EQ(box->text(), "12AB");
    EXPECT_EQ(bytes_of(bench.run->session.CfgIdMem, 0, 7), "00010002000A000B");
    EXPECT_EQ(bench.run->session.IdText, "12AB");
}

TEST(id_box, gives_way_to_the_images_ID_where_it_is_left_unfinished) {
    FormBench bench;
    auto* box = bench.find<QLineEdit>("Text_ID");
    type(*box, "12ab");
    type(*box, "34");
    EXPECT_EQ(box->text(), "34");
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(box->text(), "12AB");
    EXPECT_EQ(bytes_of(bench.run->session.CfgIdMem, 0, 7), "00010002000A000B");
}

TEST(id_box, never_shows_an_operation_what_it_does_not_write) {
    FormBench bench;
    bench.window->load([&] { bench.run->files.mnuFileOpen_Click(kBlinker); });
    auto* box = bench.find<QLineEdit>("Text_ID");
    type(*box, "9");
    bench.window->command([&] { EXPECT_EQ(bench.run->form.Text_ID.Text.get(), "2026"); });
    EXPECT_EQ(box->text(), "2026");
}

TEST(id_box, of_a_PIC18_takes_eight_digits_under_ones) {
    FormBench bench;
    bench.run->form.Combo_device.select(std::string_view{"PIC18F2550"});
    type(*bench.find<QLineEdit>("Text_ID"), "01234567");
    EXPECT_EQ(bytes_of(bench.run->session.IdBytes18, 0, 7), "F0F1F2F3F4F5F6F7");
}

TEST(id_box, of_a_whole_word_takes_fourteen_bits) {
    FormBench bench;
    bench.run->form.Combo_device.select(std::string_view{"PIC16F887"});
    type(*bench.find<QLineEdit>("Text_ID2"), "3a5c");
    EXPECT_EQ(bytes_of(bench.run->session.CfgIdMem, 2, 3), "3A5C");
    type(*bench.find<QLineEdit>("Text_ID2"), "7fff");
    QTest::keyClick(bench.find<QLineEdit>("Text_ID2"), Qt::Key_Return);
    EXPECT_EQ(bench.find<QLineEdit>("Text_ID2")->text(), "3A5C");
}

TEST(id_box, of_a_whole_word_takes_no_key_while_an_operation_runs) {
    FormBench bench;
    bench.run->form.Combo_device.select(std::string_view{"PIC16F887"});
    auto* box = bench.find<QLineEdit>("Text_ID2");
    bench.window->command([&] {
        LockButtons(bench.run->form);
        type(*box, "1234");
        EXPECT_EQ(bytes_of(bench.run->session.CfgIdMem, 2, 3), "3FFF");
        UnlockButtons(bench.run->session.PgmType.text(), bench.run->form);
    });
    EXPECT_EQ(box->text(), "3FFF");
    type(*box, "1234");
    EXPECT_EQ(bytes_of(bench.run->session.CfgIdMem, 2, 3), "1234");
}

}  // namespace
}  // namespace quillon::test
