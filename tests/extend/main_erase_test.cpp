// SPDX-License-Identifier: MIT
// The main form's erase commands where they can lose a calibration word or have no erase, and the
// buttons for the calibration word.
#include "extend_support.h"

namespace quillon::test {

namespace {

struct EraseCommand {
    Outcome (Flows::*press)();
    std::string_view mode;
};
constexpr EraseCommand kPgm{&Flows::mnuPgmErase_Click, "08"};
constexpr EraseCommand kChip{&Flows::mnuChipErase_Click, "0A"};

Outcome press(Bench& bench, const EraseCommand& command) {
    return (bench.run->flows.*command.press)();
}

}  // namespace

TEST(main_erase_12F6, asks_first_and_sends_nothing_when_cancelled) {
    for (const auto& command : {kPgm, kChip}) {
        ExtendBench bench{k12F6};
        bench.program_part();
        const auto part = bench.target();
        const auto opens = bench.port.opens();
        EXPECT_EQ(press(bench, command), Outcome::Cancelled);

        EXPECT_EQ(bench.target(), part);
        EXPECT_EQ(bench.wire(), "");
        EXPECT_EQ(bench.port.opens(), opens);
        ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
        const auto& box = bench.dialogs.boxes[0];
        EXPECT_EQ(box.name, "calibration");
        EXPECT_EQ(box.buttons, BoxButtons::OkCancel);
        EXPECT_EQ(box.default_answer, BoxAnswer::Cancel);
        EXPECT_NE(box.text.find("拡張"), std::string::npos) << box.text;
    }
}

TEST(main_erase_12F6, erases_as_asked_after_ok) {
    ExtendBench pgm{k12F6};
    pgm.program_part();
    pgm.dialogs.answers = {BoxAnswer::Ok};
    EXPECT_EQ(press(pgm, kPgm), Outcome::Success);
    EXPECT_EQ(pgm.wire(), pgm.check() + pgm.erase("08"));
    EXPECT_EQ(pgm.shown->lines, stages({pgm.found(), kPgmErased}));

    ExtendBench chip{k12F6};
    chip.program_part();
    chip.dialogs.answers = {BoxAnswer::Ok};
    EXPECT_EQ(press(chip, kChip), Outcome::Success);
    EXPECT_EQ(chip.wire(), chip.check() + chip.check() + chip.erase("0A"));
    EXPECT_EQ(chip.shown->lines,
              stages({chip.found(), {"チップイレース....."}, chip.found(), kChipErased}));
    EXPECT_EQ(chip.target().program[0], 0x3FFF);
}

TEST(main_erase_unknown, sends_the_power_letter_alone_and_names_the_dialog_that_can_erase) {
    ExtendBench bench{kFlash2};
    bench.program_part();
    const auto part = bench.target();
    EXPECT_EQ(press(bench, kPgm), Outcome::Failed);

    EXPECT_EQ(bench.target(), part);
    EXPECT_EQ(bench.wire(), bench.check() + "> N\n");
    const auto told = stages(
        {bench.found(),
         {"Ｆｌａｓｈプログラムメモリ消去中.........", "プログラムメモリを消去に失敗しました。"}});
    ASSERT_EQ(bench.shown->lines.size(), told.size() + 1);
    EXPECT_TRUE(std::equal(told.begin(), told.end(), bench.shown->lines.begin()));
    EXPECT_TRUE(bench.shown->lines.back().starts_with("[+] "));
    EXPECT_NE(bench.shown->lines.back().find("拡張"), std::string::npos)
        << bench.shown->lines.back();
}

TEST(main_erase_unknown, names_no_dialog_where_the_device_has_none) {
    const ExtendCase row{.device = "PIC12C508A",
                         .delay = 2,
                         .power = 'N',
                         .write_pgm = "",
                         .write_eep = "",
                         .write_cfg = ""};
    for (const auto& command : {kPgm, kChip}) {
        ExtendBench bench{row};
        EXPECT_EQ(press(bench, command), Outcome::Failed);
        EXPECT_EQ(bench.shown->lines.back(),
                  command.mode == "08" ? "プログラムメモリを消去に失敗しました。" : "失敗。");
        EXPECT_TRUE(bench.wire().ends_with(bench.check() + "> N\n"));
    }
}

TEST(calibration_button, Command1_reads_the_word_into_label_or_field) {
    ExtendBench bench{k12F6};
    bench.target().program.back() = 0x345A;
    const auto word = bench.read_word();
    EXPECT_EQ(bench.run->flows.Command1_Click(), Outcome::Success);

    EXPECT_EQ(bench.wire(), bench.check() + "> nbr 04 00  < 34 5A @\n");
    EXPECT_EQ(word, "> nbr 04 00  < 34 5A @\n");
    EXPECT_EQ(bench.form().Text_Calib_Data.Text.get(), "5A");
    EXPECT_EQ(bench.shown->lines, stages({bench.found(), kReadWordLines}));
    EXPECT_EQ(pauses(bench), between_check_and_close({}));
}

TEST(calibration_button, Command2_writes_the_word_of_the_field_behind_the_opcode) {
    ExtendBench bench{k12F6};
    bench.target().program.back() = 0x3FFF;
    bench.form().Text_Calib_Data.Text.set("4E");
    EXPECT_EQ(bench.run->flows.Command2_Click(), Outcome::Success);

    EXPECT_EQ(bench.wire(), bench.check() + "> nbw 04 00 34 4E  < @\n");
    EXPECT_EQ(bench.target().program.back(), 0x344E);
    EXPECT_EQ(bench.shown->lines, stages({bench.found(), kWriteWordLines}));
    EXPECT_EQ(pauses(bench), between_check_and_close({}));
}

TEST(calibration_button, Command2_fails_where_the_part_does_not_take_the_value) {
    ExtendBench bench{k12F6};
    bench.target().program.back() = 0x3400;
    bench.form().Text_Calib_Data.Text.set("4E");
    EXPECT_EQ(bench.run->flows.Command2_Click(), Outcome::Failed);

    EXPECT_EQ(bench.target().program.back(), 0x3400);
    EXPECT_EQ(bench.shown->lines.back(), "指定プログラムメモリのデータライト失敗。");
}

TEST(calibration_button, waits_three_seconds) {
    struct Row {
        std::string_view fault;
        bool write;
        Outcome outcome;
        std::string_view line;
    };
    for (const auto& row :
         {Row{"br/late:2900ms", false, Outcome::Success,
              "指定プログラムメモリのデータリード成功。"},
          Row{"br/late:3100ms", false, Outcome::Failed, "指定プログラムメモリのデータリード失敗。"},
          Row{"br/alter:3:0x21", false, Outcome::Failed,
              "指定プログラムメモリのデータリード失敗。"},
          Row{"bw/late:2900ms", true, Outcome::Success, "指定プログラムメモリのデータライト成功。"},
          Row{"bw/late:3100ms", true, Outcome::Failed, "指定プログラムメモリのデータライト失敗。"},
          Row{"bw/alter:1:0x21", true, Outcome::Failed,
              "指定プログラムメモリのデータライト失敗。"}}) {
        ExtendBench bench{k12F6};
        bench.target().program.back() = 0x3FFF;
        bench.form().Text_Calib_Data.Text.set("4E");
        bench.board.add_fault(row.fault);
        EXPECT_EQ(row.write ? bench.run->flows.Command2_Click() : bench.run->flows.Command1_Click(),
                  row.outcome)
            << row.fault;
        EXPECT_EQ(bench.shown->lines.back(), row.line) << row.fault;
    }
}

TEST(calibration_button, sends_nothing_for_a_type_without_such_a_word) {
    for (const std::string_view device : {"PIC16F84A", "PIC12C508A", "PIC16C54"}) {
        ExtendCase row = kFlash0;
        row.device = device;
        ExtendBench bench{row};
        const auto part = bench.target();
        EXPECT_EQ(bench.run->flows.Command1_Click(), Outcome::NotServed) << device;
        EXPECT_EQ(bench.run->flows.Command2_Click(), Outcome::NotServed) << device;
        EXPECT_EQ(bench.target(), part);
        EXPECT_EQ(bench.wire(), "");
    }
    Bench eprom{"PIC16C63A", {{"PIC16C63A"}}};
    EXPECT_EQ(eprom.run->flows.Command1_Click(), Outcome::NotServed);
    EXPECT_EQ(eprom.run->flows.Command2_Click(), Outcome::NotServed);
    EXPECT_EQ(eprom.wire(), "");
}

TEST(calibration_button, serves_12C6_as_well) {
    Bench bench{"PIC12C672", {{"PIC12C672"}}};
    bench.target().program.back() = 0x3461;
    EXPECT_EQ(bench.run->flows.Command1_Click(), Outcome::Success);
    EXPECT_NE(bench.wire().find("br 08 00  < 34 61 @"), std::string::npos);
    EXPECT_EQ(bench.form().Text_Calib_Data.Text.get(), "61");
}

}  // namespace quillon::test
