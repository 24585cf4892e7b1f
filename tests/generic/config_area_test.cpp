// SPDX-License-Identifier: MIT
// The "c" area of ID and configuration words: when its block is acknowledged, which words are
// written, and how.
#include "generic_lines.h"

namespace quillon::test {

namespace {

// For each read of the "c" area: how many bytes had come when each "@" went out.
using Acknowledges = std::vector<std::vector<std::size_t>>;

// The board answers two seconds late, so an "@" that waits for nothing goes out before the data.
Acknowledges acknowledges(GenericBench& bench, Outcome (Flows::*operation)()) {
    // A fault strikes once, so each message sets it anew for the exchange behind it.
    const auto rearmed = bench.run->messages.shown.connect([&](const ShownMessage&) {
        bench.board.clear_faults();
        bench.board.add_fault(std::string{bench.row().read} + "c/late:2000ms");
    });
    (bench.run->flows.*operation)();
    Acknowledges found;
    std::string sent;
    std::size_t received = 0;
    bool reading = false;
    const std::string head = bench.row().power + std::string{bench.row().read} + "c";
    for (const auto& event : bench.port.wire().events()) {
        if (event.way == WireEvent::Way::FromBoard) {
            received += event.bytes.size();
            continue;
        }
        const char byte = static_cast<char>(event.bytes.front());
        if (reading && byte == '@' && event.bytes.size() == 1) {
            found.back().push_back(received);
            continue;
        }
        sent += byte;
        reading = sent.size() >= 6 && sent.substr(sent.size() - 6, 4) == head;
        if (!reading) continue;
        found.emplace_back();
        received = 0;
    }
    return found;
}

}  // namespace

using generic_config = EveryType;
INSTANTIATE_TEST_SUITE_P(, generic_config, testing::ValuesIn(kGenericCases), type_name);

TEST_P(generic_config, is_acknowledged_at_once_in_the_blank_check) {
    GenericBench bench{GetParam(), kFewWords};
    const auto found = acknowledges(bench, &Flows::Command_blank);
    const bool long_area = bench.row().words.blank == 16;
    EXPECT_EQ(found, long_area ? (Acknowledges{{16, 32}}) : (Acknowledges{{0}}));
}

TEST_P(generic_config, is_acknowledged_at_once_in_a_verify_and_behind_the_data_in_the_check) {
    GenericBench bench{GetParam(), kFewWords};
    bench.program_target();
    const auto found = acknowledges(bench, &Flows::Command_Verify);
    const bool long_area = bench.row().words.verify == 16;
    EXPECT_EQ(found, long_area ? (Acknowledges{{16}, {16, 32}}) : (Acknowledges{{16}, {0}}));
}

TEST_P(generic_config, is_acknowledged_behind_the_data_in_a_read) {
    GenericBench bench{GetParam(), kFewWords};
    const auto found = acknowledges(bench, &Flows::Command_read);
    const bool long_area = bench.row().words.read == 16;
    EXPECT_EQ(found, long_area ? (Acknowledges{{16}, {16, 32}}) : (Acknowledges{{16}, {16}}));
}

TEST_P(generic_config, is_acknowledged_behind_the_data_before_a_write_and_at_once_after_it) {
    GenericBench bench{GetParam(), kFewWords};
    const auto found = acknowledges(bench, &Flows::Command_program);
    const std::vector<std::size_t> at_once{0}, behind{16}, whole{16, 32};
    const bool long_area = bench.row().words.verify == 16;
    Acknowledges expected{behind};
    if (bench.row().type == "12F6") expected.push_back(behind);  // the band gap
    expected.push_back(long_area ? whole : at_once);             // blank check
    expected.push_back(behind);                                  // before the write
    expected.push_back(long_area ? whole : at_once);             // verify
    EXPECT_EQ(found, expected);
}

TEST_P(generic_config, marks_the_words_that_are_the_devices_own_and_writes_back_what_they_hold) {
    GenericBench bench{GetParam(), kFewWords};
    // The image has other values there, as a file would bring them.
    for (std::size_t i = 8; i < 14; ++i) bench.session().CfgIdMem[i] = 0x15;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    const GenericWire wire{bench};
    const auto items = wire.config_items();
    EXPECT_EQ(items[12], (bench.target().identity >> 8U) | (bench.row().marks ? 0x80U : 0U));
    EXPECT_NE(bench.wire().find(wire.write_cfg()), std::string::npos);
    EXPECT_EQ(bench.session().CfgIdMem[8], 0x15);
    EXPECT_EQ(bench.session().CfgIdMem[12], 0x15);
}

TEST(generic_config_of_FLASH4_9, is_written_in_nine_words) {
    GenericBench bench{"FLASH4_9"};
    bench.session().ConfigWord[2] = 0x3FFE;
    bench.session().CfgIdMem[16] = 0x3F;
    bench.session().CfgIdMem[17] = 0xFE;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    EXPECT_EQ(bench.target().config[1], 0x3FFE);
    EXPECT_NE(bench.wire().find("> NwJc 00 09  < + x9  > "), std::string::npos);
}

TEST(generic_config_of_FLASH4_9, is_verified_in_its_second_word_too) {
    GenericBench bench{"FLASH4_9"};
    bench.program_target();
    bench.target().config[1] ^= 1U;
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);
    EXPECT_EQ(bench.session().ResultCfg, Token::NG);

    GenericBench run{"FLASH4_9"};
    run.when_shown("コンフィギュレーションワードのベリファイ中..........",
                   [&] { run.target().config[1] ^= 1U; });
    EXPECT_EQ(run.run->flows.Command_program(), Outcome::Failed);
    EXPECT_EQ(run.session().ResultAll, "OKOKNG");
}

TEST(generic_config_of_FLASH4_9, is_blank_in_its_second_word_whatever_that_holds) {
    // The test looks at the ID words and the first configuration word.
    GenericBench bench{"FLASH4_9"};
    bench.target().config[1] = 0x3FFC;
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);
}

TEST(generic_config_of_EPROM2, has_the_bytes_of_its_id_words_the_other_way_round_on_the_wire) {
    GenericBench bench{"EPROM2"};
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    const auto wire = bench.wire();
    EXPECT_NE(wire.find("> NwSc 00 08  < + x8  > FA 3F FB 3F FC 3F FD 3F "), std::string::npos)
        << wire;
    EXPECT_EQ(bench.target().id, (std::vector<std::uint16_t>{0x3FFA, 0x3FFB, 0x3FFC, 0x3FFD}));
}

TEST(generic_config_of_EPROM2, is_the_same_in_a_part_that_is_read_and_written_again) {
    GenericBench bench{"EPROM2"};
    bench.target().id = {0x7FF1, 0xBFF2, 0x3FF3, 0xFFF4};
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);
    EXPECT_EQ(bench.form().Text_ID.Text.get(), "1234");
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Success);
    const auto id = bench.target().id;
    bench.put_into_socket("PIC16C715");
    // The pattern has come back into the image with the new part.
    for (std::size_t w = 0; w < 4; ++w) {
        bench.session().CfgIdMem[2 * w] = static_cast<std::uint8_t>(id[w] >> 8U);
        bench.session().CfgIdMem[2 * w + 1] = static_cast<std::uint8_t>(id[w]);
    }
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    EXPECT_EQ(bench.target().id, id);
}

TEST(generic_config_of_EPROM2, takes_the_bits_above_its_configuration_word_for_ones) {
    GenericBench bench{"EPROM2"};
    bench.program_target();
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);
    EXPECT_EQ(bench.session().CfgIdMem[14] & 0xC0, 0xC0);
    EXPECT_EQ(bench.session().ConfigWord[1], bench.target().config[0]);
}

TEST(generic_config_of_devices_with_unused_bits, is_blank_where_all_possible_bits_are_set) {
    GenericBench bench{"FLASH0_of_any_other"};
    bench.session().ConfigMask[1] = 0x3FFD;
    bench.target().config[0] = 0x3FFD;
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);
}

}  // namespace quillon::test
