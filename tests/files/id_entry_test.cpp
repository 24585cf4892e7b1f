// SPDX-License-Identifier: MIT
// Entered IDs: what the boxes show is in the image.
#include "hex/id_entry.h"

#include <gtest/gtest.h>

#include "app/buttons.h"
#include "files/files_bench.h"

namespace quillon {

using test::bytes_of;

namespace {

struct Bench : test::FilesBench {
    using FilesBench::FilesBench;
    IdEntry entry{session, form, views};
};

}  // namespace

TEST(IdEntry, puts_one_digit_into_each_word) {
    Bench bench;
    ASSERT_TRUE(bench.entry.take_digits("12aF"));
    EXPECT_EQ(bytes_of(bench.session.CfgIdMem, 0, 7), "00010002000A000F");
    EXPECT_EQ(bench.session.IdText, "12AF");
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "12AF");
}

TEST(IdEntry, puts_a_digit_under_ones_into_each_byte_of_a_PIC18) {
    Bench bench{"PIC18F2550"};
    ASSERT_TRUE(bench.entry.take_digits("0123cdef"));
    EXPECT_EQ(bytes_of(bench.session.IdBytes18, 0, 7), "F0F1F2F3FCFDFEFF");
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "0123CDEF");
    EXPECT_EQ(bench.session.IdText, "0123CDEF");
}

TEST(IdEntry, puts_whole_words_of_the_devices_that_use_them_in_full) {
    Bench bench{"PIC16F887"};
    ASSERT_TRUE(bench.entry.take_word(1, "3fA5"));
    ASSERT_TRUE(bench.entry.take_word(4, "0001"));
    EXPECT_EQ(bytes_of(bench.session.CfgIdMem, 0, 7), "3FA53FFF3FFF0001");
    EXPECT_EQ(bench.form.Text_ID1.Text.get(), "3FA5");
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "5FF1");
    EXPECT_EQ(bench.session.IdText, "5FF1");
}

TEST(IdEntry, changes_nothing_for_a_text_that_is_no_ID) {
    Bench bench{"PIC16F887"};
    const auto before = bench.session.CfgIdMem;
    for (const auto* text : {"", "123", "12345", "12G4", "12 4"}) {
        EXPECT_FALSE(bench.entry.take_digits(text)) << text;
        EXPECT_FALSE(bench.entry.take_word(1, text)) << text;
    }
    EXPECT_FALSE(bench.entry.take_word(1, "4000"));  // fourteen bits
    EXPECT_EQ(bench.session.CfgIdMem, before);
}

TEST(IdEntry, is_saved_and_read_back) {
    Bench bench;
    ASSERT_TRUE(bench.entry.take_digits("2026"));
    ASSERT_EQ(bench.files.mnuFileSave_Click(bench.folder / "a.hex"), Outcome::Success);
    bench.buffer.mnuPcBufferMemoryClear();
    ASSERT_EQ(bench.files.mnuFileOpen_Click(bench.folder / "a.hex"), Token::OK);
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "2026");
}

TEST(drop_unfinished, shows_the_images_ID_again_where_a_box_is_incomplete) {
    Bench bench{"PIC16F887"};
    bench.form.Text_ID.Text.set("12");
    bench.entry.drop_unfinished();
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "FFFF");
    for (auto* word : {&bench.form.Text_ID1, &bench.form.Text_ID4}) {
        word->Text.set("7FFF");  // fifteen bits
        bench.entry.drop_unfinished();
        EXPECT_EQ(word->Text.get(), "3FFF");
    }

    Bench pic18{"PIC18F2550"};
    ASSERT_TRUE(pic18.entry.take_digits("01234567"));
    pic18.form.Text_ID.Text.set("0123456");
    pic18.entry.drop_unfinished();
    EXPECT_EQ(pic18.form.Text_ID.Text.get(), "01234567");
}

// An operation doesn't lock the boxes of whole words.
TEST(IdEntry, takes_no_word_while_an_operation_has_the_controls_locked) {
    Bench bench{"PIC16F887"};
    LockButtons(bench.form);
    EXPECT_FALSE(bench.entry.take_word(2, "1234"));
    EXPECT_EQ(bytes_of(bench.session.CfgIdMem, 0, 7), "3FFF3FFF3FFF3FFF");
    UnlockButtons(bench.session.PgmType.text(), bench.form);
    EXPECT_TRUE(bench.entry.take_word(2, "1234"));
    EXPECT_EQ(bytes_of(bench.session.CfgIdMem, 0, 7), "3FFF12343FFF3FFF");
}

TEST(drop_unfinished, leaves_complete_boxes_and_a_form_without_a_device) {
    Bench bench;
    bench.form.Text_ID.Text.set("1234");
    bench.entry.drop_unfinished();
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "1234");
    Bench none{""};
    none.form.Text_ID.Text.set("1");
    none.entry.drop_unfinished();
    EXPECT_EQ(none.form.Text_ID.Text.get(), "1");
}

}  // namespace quillon
